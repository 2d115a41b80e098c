#pragma once

#include "CalendarFiles.h"
#include "ExpandedText.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

namespace vantrel::tests {

/// What some components show between two local times of a user in a zone, as `ExpandedText` has it.
struct Row {
    const char *name;
    QByteArray components;
    const char *from;
    const char *to;
    const char *userZone;
    std::vector<std::string> expected;
};

inline void PrintTo(const Row &row, std::ostream *out) {
    *out << row.name;
}

inline std::string nameOf(const ::testing::TestParamInfo<Row> &info) {
    return info.param.name;
}

inline void expectRow(const Row &row) {
    const ExpandedText text(calendarText(row.components), row.from, row.to, row.userZone);
    EXPECT_EQ(text.lines, row.expected);
    EXPECT_THAT(text.problems, ::testing::IsEmpty());
}

inline const QByteArray zurichNine = "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                                     "DTEND;TZID=Europe/Zurich:20260302T100000\n";

/// Nine in the morning of four Mondays in a row.
inline const QByteArray fourMondays = zurichNine + "RRULE:FREQ=WEEKLY;COUNT=4\n";

} // namespace vantrel::tests
