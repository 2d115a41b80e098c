#include "EmptyStateLine.h"

#include <QRandomGenerator>

#include <array>
#include <limits>

namespace vantrel {

namespace {

constexpr std::size_t lineCount = 3;

using Lines = std::array<const char *, lineCount>;

constexpr Lines todayLines{"all clear today", "nothing on the books", "Tobble's keeping watch"};
constexpr Lines allLines{"calendar's quiet", "no meetings in the next two weeks",
                         "Tobble's resting easy"};

} // namespace

std::int64_t EmptyStateLine::numberOfThisProcess() {
    static const std::int64_t number =
        QRandomGenerator::global()->bounded(std::numeric_limits<qint64>::max());
    return number;
}

QString EmptyStateLine::line(EventListMode mode, std::int64_t number) {
    const Lines &lines = mode == EventListMode::today ? todayLines : allLines;
    return QString::fromLatin1(lines.at(static_cast<std::size_t>(number) % lineCount));
}

} // namespace vantrel
