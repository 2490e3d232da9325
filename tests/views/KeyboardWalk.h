#pragma once

#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <string>
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
    /// Where Tab leads, or another key, from the present place once round; the last may be a trap.
    std::vector<QQuickItem*> round(int key = Qt::Key_Tab);

    /// What is wrong with the keyboard's way through all that assistive programs are told of in
    /// the window: a control or a list that Tab does not lead to, a row that no arrow leads to, a
    /// way that is not that of the eye, a place where the keyboard is not seen or does not go back
    /// from.
    std::vector<std::string> faults();
    /// The names, as objects, of the buttons that can be pressed.
    QStringList buttons();
    /// Once, and by the keyboard that came there by Tab.
    bool isPressedBy(int key, QQuickItem* button);

private:
    void checkRound(const std::vector<QQuickItem*>& stops, std::vector<std::string>& found);
    void checkRows(QQuickItem* stop, const std::vector<QQuickItem*>& stops,
                   std::vector<std::string>& found);

    QQuickWindow& window_;
};

} // namespace orvelle
