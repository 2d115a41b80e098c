#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantrel::tests {

/// A scratch place for calendar folders, gone at the end of the test.
class CalendarFiles {
public:
    [[nodiscard]] QString path(const QString &name = {}) const {
        return m_directory.filePath(name);
    }

    /// Writes a file, making the folders on the way to it.
    void write(const QString &name, const QByteArray &bytes) const {
        const QString full = path(name);
        QDir().mkpath(full.section(u'/', 0, -2));
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(full);
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

private:
    QTemporaryDir m_directory;
};

/// The lines of a calendar around those of its components.
inline QByteArray calendarText(const QByteArray &components) {
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//test//EN\r\n" + components +
           "END:VCALENDAR\r\n";
}

/// A VEVENT with those properties, each line ending with "\n".
inline QByteArray event(const QByteArray &uid, const QByteArray &properties) {
    return "BEGIN:VEVENT\nUID:" + uid + "\n" + properties + "END:VEVENT\n";
}

} // namespace vantrel::tests
