#include "Views/Qt/MenuWindow.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

#include <algorithm>

namespace orvelle {

MenuWindow::MenuWindow(QWindow* parent) : QQuickWindow(parent) {
    setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
             Qt::NoDropShadowWindowHint);
    setColor(Qt::transparent);
}

void MenuWindow::openAt(QPointF position) {
    const auto* on = QGuiApplication::screenAt(position.toPoint());
    const QRect bounds = (on ? on : screen())->availableGeometry();
    setPosition(std::clamp(qRound(position.x()), bounds.left(),
                           std::max(bounds.left(), bounds.right() + 1 - width())),
                std::clamp(qRound(position.y()), bounds.top(),
                           std::max(bounds.top(), bounds.bottom() + 1 - height())));
    show();
}

void MenuWindow::dismiss() {
    if (!isVisible())
        return;
    setGrabs(false);
    hide();
    Q_EMIT dismissed();
}

void MenuWindow::setGrabs(bool grabbed) {
    setMouseGrabEnabled(grabbed);
    setKeyboardGrabEnabled(grabbed);
}

void MenuWindow::exposeEvent(QExposeEvent* event) {
    QQuickWindow::exposeEvent(event);
    // A window that is not yet on the screen cannot take them.
    if (isExposed())
        setGrabs(true);
}

void MenuWindow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        return dismiss();
    case Qt::Key_Up:
        return stepped(-1);
    case Qt::Key_Down:
        return stepped(1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return confirmed();
    default:
        QQuickWindow::keyPressEvent(event);
    }
}

void MenuWindow::mousePressEvent(QMouseEvent* event) {
    if (QRectF(QPointF(), QSizeF(size())).contains(event->position()))
        QQuickWindow::mousePressEvent(event);
    else
        dismiss();
}

} // namespace orvelle
