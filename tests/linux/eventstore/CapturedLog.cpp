#include "CapturedLog.h"

#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <mutex>

namespace vantrel::tests {

namespace {

std::mutex mutex;
std::vector<std::string> captured;
QtMessageHandler previous = nullptr;

void capture(QtMsgType, const QMessageLogContext &, const QString &message) {
    const std::lock_guard lock(mutex);
    captured.push_back(message.toStdString());
}

} // namespace

CapturedLog::CapturedLog() {
    clear();
    previous = qInstallMessageHandler(&capture);
}

CapturedLog::~CapturedLog() {
    qInstallMessageHandler(previous);
}

std::vector<std::string> CapturedLog::lines() const {
    const std::lock_guard lock(mutex);
    return captured;
}

std::string CapturedLog::text() const {
    std::string text;
    for (const std::string &line : lines())
        text += line + "\n";
    return text;
}

bool CapturedLog::has(const std::string &one, const std::string &other) const {
    const auto all = lines();
    return std::any_of(all.begin(), all.end(), [&](const std::string &line) {
        return line.find(one) != std::string::npos && line.find(other) != std::string::npos;
    });
}

void CapturedLog::clear() {
    const std::lock_guard lock(mutex);
    captured.clear();
}

} // namespace vantrel::tests
