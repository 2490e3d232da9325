#pragma once

#include "Extensions/ColorTheme.h"
#include "Extensions/ViewModifiers.h"
#include "Features/Clipboard/ClipboardHistoryView.h"
#include "Views/Components/RowFit.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Face.h"
#include "Views/Qt/Values.h"

namespace orvelle {

/// What menus, help, focus rings, scroll marks, controls under the pointer and selected texts look
/// like, beside what the core's components fix.
struct PopupStyle {
    static constexpr Color fillColor = notchSurface;
    static constexpr Color edgeColor = Color::white(1, 0.14);
    static constexpr Color highlightColor = Color::white(1, 0.14);
    static constexpr Color textColor = Color::white(1, 0.9);
    static constexpr Color destructiveColor = colors::red;
    static constexpr Color focusColor = Color::white(1, 0.45);
    static constexpr Color hoverColor = Color::white(1, 0.1);
    static constexpr Color pressedColor = Color::white(1, 0.2);
    static constexpr Color scrollMarkColor = Color::white(1, 0.45);
    static constexpr Color selectionColor = colors::blue.withAlpha(0.55);
};

struct ClickTarget {
    static constexpr double smallestTarget = 24; ///< points, where there is room for it
};

struct FieldLimit {
    static constexpr int longestInput = 4000; ///< characters; a longer line is slow to type in
};

/// The box of a panel's field: all are like the clipboard's.
struct FieldBoxStyle {
    static constexpr double fieldPadding = ClipboardHistoryView::searchPadding;
    static constexpr double fieldRadius = ClipboardHistoryView::searchCornerRadius;
    static constexpr Color fieldGround = ClipboardHistoryView::searchBackground;
};

/// The constants and small rules of the shared components, for QML.
class Style : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    ORVELLE_CONSTANT(QColor, trackColor, AnimatedSlider)
    ORVELLE_CONSTANT(QColor, thumbColor, AnimatedSlider)
    ORVELLE_CONSTANT(QColor, thumbShadowColor, AnimatedSlider)
    ORVELLE_CONSTANT(QColor, fillColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, edgeColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, highlightColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, textColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, destructiveColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, focusColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, hoverColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, pressedColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, scrollMarkColor, PopupStyle)
    ORVELLE_CONSTANT(QColor, selectionColor, PopupStyle)
    ORVELLE_CONSTANT(double, fieldPadding, FieldBoxStyle)
    ORVELLE_CONSTANT(double, fieldRadius, FieldBoxStyle)
    ORVELLE_CONSTANT(QColor, fieldGround, FieldBoxStyle)
    ORVELLE_CONSTANT(double, smallestTarget, ClickTarget)
    ORVELLE_CONSTANT(int, longestInput, FieldLimit)
    Q_PROPERTY(QColor dividerColor READ dividerColor CONSTANT FINAL)
    Q_PROPERTY(QString monospacedFamily READ monospacedFamily CONSTANT FINAL)
    Q_PROPERTY(double dividerThickness READ dividerThickness CONSTANT FINAL)
    Q_PROPERTY(double fillResponse READ fillResponse CONSTANT FINAL)
    Q_PROPERTY(double fillDampingFraction READ fillDampingFraction CONSTANT FINAL)
    Q_PROPERTY(double thumbResponse READ thumbResponse CONSTANT FINAL)
    Q_PROPERTY(double thumbDampingFraction READ thumbDampingFraction CONSTANT FINAL)
    Q_PROPERTY(double fadeInResponse READ fadeInResponse CONSTANT FINAL)
    Q_PROPERTY(double fadeInDampingFraction READ fadeInDampingFraction CONSTANT FINAL)

public:
    QColor dividerColor() const { return toQt(Divider::color); }
    QString monospacedFamily() const {
        static const QString family = orvelle::monospacedFamily();
        return family;
    }
    double dividerThickness() const { return Divider::thickness; }
    double fillResponse() const { return AnimatedSlider::fillSpring.response; }
    double fillDampingFraction() const { return AnimatedSlider::fillSpring.dampingFraction; }
    double thumbResponse() const { return AnimatedSlider::thumbSpring.response; }
    double thumbDampingFraction() const { return AnimatedSlider::thumbSpring.dampingFraction; }
    double fadeInResponse() const { return FadeInModifier::spring.response; }
    double fadeInDampingFraction() const { return FadeInModifier::spring.dampingFraction; }

    Q_INVOKABLE QColor mixed(const QColor& one, const QColor& other, double amount) const {
        const auto color = [](const QColor& from) {
            return Color{from.redF(), from.greenF(), from.blueF(), from.alphaF()};
        };
        return toQt(color(one).mixed(color(other), amount));
    }
    Q_INVOKABLE double thumbScale(bool isDragging) const {
        return AnimatedSlider::thumbScale(isDragging);
    }
    Q_INVOKABLE double fadeInOpacity(double presence) const {
        return FadeInModifier::opacity(presence);
    }
    Q_INVOKABLE double fadeInOffset(double presence) const {
        return FadeInModifier::offset(presence);
    }
    /// Takes maps with `fixed`, `texts` and `title`; gives one with `texts` and `titleCap`.
    Q_INVOKABLE QVariantMap fittedRow(const QVariantList& parts, double gap, double room) const {
        std::vector<RowPart> row;
        for (const auto& part : parts) {
            const auto map = part.toMap();
            RowPart made;
            made.fixed = map[QStringLiteral("fixed")].toDouble();
            made.title = map[QStringLiteral("title")].toDouble();
            for (const auto& text : map[QStringLiteral("texts")].toList())
                made.texts.push_back(text.toDouble());
            row.push_back(std::move(made));
        }
        const auto fitted = orvelle::fittedRow(row, gap, room);
        return {{QStringLiteral("texts"),
                 QVariant::fromValue(QList<int>(fitted.texts.begin(), fitted.texts.end()))},
                {QStringLiteral("titleCap"), fitted.titleCap}};
    }
};

} // namespace orvelle
