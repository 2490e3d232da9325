#pragma once

#include "Settings/SettingsPage.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/Values.h"

#include <QVariantList>

#include <memory>

namespace orvelle {

/// A row of a page as QML sees it.
struct SettingsRowValue {
    Q_GADGET
    Q_PROPERTY(QString kind MEMBER kind)
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(double indent MEMBER indent)
    Q_PROPERTY(bool isOn MEMBER isOn)
    Q_PROPERTY(bool isDimmed MEMBER isDimmed)
    Q_PROPERTY(bool isDestructive MEMBER isDestructive)
    Q_PROPERTY(double value MEMBER value)
    Q_PROPERTY(double lowerBound MEMBER lowerBound)
    Q_PROPERTY(double upperBound MEMBER upperBound)
    Q_PROPERTY(double step MEMBER step)
    Q_PROPERTY(QString valueText MEMBER valueText)
    Q_PROPERTY(double valueWidth MEMBER valueWidth)
    Q_PROPERTY(double labelWidth MEMBER labelWidth)
    Q_PROPERTY(QVariantList choices MEMBER choices)
    Q_PROPERTY(QString choice MEMBER choice)
    Q_PROPERTY(QString button MEMBER button)
    Q_PROPERTY(QVariant symbol MEMBER symbol)
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(bool isInGroup MEMBER isInGroup)
    Q_PROPERTY(bool isFirst MEMBER isFirst)
    Q_PROPERTY(bool isLast MEMBER isLast)

public:
    QString kind;
    QString id;
    QString label;
    QString detail;
    double indent = 0;
    bool isOn = false;
    bool isDimmed = false;
    bool isDestructive = false;
    double value = 0;
    double lowerBound = 0;
    double upperBound = 1;
    double step = 1;
    QString valueText;
    double valueWidth = 0;
    double labelWidth = 0;
    QVariantList choices; ///< maps with `value` and `label`
    QString choice;
    QString button;
    QVariant symbol; ///< of SymbolValue, or undefined
    QColor color;
    bool isInGroup = false;
    bool isFirst = false; ///< of its group
    bool isLast = false;
    bool operator==(const SettingsRowValue&) const = default;
};

/// Ties QML to a page that is a list of rows.
class SettingsPageBinding : public Binding {
    Q_OBJECT
    QML_ANONYMOUS
    ORVELLE_LIST(orvelle::SettingsRowValue, rows)
    ORVELLE_SHOWN(QColor, accentColor)

public:
    Q_INVOKABLE void appear() { page_->appear(); }
    Q_INVOKABLE void flip(const QString& id, bool on);
    Q_INVOKABLE void slide(const QString& id, double value);
    Q_INVOKABLE void choose(const QString& id, const QString& value);
    Q_INVOKABLE void press(const QString& id);
    Q_INVOKABLE void type(const QString& id, const QString& text);

protected:
    virtual std::unique_ptr<SettingsPage> makePage(const ViewEnvironment& environment) = 0;
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::unique_ptr<SettingsPage> page_;
    const ThemeManager* theme_ = nullptr;
};

class GeneralSettingsBinding : public SettingsPageBinding {
    Q_OBJECT
    QML_ELEMENT

protected:
    std::unique_ptr<SettingsPage> makePage(const ViewEnvironment& environment) override;
};

class AppearanceSettingsBinding : public SettingsPageBinding {
    Q_OBJECT
    QML_ELEMENT

protected:
    std::unique_ptr<SettingsPage> makePage(const ViewEnvironment& environment) override;
};

class FeatureSettingsBinding : public SettingsPageBinding {
    Q_OBJECT
    QML_ELEMENT

protected:
    std::unique_ptr<SettingsPage> makePage(const ViewEnvironment& environment) override;
};

} // namespace orvelle
