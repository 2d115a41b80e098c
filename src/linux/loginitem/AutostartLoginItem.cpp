#include "AutostartLoginItem.h"

#include "EntryFile.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

/// The user's place first.
QStringList places(const QString &name) {
    QStringList paths = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (QString &path : paths)
        path += u'/' + name;
    return paths;
}

/// Empty where nothing is registered.
QString entryInForce(const QStringList &places) {
    const auto found = std::find_if(places.begin(), places.end(), &isEntryFile);
    return found == places.end() ? QString() : *found;
}

std::optional<AutostartEntry> entryAt(const QString &path) {
    const auto text = readEntryFile(path);
    return text ? AutostartEntry::parse(*text) : std::nullopt;
}

QByteArrayList currentDesktops() {
    return qgetenv("XDG_CURRENT_DESKTOP").split(':');
}

} // namespace

AutostartLoginItem::AutostartLoginItem(const QString &name, QStringList command)
    : m_name(QStringLiteral("autostart/%1.desktop").arg(name)), m_command(std::move(command)) {}

LoginItem::Status AutostartLoginItem::status() const {
    const QString path = entryInForce(places(m_name));
    return path.isEmpty() ? Status::notRegistered : statusOf(path);
}

LoginItem::Status AutostartLoginItem::statusOf(const QString &path) const {
    const auto text = readEntryFile(path);
    if (text && text->trimmed().isEmpty())
        return Status::requiresApproval;
    const auto entry = text ? AutostartEntry::parse(*text) : std::nullopt;
    if (entry && entry->isSwitchedOff(currentDesktops()))
        return Status::requiresApproval;
    return entry && entry->starts(programName()) ? Status::enabled : Status::notFound;
}

std::optional<QString> AutostartLoginItem::registerItem() {
    if (status() == Status::enabled)
        return std::nullopt;
    const QStringList places = vantrel::places(m_name);
    AutostartEntry entry = entryAt(entryInForce(places)).value_or(AutostartEntry(m_command));
    entry.switchOn(currentDesktops());
    if (!entry.starts(programName()))
        entry.setCommand(m_command);
    return writeEntryFile(places.first(), entry.text());
}

std::optional<QString> AutostartLoginItem::unregisterItem() {
    const QStringList places = vantrel::places(m_name);
    if (entryInForce(places.mid(1)).isEmpty())
        return isEntryFile(places.first()) ? removeEntryFile(places.first()) : std::nullopt;
    // Without the user's entry the system's would count.
    if (status() == Status::requiresApproval)
        return std::nullopt;
    AutostartEntry entry = entryAt(entryInForce(places)).value_or(AutostartEntry(m_command));
    entry.switchOff();
    return writeEntryFile(places.first(), entry.text());
}

QString AutostartLoginItem::programName() const {
    return QFileInfo(m_command.first()).fileName();
}

} // namespace vantrel
