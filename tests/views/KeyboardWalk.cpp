#include "views/KeyboardWalk.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QSignalSpy>

#include <algorithm>
#include <set>

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

QAccessibleInterface* told(QObject* item) {
    return QAccessible::queryAccessibleInterface(item);
}

QQuickItem* itemOf(QAccessibleInterface* interface) {
    return qobject_cast<QQuickItem*>(interface->object());
}

std::string describe(QQuickItem* item) {
    if (!item)
        return "nothing";
    return std::string(item->metaObject()->className()) + " " + item->objectName().toStdString() +
           " '" + KeyboardWalk::name(item).toStdString() + "'";
}

/// All that is shown and can be used, parents first.
void collect(QAccessibleInterface* top, std::vector<QAccessibleInterface*>& found) {
    const auto* item = itemOf(top);
    if (item && (!item->isVisible() || !item->isEnabled()))
        return;
    found.push_back(top);
    for (int index = 0; index < top->childCount(); ++index)
        if (auto* child = top->child(index))
            collect(child, found);
}

std::vector<QAccessibleInterface*> allTold(QObject* top) {
    std::vector<QAccessibleInterface*> found;
    collect(told(top), found);
    return found;
}

bool isControl(QAccessibleInterface* interface) {
    switch (interface->role()) {
    case QAccessible::Button:
    case QAccessible::EditableText:
    case QAccessible::Slider:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::List:
    case QAccessible::PageTabList:
        return true;
    default:
        return false;
    }
}

/// The buttons of these rows do what Space and Delete do on the row itself.
bool isDoneByRow(QAccessibleInterface* interface) {
    static const QStringList names{QStringLiteral("rowButton"), QStringLiteral("copyButton"),
                                   QStringLiteral("deleteButton")};
    return interface->parent() && interface->parent()->role() == QAccessible::ListItem &&
           names.contains(interface->object()->objectName());
}

bool isWithin(QQuickItem* item, QQuickItem* ancestor) {
    while (item && item != ancestor)
        item = item->parentItem();
    return item;
}

/// Whether the eye that reads line by line comes to `next` after `first`.
bool isInOrder(const QRectF& first, const QRectF& next) {
    const double shared =
        std::min(first.bottom(), next.bottom()) - std::max(first.top(), next.top());
    if (shared > std::min(first.height(), next.height()) / 2)
        return next.left() >= first.left();
    return next.center().y() >= first.center().y();
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

std::vector<QQuickItem*> KeyboardWalk::round(int key) {
    std::vector<QQuickItem*> stops;
    for (int step = 0; step < longestWalk; ++step) {
        press(key);
        auto* at = window_.activeFocusItem();
        if (std::ranges::count(stops, at) > 0)
            break;
        stops.push_back(at);
    }
    return stops;
}

std::vector<std::string> KeyboardWalk::faults() {
    std::vector<std::string> found;
    const auto stops = round();
    checkRound(stops, found);
    for (auto* interface : allTold(&window_)) {
        auto* item = itemOf(interface);
        if (!item || !isControl(interface) || isDoneByRow(interface))
            continue;
        if (std::ranges::none_of(stops, [&](auto* stop) { return isWithin(stop, item); }))
            found.push_back("Tab does not lead to " + describe(item));
    }
    for (auto* stop : stops) {
        if (!stop || !leadsTo(stop)) {
            found.push_back("Tab does not lead back to " + describe(stop));
            continue;
        }
        if (!canBeSeenOn(stop))
            found.push_back("the keyboard is not seen on " + describe(stop));
        checkRows(stop, stops, found);
    }
    return found;
}

void KeyboardWalk::checkRound(const std::vector<QQuickItem*>& stops,
                              std::vector<std::string>& found) {
    press(Qt::Key_Tab);
    if (window_.activeFocusItem() != stops[1 % stops.size()])
        found.push_back("Tab is caught at " + describe(window_.activeFocusItem()));
    press(Qt::Key_Backtab);
    auto back = round(Qt::Key_Backtab);
    std::ranges::reverse(back);
    if (back != stops)
        found.push_back("Shift and Tab do not lead back the same way");

    const auto frame = [](QQuickItem* item) { return item->mapRectToScene(item->boundingRect()); };
    int jumps = 0; // one of them is from the last back to the first
    std::string last;
    for (std::size_t index = 0; index < stops.size(); ++index) {
        auto* next = stops[(index + 1) % stops.size()];
        if (isInOrder(frame(stops[index]), frame(next)))
            continue;
        ++jumps;
        last = describe(stops[index]) + " to " + describe(next);
    }
    if (jumps > 1)
        found.push_back("Tab jumps back from " + last);
}

/// Of the list that has this stop: every row has the keyboard in its turn, by Tab or by arrows.
void KeyboardWalk::checkRows(QQuickItem* stop, const std::vector<QQuickItem*>& stops,
                             std::vector<std::string>& found) {
    auto* known = told(stop);
    if (known && isControl(known) && known->role() != QAccessible::List)
        return; // in a row, with arrows of its own
    const auto all = allTold(&window_);
    const auto list = std::ranges::find_if(all, [&](auto* interface) {
        return interface->role() == QAccessible::List && isWithin(stop, itemOf(interface));
    });
    if (list == all.end()) {
        if (!known)
            found.push_back("nobody is told of " + describe(stop));
        return;
    }
    std::set<QQuickItem*> rows;
    std::set<QQuickItem*> reached;
    for (auto* interface : allTold((*list)->object()))
        if (interface->role() == QAccessible::ListItem)
            rows.insert(itemOf(interface));
    for (auto* row : rows)
        if (std::ranges::any_of(stops, [&](auto* other) { return isWithin(other, row); }))
            reached.insert(row);
    const auto look = [&] {
        for (auto* row : rows)
            if (told(row)->state().focused || isWithin(window_.activeFocusItem(), row))
                reached.insert(row);
    };
    look();
    for (const int arrow : {Qt::Key_Down, Qt::Key_Right})
        for (std::size_t step = 0; step < rows.size(); ++step) {
            press(arrow);
            look();
        }
    for (auto* row : rows)
        if (!reached.contains(row))
            found.push_back("no arrow leads to " + describe(row));
    leadsTo(stop);
}

QStringList KeyboardWalk::buttons() {
    QStringList names;
    for (auto* interface : allTold(&window_))
        if (interface->role() == QAccessible::Button && itemOf(interface) &&
            !isDoneByRow(interface))
            names.append(interface->object()->objectName());
    return names;
}

bool KeyboardWalk::isPressedBy(int key, QQuickItem* button) {
    const auto* meta = button->metaObject();
    for (int index = meta->methodCount() - 1; index >= 0; --index) {
        if (meta->method(index).name() != "clicked")
            continue;
        const QSignalSpy clicks(button, meta->method(index));
        return leadsTo(button) && (press(key), clicks.count() == 1);
    }
    return false;
}

} // namespace orvelle
