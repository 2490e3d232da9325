#include "Views/Qt/Values.h"

#include "Foundation/Text.h"

#include <QFont>

namespace orvelle {

namespace {

int qtWeight(FontWeight weight) {
    switch (weight) {
    case FontWeight::ultraLight:
        return QFont::Thin;
    case FontWeight::thin:
        return QFont::ExtraLight;
    case FontWeight::light:
        return QFont::Light;
    case FontWeight::regular:
        break;
    case FontWeight::medium:
        return QFont::Medium;
    case FontWeight::semibold:
        return QFont::DemiBold;
    case FontWeight::bold:
        return QFont::Bold;
    }
    return QFont::Normal;
}

} // namespace

QColor SliderValue::tintColor() const {
    return toQt(slider.tintColor);
}

QString SliderValue::levelText() const {
    return toQt(std::string_view(slider.levelText()));
}

QString toQt(std::string_view text) {
    const auto shown = Text::displayable(text);
    auto converted = QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
    if (shown.size() < text.size())
        converted += QChar(0x2026); // an ellipsis
    return converted;
}

QColor toQt(const Color& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

QSizeF toQt(const Size& size) {
    return {size.width, size.height};
}

TextValue toQt(const StyledText& text) {
    return {toQt(std::string_view(text.text)), text.style.size, qtWeight(text.style.weight),
            toQt(text.style.color), text.style.design == FontDesign::monospaced};
}

TextValue toQt(const TextStyle& style) {
    return toQt(StyledText{{}, style});
}

SymbolValue toQt(const StyledSymbol& symbol) {
    return {toQt(symbol.name), symbol.size, toQt(symbol.color), qtWeight(symbol.weight),
            symbol.mode == SymbolMode::hierarchical};
}

StrokeValue toQt(const Stroke& stroke) {
    return {toQt(stroke.color), stroke.lineWidth, stroke.miterLimit};
}

ShapeValue toQt(const NotchShape& shape) {
    return {shape};
}

CardValue toQt(const GlassBackground& card) {
    const auto border = card.border();
    return {card.cornerRadius, toQt(GlassBackground::fill), border ? toQt(*border) : StrokeValue{}};
}

SliderValue toQt(const AnimatedSlider& slider) {
    return {slider};
}

PlaceholderValue toQt(const FilePlaceholder& placeholder) {
    return {toQt(placeholder.symbol), toQt(placeholder.title)};
}

SwipeActionValue toQt(const SwipeAction& action) {
    return {orvelle::toQt(action.label), orvelle::toQt(action.symbol), orvelle::toQt(action.tint)};
}

SpinnerValue toQt(const ProgressSpinner& spinner) {
    return {spinner};
}

QImage sharedImage(const Image& image) {
    if (!image.pixels())
        return {};
    return QImage(
        image.pixels(), image.width(), image.height(), image.width() * 4, QImage::Format_RGBA8888,
        [](void* owner) { delete static_cast<Image*>(owner); }, new Image(image));
}

QString toQt(ActivePanel panel) {
    return toQt(rawValue(panel));
}

} // namespace orvelle
