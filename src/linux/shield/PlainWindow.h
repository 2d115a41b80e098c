#pragma once

#include <QRasterWindow>

namespace vantrel {

/// A panel's window for when its content cannot be made: black, with the title in white. It needs
/// neither QML nor a module of it.
class PlainWindow : public QRasterWindow {
public:
    explicit PlainWindow(QString title);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_title;
};

} // namespace vantrel
