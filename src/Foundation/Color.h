#pragma once

namespace orvelle {

/// An sRGB colour, components 0 to 1, not premultiplied.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const Color&) const = default;

    static constexpr Color white(double level, double alpha = 1) {
        return {level, level, level, alpha};
    }
    /// Hue, saturation and brightness 0 to 1; a hue of 1 is the hue 0 again.
    static Color hsb(double hue, double saturation, double brightness, double alpha = 1);

    /// The colour that is `amount` (0 to 1, and no further) of the way to another one. What is
    /// transparent lends no hue.
    Color mixed(const Color& other, double amount) const;

    constexpr Color withAlpha(double value) const { return {red, green, blue, value}; }
};

/// The palette that states and figures are coloured with, tuned for a black ground.
namespace colors {
inline constexpr Color clear{0, 0, 0, 0};
inline constexpr Color black{0, 0, 0, 1};
inline constexpr Color white{1, 1, 1, 1};
inline constexpr Color gray{0.557, 0.557, 0.576, 1};
inline constexpr Color red{1, 0.271, 0.227, 1};
inline constexpr Color orange{1, 0.624, 0.039, 1};
inline constexpr Color yellow{1, 0.839, 0.039, 1};
inline constexpr Color green{0.196, 0.843, 0.294, 1};
inline constexpr Color mint{0.388, 0.902, 0.886, 1};
inline constexpr Color cyan{0.392, 0.824, 1, 1};
inline constexpr Color blue{0.039, 0.518, 1, 1};
inline constexpr Color pink{1, 0.216, 0.373, 1};
} // namespace colors

} // namespace orvelle
