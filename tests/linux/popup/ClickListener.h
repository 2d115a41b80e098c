#pragma once

#include <QObject>

#include <functional>

namespace vantrel::tests {

/// What the content calls from within a click.
class ClickListener : public QObject {
    Q_OBJECT

public:
    std::function<void()> action;

    Q_INVOKABLE void hear() {
        if (action)
            action();
    }
};

} // namespace vantrel::tests
