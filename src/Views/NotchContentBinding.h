#pragma once

#include "Features/SystemMonitor/SystemMonitorModules.h"
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

struct TabLookValue {
    Q_GADGET
    Q_PROPERTY(QColor symbol MEMBER symbol)
    Q_PROPERTY(QColor background MEMBER background)

public:
    QColor symbol;
    QColor background;
    bool operator==(const TabLookValue&) const = default;
};

/// A part of the notch that comes and goes. What is not shown keeps what it was shown with.
struct PartValue {
    Q_GADGET
    Q_PROPERTY(bool isShown MEMBER isShown)
    Q_PROPERTY(QSizeF size MEMBER size)

public:
    bool isShown = false;
    QSizeF size;
    bool operator==(const PartValue&) const = default;
};

struct BorderValue {
    Q_GADGET
    Q_PROPERTY(bool isShown MEMBER isShown)
    Q_PROPERTY(orvelle::ShapeValue shape MEMBER shape)
    Q_PROPERTY(orvelle::StrokeValue stroke MEMBER stroke)

public:
    bool isShown = false;
    ShapeValue shape;
    StrokeValue stroke;
    bool operator==(const BorderValue&) const = default;
};

struct StageValue {
    Q_GADGET
    Q_PROPERTY(QSizeF size MEMBER size)
    Q_PROPERTY(orvelle::ShapeValue shape MEMBER shape)
    Q_PROPERTY(double response MEMBER response)
    Q_PROPERTY(double dampingFraction MEMBER dampingFraction)
    Q_PROPERTY(orvelle::BorderValue border MEMBER border)
    Q_PROPERTY(orvelle::PartValue hoverBar MEMBER hoverBar)
    Q_PROPERTY(orvelle::PartValue expandedContent MEMBER expandedContent)

public:
    QSizeF size;
    ShapeValue shape;
    double response = 0;
    double dampingFraction = 0;
    BorderValue border;
    PartValue hoverBar;
    PartValue expandedContent;
    bool operator==(const StageValue&) const = default;
};

/// The panel that is shown, and how it came.
struct PanelValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QUrl source MEMBER source)
    Q_PROPERTY(bool entersFromTrailing MEMBER entersFromTrailing)

public:
    QString id;
    QUrl source;
    bool entersFromTrailing = true;
    bool operator==(const PanelValue&) const = default;
};

struct HUDValue {
    Q_GADGET
    Q_PROPERTY(bool isShown MEMBER isShown)
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::SliderValue slider MEMBER slider)
    Q_PROPERTY(orvelle::ShapeValue shape MEMBER shape)
    Q_PROPERTY(QColor background READ background)
    Q_PROPERTY(double spacing READ spacing)
    Q_PROPERTY(double padding READ padding)
    Q_PROPERTY(QSizeF sliderSize READ sliderSize)

public:
    bool isShown = false;
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
    ORVELLE_CONSTANT(double, wingTop, NotchContentView)
    ORVELLE_CONSTANT(orvelle::SymbolValue, settingsButton, NotchContentView)
    ORVELLE_CONSTANT(double, hudFadeDuration, NotchContentView)
    ORVELLE_SHOWN(orvelle::StageValue, stage)
    ORVELLE_SHOWN(orvelle::PanelValue, panel)
    ORVELLE_SHOWN(orvelle::TabLookValue, restingTab)
    ORVELLE_SHOWN(orvelle::TabLookValue, activeTab)
    ORVELLE_SHOWN(orvelle::HUDValue, hud)
    ORVELLE_SHOWN(double, wingWidth)
    ORVELLE_SHOWN(bool, showsSettingsButton)
    ORVELLE_LIST(TabValue, tabs)
    Q_PROPERTY(double panelResponse READ panelResponse CONSTANT FINAL)
    Q_PROPERTY(double panelDampingFraction READ panelDampingFraction CONSTANT FINAL)

public:
    double panelResponse() const { return NotchAnimator::panelSwitch.response; }
    double panelDampingFraction() const { return NotchAnimator::panelSwitch.dampingFraction; }

    Q_INVOKABLE void selectPanel(const QString& id);
    Q_INVOKABLE void openSettings() const { view_->openSettings(); }
    /// For the keyboard.
    Q_INVOKABLE void close() const;
    /// Of the commands that the status item's menu shows with a key; false when none has this one.
    Q_INVOKABLE bool performShortcut(const QString& key) const;
    /// For a tab that was chosen by a key: most panels give the keyboard back when they are shown.
    Q_INVOKABLE void takeKeyboard() const;
    Q_INVOKABLE void setHUDValue(double value);
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<NotchContentView> view_;
    std::optional<SystemMonitorModules> modules_;
    const NotchState* state_ = nullptr;
    std::function<void()> takeKeyboard_;
    std::function<void()> close_;
    std::function<bool(std::string_view)> performShortcut_;
};

} // namespace orvelle
