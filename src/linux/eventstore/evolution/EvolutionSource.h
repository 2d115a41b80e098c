#pragma once

#include <linux/eventstore/source/ComponentSource.h>

#include <QString>

#include <memory>

namespace vantrel {

/// The calendars of the desktop's accounts, as Evolution Data Server has them. Opens the module
/// that talks to it when it starts, and only where the service is there too: elsewhere this is a
/// source without calendars that can say why, and none of the service's libraries is loaded.
class EvolutionSource : public ComponentSource {
public:
    /// The module beside the running program: in its folder, or in `../lib/vantrel`.
    [[nodiscard]] static QString moduleOfProgram();

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
    [[nodiscard]] QString open();

    const QString m_module;
    Window m_window;
    QString m_reason; ///< Why the module was not opened; set before anybody asks.
    Subscription m_changes;
    std::unique_ptr<ComponentSource> m_live; ///< Null where there is no service.
};

} // namespace vantrel
