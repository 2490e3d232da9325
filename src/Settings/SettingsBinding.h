#pragma once

#include "Settings/SettingsView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <QVariantList>

namespace orvelle {

class ThemeManager;

class SettingsBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, width, SettingsView)
    ORVELLE_CONSTANT(double, height, SettingsView)
    ORVELLE_SHOWN(QVariantList, tabs) ///< maps with `title`, `symbol` and `view`
    ORVELLE_SHOWN(QColor, accentColor)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    const ThemeManager* theme_ = nullptr;
};

} // namespace orvelle
