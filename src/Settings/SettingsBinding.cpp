#include "Settings/SettingsBinding.h"

#include "Features/Theme/ThemeManager.h"

namespace orvelle {

void SettingsBinding::attach(const ViewEnvironment& environment) {
    theme_ = &environment.notch.themeManager;
    QVariantList shown;
    for (const auto& tab : SettingsView::tabs())
        shown.push_back(QVariantMap{{QStringLiteral("title"), toQt(tab.title)},
                                    {QStringLiteral("symbol"), toQt(tab.symbol)},
                                    {QStringLiteral("view"), toQt(tab.view)}});
    show_tabs(shown);
    follow(*theme_);
}

void SettingsBinding::refresh() {
    show_accentColor(toQt(theme_->accentColor()));
}

} // namespace orvelle
