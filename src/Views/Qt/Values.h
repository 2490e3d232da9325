#pragma once

#include "Foundation/Color.h"
#include "Foundation/Geometry.h"
#include "Foundation/Image.h"
#include "Models/NotchState.h"
#include "Views/Components/AnimatedSlider.h"
#include "Views/Components/FilePlaceholder.h"
#include "Views/Components/GlassBackground.h"
#include "Views/Components/NotchShape.h"
#include "Views/Components/ProgressSpinner.h"
#include "Views/Components/Stroke.h"
#include "Views/Components/SwipeAction.h"
#include "Views/Components/TextStyle.h"

#include <QColor>
#include <QImage>
#include <QObject>
#include <QSizeF>
#include <QString>
#include <QVariant>

#include <optional>
#include <string_view>

// The core's records as QML sees them.
namespace orvelle {

struct TextValue {
    Q_GADGET
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(double size MEMBER size)
    Q_PROPERTY(int weight MEMBER weight)
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(bool isMonospaced MEMBER isMonospaced)

public:
    QString text;
    double size = 0;
    int weight = 0; ///< on Qt's scale
    QColor color;
    bool isMonospaced = false;
    bool operator==(const TextValue&) const = default;
};

struct SymbolValue {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(double size MEMBER size)
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(int weight MEMBER weight)
    Q_PROPERTY(bool isHierarchical MEMBER isHierarchical)

public:
    QString name;
    double size = 0;
    QColor color;
    int weight = 0; ///< on Qt's scale
    bool isHierarchical = false;
    bool operator==(const SymbolValue&) const = default;
};

struct StrokeValue {
    Q_GADGET
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(double lineWidth MEMBER lineWidth)

public:
    QColor color = Qt::transparent;
    double lineWidth = 0; ///< 0 draws nothing
    double miterLimit = 0;
    bool operator==(const StrokeValue&) const = default;
};

struct ShapeValue {
    Q_GADGET
    Q_PROPERTY(double bottomCornerRadius READ bottomCornerRadius)
    Q_PROPERTY(double topFlare READ topFlare)
    Q_PROPERTY(double bodyInset READ bodyInset)

public:
    NotchShape shape;
    double bottomCornerRadius() const { return shape.bottomCornerRadius; }
    double topFlare() const { return shape.topFlare; }
    double bodyInset() const { return shape.bodyInset; }
    bool operator==(const ShapeValue&) const = default;
};

struct CardValue {
    Q_GADGET
    Q_PROPERTY(double cornerRadius MEMBER cornerRadius)
    Q_PROPERTY(QColor fill MEMBER fill)
    Q_PROPERTY(orvelle::StrokeValue border MEMBER border)

public:
    double cornerRadius = 0;
    QColor fill;
    StrokeValue border;
    bool operator==(const CardValue&) const = default;
};

struct SliderValue {
    Q_GADGET
    Q_PROPERTY(double value READ value)
    Q_PROPERTY(double fraction READ fraction)
    Q_PROPERTY(QString levelText READ levelText)
    Q_PROPERTY(double lowerBound READ lowerBound)
    Q_PROPERTY(double upperBound READ upperBound)
    Q_PROPERTY(QColor tintColor READ tintColor)
    Q_PROPERTY(double height READ height)
    Q_PROPERTY(bool showThumb READ showThumb)
    Q_PROPERTY(double thumbDiameter READ thumbDiameter)

public:
    AnimatedSlider slider;
    double value() const { return slider.value; }
    double fraction() const { return slider.fraction(); }
    QString levelText() const;
    double lowerBound() const { return slider.lowerBound; }
    double upperBound() const { return slider.upperBound; }
    QColor tintColor() const;
    double height() const { return slider.height; }
    bool showThumb() const { return slider.showThumb; }
    double thumbDiameter() const { return slider.thumbDiameter(); }
    Q_INVOKABLE double thumbOffset(double width) const { return slider.thumbOffset(width); }
    Q_INVOKABLE double valueAt(double x, double width) const { return slider.valueAt(x, width); }
    bool operator==(const SliderValue&) const = default;
};

struct PlaceholderValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::TextValue title MEMBER title)
    Q_PROPERTY(double spacing READ spacing)

public:
    SymbolValue symbol;
    TextValue title;
    double spacing() const { return FilePlaceholder::spacing; }
    bool operator==(const PlaceholderValue&) const = default;
};

struct SwipeActionValue {
    Q_GADGET
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QColor tint MEMBER tint)
    Q_PROPERTY(double width READ width)
    Q_PROPERTY(double fullSwipe READ fullSwipe)
    Q_PROPERTY(double labelSize READ labelSize)
    Q_PROPERTY(double symbolSize READ symbolSize)

public:
    QString label;
    QString symbol;
    QColor tint;
    double width() const { return SwipeAction::width; }
    double fullSwipe() const { return SwipeAction::fullSwipe; }
    double labelSize() const { return SwipeAction::labelSize; }
    double symbolSize() const { return SwipeAction::symbolSize; }
    bool operator==(const SwipeActionValue&) const = default;
};

struct SpinnerValue {
    Q_GADGET
    Q_PROPERTY(double size READ size)
    Q_PROPERTY(double frame READ frame)

public:
    ProgressSpinner spinner;
    double size() const { return spinner.scale * ProgressSpinner::diameter; }
    double frame() const { return spinner.frame; }
    bool operator==(const SpinnerValue&) const = default;
};

template <class T>
T toQt(const T& value) {
    return value;
}
/// Every text that is shown passes here, and is cut to what can be seen of it.
QString toQt(std::string_view text);
QColor toQt(const Color& color);
QSizeF toQt(const Size& size);
TextValue toQt(const StyledText& text);
/// A style without a text, for what the user types.
TextValue toQt(const TextStyle& style);
SymbolValue toQt(const StyledSymbol& symbol);
StrokeValue toQt(const Stroke& stroke);
ShapeValue toQt(const NotchShape& shape);
CardValue toQt(const GlassBackground& card);
SliderValue toQt(const AnimatedSlider& slider);
PlaceholderValue toQt(const FilePlaceholder& placeholder);
SwipeActionValue toQt(const SwipeAction& action);
SpinnerValue toQt(const ProgressSpinner& spinner);

/// An absent value is `undefined` in QML.
template <class T>
QVariant toQt(const std::optional<T>& value) {
    return value ? QVariant::fromValue(toQt(*value)) : QVariant();
}

/// Shares the pixels; null when there are none.
QImage sharedImage(const Image& image);

/// Panels travel by their raw value.
QString toQt(ActivePanel panel);

} // namespace orvelle
