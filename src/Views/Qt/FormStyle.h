#pragma once

#include "Views/Components/FormLook.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

namespace orvelle {

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
    ORVELLE_CONSTANT(QColor, hoverColor, FormLook)
    ORVELLE_CONSTANT(QColor, wellColor, FormLook)
    ORVELLE_CONSTANT(QColor, popupColor, FormLook)
    ORVELLE_CONSTANT(QColor, shadowColor, FormLook)
    ORVELLE_CONSTANT(QColor, knobColor, FormLook)
    ORVELLE_CONSTANT(QColor, dangerColor, FormLook)
    ORVELLE_CONSTANT(QColor, selectedColor, FormLook)
    ORVELLE_CONSTANT(double, textSize, FormLook)
    ORVELLE_CONSTANT(double, noteSize, FormLook)
    ORVELLE_CONSTANT(double, cornerRadius, FormLook)
    ORVELLE_CONSTANT(double, groupRadius, FormLook)
    ORVELLE_CONSTANT(double, swatchDiameter, FormLook)
    ORVELLE_CONSTANT(orvelle::TextValue, fieldText, FormLook)
};

} // namespace orvelle
