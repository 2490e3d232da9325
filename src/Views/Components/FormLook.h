#pragma once

#include "Views/Components/TextStyle.h"

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
    static constexpr Color hoverColor = Color::white(1, 0.05);
    static constexpr Color wellColor = Color::white(0.09); ///< what is sunk into a group
    static constexpr Color popupColor = Color::white(0.2);
    static constexpr Color shadowColor = Color::white(0, 0.3);
    static constexpr Color knobColor = Color::white(0.96);
    static constexpr Color dangerColor = colors::red;
    static constexpr Color selectedColor = Color::white(1, 0.1); ///< behind what is chosen
    static constexpr double textSize = 13;                       ///< points
    static constexpr double noteSize = 11;
    static constexpr double listTextSize = 12; ///< of a row that can be dragged
    static constexpr double cornerRadius = 6;
    static constexpr double groupRadius = 10;
    static constexpr double swatchDiameter = 18; ///< of the preview of a colour
    static constexpr TextStyle fieldText{12, FontWeight::regular, textColor};
};

} // namespace orvelle
