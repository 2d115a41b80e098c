#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace vantrel {

/// A character written as in HTML: `&amp;`, `&#38;`, `&#x26;`.
struct Entity {
    qsizetype length;
    char32_t character;
};

/// The entity that starts at a position of the text. Knows those names that occur around links;
/// any other name is plain text.
[[nodiscard]] std::optional<Entity> entityAt(QStringView text, qsizetype position);

} // namespace vantrel
