#pragma once

#include <QChar>
#include <QStringView>

#include <array>
#include <cstdint>

namespace vantrel {

/// What a character may be part of. Tables for ASCII, Unicode's properties for the rest.
namespace characters {

enum Trait : std::uint8_t {
    digit = 1,
    letter = 2,
    link = 4, ///< May stand in a link: RFC 3986 without the letters of RFC 3987.
    host = 8, ///< May stand in a host name, the dot included.
};

constexpr std::array<std::uint8_t, 128> makeTraits() {
    std::array<std::uint8_t, 128> traits{};
    for (unsigned c = '0'; c <= '9'; ++c)
        traits[c] = digit | link | host;
    for (unsigned c = 'a'; c <= 'z'; ++c)
        traits[c] = letter | link | host;
    for (unsigned c = 'A'; c <= 'Z'; ++c)
        traits[c] = letter | link | host;
    for (const unsigned char c : {'-', '.', '_'})
        traits[c] = link | host;
    for (const unsigned char c : {'~', ':',  '/', '?', '#', '[', ']', '@', '!', '$',
                                  '&', '\'', '(', ')', '*', '+', ',', ';', '=', '%'})
        traits[c] = link;
    return traits;
}

inline constexpr std::array<std::uint8_t, 128> traits = makeTraits();

constexpr bool isAscii(char32_t c) {
    return c < 128;
}

constexpr bool has(char32_t c, unsigned wanted) {
    return isAscii(c) && (traits[c] & wanted);
}

constexpr bool isDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

constexpr bool isAsciiLetterOrDigit(char32_t c) {
    return has(c, digit | letter);
}

inline bool isOneOf(char16_t c, QStringView set) {
    return set.contains(QChar(c));
}

/// Letters are told apart by whether they are Latin: a change from one to the other within a word
/// is where prose meets a link that was written without a space.
enum class Letters : std::uint8_t { none, latin, other };

inline Letters lettersOf(char32_t c) {
    if (isAscii(c))
        return has(c, letter) ? Letters::latin : Letters::none;
    if (!QChar::isLetter(c))
        return Letters::none;
    if (c >= 0xFF00 && c <= 0xFFEF) // full-width and half-width forms
        return Letters::other;
    return QChar::script(c) == QChar::Script_Latin ? Letters::latin : Letters::other;
}

/// The code point at a position of the text; a lone surrogate stands for itself.
inline char32_t codePointAt(QStringView text, qsizetype position) {
    const QChar first = text[position];
    if (first.isHighSurrogate() && position + 1 < text.size() &&
        text[position + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(first, text[position + 1]);
    return first.unicode();
}

constexpr qsizetype lengthOf(char32_t c) {
    return c > 0xFFFF ? 2 : 1;
}

} // namespace characters
} // namespace vantrel
