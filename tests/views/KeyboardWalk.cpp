#include "views/KeyboardWalk.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>

namespace orvelle {

namespace {

constexpr int longestWalk = 100;

void turn() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

void collectControls(QQuickItem* top, std::vector<QQuickItem*>& controls) {
    if (!top->isVisible() || !top->isEnabled())
        return;
    if (top->activeFocusOnTab() && !top->isFocusScope())
        controls.push_back(top);
    for (auto* child : top->childItems())
        collectControls(child, controls);
}

} // namespace

std::vector<QQuickItem*> KeyboardWalk::controlsBelow(QQuickItem* top) {
    std::vector<QQuickItem*> controls;
    collectControls(top, controls);
    return controls;
}

QString KeyboardWalk::name(QQuickItem* control) {
    auto* interface = QAccessible::queryAccessibleInterface(control);
    return interface ? interface->text(QAccessible::Name) : QString();
}

void KeyboardWalk::press(int key, Qt::KeyboardModifiers modifiers) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers);
        QCoreApplication::sendEvent(&window_, &event);
    }
    turn();
}

bool KeyboardWalk::leadsTo(QQuickItem* control, int key) {
    for (int step = 0; step < longestWalk && window_.activeFocusItem() != control; ++step)
        press(key);
    return window_.activeFocusItem() == control;
}

bool KeyboardWalk::canBeSeenOn(QQuickItem* control) {
    const auto with = window_.grabWindow();
    QQuickItem elsewhere(window_.contentItem());
    elsewhere.setActiveFocusOnTab(true);
    elsewhere.forceActiveFocus();
    turn();
    const auto without = window_.grabWindow();
    control->forceActiveFocus(Qt::TabFocusReason);
    turn();
    return with != without;
}

} // namespace orvelle
