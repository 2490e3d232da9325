#pragma once

#include "Settings/HoverLayoutSettingsView.h"
#include "Settings/PanelOrderSettingsView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/Values.h"

#include <QVariantList>

#include <optional>

namespace orvelle {

struct WidgetRowValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::TextValue name MEMBER name)
    Q_PROPERTY(QString zone MEMBER zone)
    Q_PROPERTY(bool isVisible MEMBER isVisible)

public:
    QString id;
    SymbolValue symbol;
    TextValue name;
    QString zone; ///< its raw value
    bool isVisible = true;
    bool operator==(const WidgetRowValue&) const = default;
};

class HoverLayoutSettingsBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(QString, title, HoverLayoutSettingsView)
    ORVELLE_CONSTANT(QString, explanation, HoverLayoutSettingsView)
    ORVELLE_CONSTANT(QString, emptyText, HoverLayoutSettingsView)
    ORVELLE_CONSTANT(QString, resetText, HoverLayoutSettingsView)
    ORVELLE_CONSTANT(double, symbolWidth, HoverLayoutSettingsView)
    ORVELLE_CONSTANT(double, pickerWidth, HoverLayoutSettingsView)
    ORVELLE_CONSTANT(double, resetTextSize, HoverLayoutSettingsView)
    ORVELLE_LIST(WidgetRowValue, leftWing)
    ORVELLE_LIST(WidgetRowValue, rightWing)
    ORVELLE_LIST(WidgetRowValue, bottomRow)
    ORVELLE_SHOWN(QVariantList, zones) ///< maps with `value` and `label`, in order
    ORVELLE_SHOWN(QColor, accentColor)

public:
    /// The rows of the zone with this raw value.
    Q_INVOKABLE QAbstractItemModel* rows(const QString& zone);
    /// Shows the new order before it returns, so that a dragged row does not jump back.
    Q_INVOKABLE void move(const QString& zone, int from, int to);
    Q_INVOKABLE void changeZone(const QString& id, const QString& zone);
    Q_INVOKABLE void setVisible(const QString& id, bool isVisible);
    Q_INVOKABLE void reset() { view_->reset(); }

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<HoverLayoutSettingsView> view_;
    const ThemeManager* theme_ = nullptr;
};

struct PanelRowValue {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(orvelle::TextValue label MEMBER label)
    Q_PROPERTY(orvelle::SymbolValue eye MEMBER eye)
    Q_PROPERTY(QString help MEMBER help)
    Q_PROPERTY(bool isVisible MEMBER isVisible)

public:
    QString id;
    SymbolValue symbol;
    TextValue label;
    SymbolValue eye;
    QString help;
    bool isVisible = true;
    bool operator==(const PanelRowValue&) const = default;
};

class PanelOrderSettingsBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(QString, title, PanelOrderSettingsView)
    ORVELLE_CONSTANT(QString, explanation, PanelOrderSettingsView)
    ORVELLE_CONSTANT(QString, resetText, PanelOrderSettingsView)
    ORVELLE_CONSTANT(double, symbolWidth, PanelOrderSettingsView)
    ORVELLE_CONSTANT(double, resetTextSize, PanelOrderSettingsView)
    ORVELLE_LIST(PanelRowValue, rows)

public:
    /// Shows the new order before it returns, so that a dragged row does not jump back.
    Q_INVOKABLE void move(int from, int to);
    Q_INVOKABLE void toggleVisibility(const QString& id);
    Q_INVOKABLE void reset() { view_->reset(); }

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<PanelOrderSettingsView> view_;
};

} // namespace orvelle
