#pragma once

#include <QLoggingCategory>

namespace vantrel {

/// The application's id: its desktop entry, its bus name and the subsystem of its log.
inline constexpr char applicationId[] = "org.vantrel.Vantrel";

} // namespace vantrel

/// Defines a logging category of the application's subsystem: `VANTREL_LOG(rescueLog, "RescueLog")`
/// gives `rescueLog()` for use with qCInfo, qCWarning and qCCritical, under the name
/// "org.vantrel.Vantrel.RescueLog". Texts that come from a calendar are not logged.
#define VANTREL_LOG(function, category)                                                            \
    Q_LOGGING_CATEGORY(function, "org.vantrel.Vantrel." category, QtInfoMsg)
