#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

namespace vantrel::tests {

/// The home of a user who has chosen an application for each of several kinds of links, none of
/// which belongs to the machine. Made before GIO's first look around, after which it stays.
///
/// `browser.desktop` opens https and http, `phone.desktop` tel, `other.desktop` nothing by default;
/// `endless.desktop` is in no hurry to end (scheme "endless"), `gone.desktop` is chosen for the
/// scheme "gone" and names a program that is not there.
class Profile {
public:
    /// Points HOME and the XDG folders to itself and cuts the session bus off.
    Profile();

    /// What the applications were started with since the last call, one list each: the
    /// application's name and its arguments.
    std::vector<QStringList> takeOpened();

    [[nodiscard]] QString outbox() const { return m_folder.filePath(QStringLiteral("outbox")); }

private:
    void write(const QString &place, const QString &text) const;
    void addApplication(const QString &name, const QString &mimeTypes) const;

    QTemporaryDir m_folder;
};

} // namespace vantrel::tests
