#include "JoinTarget.h"

namespace vantrel {

QString rawValue(JoinTarget target) {
    switch (target) {
    case JoinTarget::appWhenInstalled:
        return QStringLiteral("appWhenInstalled");
    case JoinTarget::defaultBrowser:
        return QStringLiteral("defaultBrowser");
    }
    Q_UNREACHABLE();
}

std::optional<JoinTarget> joinTargetFromRawValue(const QString &name) {
    for (const JoinTarget target : allJoinTargets) {
        if (rawValue(target) == name)
            return target;
    }
    return std::nullopt;
}

QString label(JoinTarget target) {
    switch (target) {
    case JoinTarget::appWhenInstalled:
        return QStringLiteral("App (when installed)");
    case JoinTarget::defaultBrowser:
        return QStringLiteral("Default browser");
    }
    Q_UNREACHABLE();
}

} // namespace vantrel
