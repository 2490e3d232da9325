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

public:
    /// Milliseconds.
    int restartDelay() const { return qRound(MarqueeText::restartDelay * 1000); }

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
