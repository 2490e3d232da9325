#pragma once

#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

namespace orvelle {

/// What the program's ordinary windows look like: dark like the panel, in three levels of depth.
struct FormLook {
    static constexpr Color windowColor = Color::white(0.11);
    static constexpr Color groupColor = Color::white(0.16);
    static constexpr Color edgeColor = Color::white(1, 0.09);
    static constexpr Color controlColor = Color::white(0.27);
    static constexpr Color pressedColor = Color::white(0.34);
    static constexpr Color textColor = Color::white(1, 0.92);
    static constexpr Color secondaryColor = Color::white(1, 0.58);
    static constexpr Color tertiaryColor = Color::white(1, 0.36);
    static constexpr Color knobColor = Color::white(0.96);
    static constexpr Color dangerColor = colors::red;
    static constexpr double textSize = 13; ///< points
    static constexpr double noteSize = 11;
    static constexpr double cornerRadius = 6;
};

/// The look of ordinary windows, for QML.
class FormStyle : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    ORVELLE_CONSTANT(QColor, windowColor, FormLook)
    ORVELLE_CONSTANT(QColor, groupColor, FormLook)
    ORVELLE_CONSTANT(QColor, edgeColor, FormLook)
    ORVELLE_CONSTANT(QColor, controlColor, FormLook)
    ORVELLE_CONSTANT(QColor, pressedColor, FormLook)
    ORVELLE_CONSTANT(QColor, textColor, FormLook)
    ORVELLE_CONSTANT(QColor, secondaryColor, FormLook)
    ORVELLE_CONSTANT(QColor, tertiaryColor, FormLook)
    ORVELLE_CONSTANT(QColor, knobColor, FormLook)
    ORVELLE_CONSTANT(QColor, dangerColor, FormLook)
    ORVELLE_CONSTANT(double, textSize, FormLook)
    ORVELLE_CONSTANT(double, noteSize, FormLook)
    ORVELLE_CONSTANT(double, cornerRadius, FormLook)
};

} // namespace orvelle
