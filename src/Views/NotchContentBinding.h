#pragma once

#include "Views/NotchCollapsedView.h"
#include "Views/NotchContentView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <QUrl>

#include <optional>

namespace orvelle {

struct TabValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(bool isActive MEMBER isActive)
    Q_PROPERTY(QColor background MEMBER background)

public:
    QString id; ///< the panel's raw value
    QString label;
    SymbolValue symbol;
    bool isActive = false;
    QColor background;
    bool operator==(const TabValue&) const = default;
};

struct HUDValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::SliderValue slider MEMBER slider)
    Q_PROPERTY(orvelle::ShapeValue shape MEMBER shape)
    Q_PROPERTY(QColor background READ background)
    Q_PROPERTY(double spacing READ spacing)
    Q_PROPERTY(double padding READ padding)
    Q_PROPERTY(QSizeF sliderSize READ sliderSize)

public:
    SymbolValue symbol;
    SliderValue slider;
    ShapeValue shape;
    QColor background() const { return toQt(NotchContentView::HUDOverlay::background); }
    double spacing() const { return NotchContentView::HUDOverlay::spacing; }
    double padding() const { return NotchContentView::HUDOverlay::padding; }
    QSizeF sliderSize() const { return toQt(NotchContentView::HUDOverlay::sliderSize); }
    bool operator==(const HUDValue&) const = default;
};

class NotchContentBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(QColor, background, NotchContentView)
    ORVELLE_CONSTANT(double, tabBarPadding, NotchContentView)
    ORVELLE_CONSTANT(double, tabBarTopPadding, NotchContentView)
    ORVELLE_CONSTANT(double, tabSpacing, NotchContentView)
    ORVELLE_CONSTANT(double, tabMinHeight, NotchContentView)
    ORVELLE_CONSTANT(double, tabCornerRadius, NotchContentView)
    ORVELLE_CONSTANT(double, dividerPadding, NotchContentView)
    ORVELLE_CONSTANT(double, contentPadding, NotchContentView)
    ORVELLE_CONSTANT(double, hudFadeDuration, NotchContentView)
    ORVELLE_SHOWN(QSizeF, targetSize)
    ORVELLE_SHOWN(double, hoveringWidth)
    ORVELLE_SHOWN(orvelle::ShapeValue, shape)
    ORVELLE_SHOWN(orvelle::StrokeValue, border)
    ORVELLE_SHOWN(double, stateResponse)
    ORVELLE_SHOWN(double, stateDampingFraction)
    ORVELLE_SHOWN(bool, showsHoveringLayout)
    ORVELLE_SHOWN(bool, showsExpandedContent)
    ORVELLE_SHOWN(bool, entersFromTrailing)
    ORVELLE_SHOWN(QString, activePanel)
    ORVELLE_SHOWN(QUrl, panelSource)
    ORVELLE_SHOWN(bool, showsHUD)
    ORVELLE_SHOWN(orvelle::HUDValue, hud)
    ORVELLE_LIST(TabValue, tabs)
    Q_PROPERTY(double panelResponse READ panelResponse CONSTANT FINAL)
    Q_PROPERTY(double panelDampingFraction READ panelDampingFraction CONSTANT FINAL)

public:
    double panelResponse() const { return NotchAnimator::panelSwitch.response; }
    double panelDampingFraction() const { return NotchAnimator::panelSwitch.dampingFraction; }

    Q_INVOKABLE void selectPanel(const QString& id);
    /// For a tab that was chosen by a key: most panels give the keyboard back when they are shown.
    Q_INVOKABLE void takeKeyboard() const;
    Q_INVOKABLE void setHUDValue(double value);
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<NotchContentView> view_;
    std::optional<NotchCollapsedView> collapsedView_;
    const NotchState* state_ = nullptr;
    std::function<void()> takeKeyboard_;
};

} // namespace orvelle
