#pragma once

#include "EventComponent.h"

#include <platform/EventStore.h>

#include <QByteArrayView>
#include <QString>
#include <QStringList>

namespace vantrel {

/// A TEXT value without its escapes (RFC 5545, section 3.3.11). Bytes that are no UTF-8 are taken
/// as Latin-1; control characters other than tab and line feed are dropped.
[[nodiscard]] QString textValue(QByteArrayView value);

/// The event that the component tells of, with neither its times nor its calendar and identifier.
/// An attendee with one of the `addresses` (lower case, without "mailto:") is the current user.
[[nodiscard]] StoreEvent eventOf(const EventComponent &component, const QStringList &addresses);

} // namespace vantrel
