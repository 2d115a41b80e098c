#pragma once

#include <QString>
#include <QtGlobal>

#include <vector>

namespace vantrel::fakes {

/// Takes what the program logs, instead of the terminal, for as long as it lives. One at a time.
class CapturedLog {
public:
    struct Line {
        QtMsgType type;
        QString category;
        QString text;
    };

    CapturedLog() {
        lines().clear();
        m_previous = qInstallMessageHandler(&CapturedLog::take);
    }
    ~CapturedLog() { qInstallMessageHandler(m_previous); }
    CapturedLog(const CapturedLog &) = delete;
    CapturedLog &operator=(const CapturedLog &) = delete;

    [[nodiscard]] static std::vector<Line> &lines() {
        static std::vector<Line> lines;
        return lines;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext &context, const QString &text) {
        lines().push_back({type, QString::fromUtf8(context.category), text});
    }

    QtMessageHandler m_previous = nullptr;
};

} // namespace vantrel::fakes
