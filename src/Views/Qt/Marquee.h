#pragma once

#include "Features/Media/MarqueeText.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

namespace orvelle {

/// How running texts run, for QML.
class Marquee : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int restartDelay READ restartDelay CONSTANT FINAL)
    Q_PROPERTY(bool isHeld READ isHeld CONSTANT FINAL)
    ORVELLE_CONSTANT(double, fadeWidth, MarqueeText)
    ORVELLE_CONSTANT(QColor, fadeColor, MarqueeText)

public:
    /// Milliseconds.
    int restartDelay() const { return qRound(MarqueeText::restartDelay * 1000); }

    /// No text runs while this holds, for pictures: one that ran would look different in each.
    static inline bool holdsAll = false;
    bool isHeld() const { return holdsAll; }

    Q_INVOKABLE bool scrolls(double textWidth, double containerWidth) const {
        return MarqueeText::scrolls(textWidth, containerWidth);
    }
    Q_INVOKABLE double travel(double textWidth) const { return MarqueeText::travel(textWidth); }
    /// Milliseconds.
    Q_INVOKABLE int duration(double textWidth) const {
        return qRound(MarqueeText::duration(textWidth) * 1000);
    }
};

} // namespace orvelle
