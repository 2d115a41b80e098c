#pragma once

#include <linux/eventstore/source/ComponentSource.h>

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace vantrel {

/// The calendars of the desktop's accounts, as Evolution Data Server has them. Opens the module
/// that talks to it when it starts, and only where the service is there too: elsewhere this is a
/// source without calendars that can say why, and none of the service's libraries is loaded. They
/// are loaded on a thread of their own, since a disk may take its time. A service that is installed
/// later is noticed.
class EvolutionSource : public ComponentSource {
public:
    /// The module beside the running program: in its folder, or in `../lib/vantrel`.
    [[nodiscard]] static QString moduleOfProgram();

    /// Whether that module would find the service; asks the disk alone.
    [[nodiscard]] static bool isInstalled(const QString &module);

    explicit EvolutionSource(QString module);
    ~EvolutionSource() override;

    void setWindow(Window window) override;
    void start() override;
    void waitUntilDelivered(Seconds limit) override;
    [[nodiscard]] std::vector<SourceCalendar> calendars() override;
    [[nodiscard]] SourceKnowledge knowledge() const override;
    [[nodiscard]] QString trouble() const override;
    [[nodiscard]] std::optional<std::vector<SourceItem>>
    items(const QString &calendarIdentifier) override;
    [[nodiscard]] std::optional<QByteArray> text(const QString &calendarIdentifier,
                                                 const QByteArray &item) override;
    [[nodiscard]] QString description(const QString &calendarIdentifier,
                                      const QByteArray &item) const override;

private:
    struct Opened {
        std::unique_ptr<ComponentSource> live; ///< Null where there is no service.
        QString reason;                        ///< Why there is none.
        bool isServiceMissing = false;         ///< It may be installed later.
    };

    [[nodiscard]] Opened open();
    void adopt(Opened opened);
    void announceLater();
    void watchForService();
    void openIfInstalled();
    [[nodiscard]] ComponentSource *live() const;

    const QString m_module;
    QObject m_receiver; ///< Announcements for it are dropped once it is gone.
    std::thread m_opening;
    std::unique_ptr<QFileSystemWatcher> m_serviceWatch; ///< While the service is missing.

    mutable std::mutex m_mutex; ///< Guards what follows.
    std::condition_variable m_wasOpened;
    Window m_window;
    bool m_isOpened = false; ///< Or will not be for now.
    Opened m_opened;         ///< What is live stays so.
};

} // namespace vantrel
