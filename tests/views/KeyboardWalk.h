#pragma once

#include <QQuickItem>
#include <QQuickWindow>

#include <vector>

namespace orvelle {

/// The keyboard in a window of the program's, led by keys alone.
class KeyboardWalk {
public:
    explicit KeyboardWalk(QQuickWindow& window) : window_(window) {}

    /// What Tab has to lead to, of what is shown below `top`.
    static std::vector<QQuickItem*> controlsBelow(QQuickItem* top);
    /// What a screen reader calls it.
    static QString name(QQuickItem* control);

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// By Tab alone, or by another key; false when that goes round without coming there.
    bool leadsTo(QQuickItem* control, int key = Qt::Key_Tab);
    /// Whether the window looks different with the keyboard on this control, which has it.
    bool canBeSeenOn(QQuickItem* control);

private:
    QQuickWindow& window_;
};

} // namespace orvelle
