#pragma once

#include <QQuickWindow>

namespace orvelle {

/// A menu's window. It stands above the panel and is not bound to its edges. While it is open it
/// has pointer and keyboard to itself; a press beside it or Escape closes it.
class MenuWindow : public QQuickWindow {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit MenuWindow(QWindow* parent = nullptr);

    /// Opens with its upper left corner at this point of the screen, or as near as the screen lets.
    Q_INVOKABLE void openAt(QPointF position);
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void dismissed();
    /// -1 is up, 1 is down.
    void stepped(int direction);
    void confirmed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;

private:
    void setGrabs(bool grabbed);
};

} // namespace orvelle
