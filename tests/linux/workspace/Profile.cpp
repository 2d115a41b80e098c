#include "Profile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace vantrel::tests {

Profile::Profile() {
    const auto folder = [this](const char *variable, const QString &name) {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(path);
        qputenv(variable, path.toUtf8());
    };
    folder("HOME", QStringLiteral("."));
    folder("XDG_CONFIG_HOME", QStringLiteral("config"));
    folder("XDG_DATA_HOME", QStringLiteral("data"));
    folder("XDG_CACHE_HOME", QStringLiteral("cache"));
    folder("XDG_RUNTIME_DIR", QStringLiteral("runtime"));
    folder("XDG_DATA_DIRS", QStringLiteral("system-data"));
    folder("XDG_CONFIG_DIRS", QStringLiteral("system-config"));
    QDir().mkpath(outbox());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DISPLAY"); // A bus could be found, or even started, by way of it.

    addApplication(QStringLiteral("browser"),
                   QStringLiteral("x-scheme-handler/http;x-scheme-handler/https;"));
    addApplication(QStringLiteral("phone"), QStringLiteral("x-scheme-handler/tel;"));
    addApplication(QStringLiteral("other"), QStringLiteral("x-scheme-handler/https;"));
    addApplication(QStringLiteral("endless"), QStringLiteral("x-scheme-handler/endless;"));
    write(QStringLiteral("data/applications/gone.desktop"),
          QStringLiteral("[Desktop Entry]\nType=Application\nName=Gone\n"
                         "Exec=/nonexistent/program %u\nMimeType=x-scheme-handler/gone;\n"));
    write(QStringLiteral("config/mimeapps.list"),
          QStringLiteral("[Default Applications]\n"
                         "x-scheme-handler/http=browser.desktop\n"
                         "x-scheme-handler/https=browser.desktop\n"
                         "x-scheme-handler/tel=phone.desktop\n"
                         "x-scheme-handler/endless=endless.desktop\n"
                         "x-scheme-handler/gone=gone.desktop\n"));
}

void Profile::addApplication(const QString &name, const QString &mimeTypes) const {
    write(QStringLiteral("data/applications/%1.desktop").arg(name),
          QStringLiteral("[Desktop Entry]\nType=Application\nName=%1\n"
                         "Exec=\"%2\" \"%3\" %1 %u\nMimeType=%4\n")
              .arg(name, QStringLiteral(APPLICATION), outbox(), mimeTypes));
}

void Profile::write(const QString &place, const QString &text) const {
    const QString path = m_folder.filePath(place);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        throw std::runtime_error("the profile cannot be written");
}

std::vector<QStringList> Profile::takeOpened() {
    std::vector<QStringList> opened;
    QDir folder(outbox());
    for (const QString &name : folder.entryList({QStringLiteral("opened-*")}, QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        opened.push_back(QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts));
        file.remove();
    }
    return opened;
}

} // namespace vantrel::tests
