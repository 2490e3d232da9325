#pragma once

#include "Features/Weather/WeatherExpandedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/Values.h"

#include <QVariantList>

#include <optional>

namespace orvelle {

struct WeatherChipValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue icon MEMBER icon)
    Q_PROPERTY(orvelle::TextValue value MEMBER value)
    Q_PROPERTY(orvelle::TextValue label MEMBER label)

public:
    QString id; ///< the label
    SymbolValue icon;
    TextValue value;
    TextValue label;
    bool operator==(const WeatherChipValue&) const = default;
};

struct LocationControlValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue previous MEMBER previous)
    Q_PROPERTY(QVariantList dots MEMBER dots)
    Q_PROPERTY(orvelle::SymbolValue next MEMBER next)

public:
    SymbolValue previous;
    QVariantList dots; ///< colours
    SymbolValue next;
    bool operator==(const LocationControlValue&) const = default;
};

class WeatherExpandedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, loadingSpacing, WeatherExpandedView)
    ORVELLE_CONSTANT(double, cornerRadius, WeatherExpandedView)
    ORVELLE_CONSTANT(double, gradientOpacity, WeatherExpandedView)
    ORVELLE_CONSTANT(double, padding, WeatherExpandedView)
    ORVELLE_CONSTANT(double, spacing, WeatherExpandedView)
    ORVELLE_CONSTANT(double, trailingTopPadding, WeatherExpandedView)
    ORVELLE_CONSTANT(double, trailingSpacing, WeatherExpandedView)
    ORVELLE_CONSTANT(double, chipSpacing, WeatherExpandedView)
    ORVELLE_CONSTANT(double, chipContentSpacing, WeatherExpandedView)
    ORVELLE_CONSTANT(double, chipHorizontalPadding, WeatherExpandedView)
    ORVELLE_CONSTANT(double, chipVerticalPadding, WeatherExpandedView)
    ORVELLE_CONSTANT(double, chipRadius, WeatherExpandedView)
    ORVELLE_CONSTANT(QColor, chipFill, WeatherExpandedView)
    ORVELLE_CONSTANT(double, dotSpacing, WeatherExpandedView)
    ORVELLE_CONSTANT(double, dotSize, WeatherExpandedView)
    ORVELLE_SHOWN(bool, showsLoadingView)
    ORVELLE_SHOWN(orvelle::SpinnerValue, loadingSpinner)
    ORVELLE_SHOWN(orvelle::TextValue, loadingText)
    ORVELLE_SHOWN(QColor, skyStart)
    ORVELLE_SHOWN(QColor, skyEnd)
    ORVELLE_SHOWN(orvelle::SymbolValue, watermark)
    ORVELLE_SHOWN(orvelle::SymbolValue, icon)
    ORVELLE_SHOWN(orvelle::TextValue, temperature)
    ORVELLE_SHOWN(orvelle::TextValue, degreeSign)
    ORVELLE_SHOWN(orvelle::TextValue, condition)
    ORVELLE_SHOWN(QVariant, location)
    ORVELLE_LIST(WeatherChipValue, chips)
    ORVELLE_SHOWN(QVariant, locationControl)
    ORVELLE_SHOWN(orvelle::TextValue, updatedAgo)
    ORVELLE_SHOWN(orvelle::SymbolValue, refreshButton)
    ORVELLE_CONSTANT(double, dimming, WeatherExpandedView)
    ORVELLE_SHOWN(bool, isRefreshing)
    ORVELLE_SHOWN(double, figuresOpacity)

public:
    Q_INVOKABLE void showPreviousLocation();
    Q_INVOKABLE void showNextLocation();
    Q_INVOKABLE void reload();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<WeatherExpandedView> view_;
};

} // namespace orvelle
