#include "Settings/LayoutSettingsBinding.h"

#include "Features/Theme/ThemeManager.h"

namespace orvelle {

namespace {

std::optional<HoverWidgetPosition> zoneFrom(const QString& rawValue) {
    return hoverWidgetPositionFrom(rawValue.toStdString());
}

} // namespace

void HoverLayoutSettingsBinding::attach(const ViewEnvironment& environment) {
    theme_ = &environment.notch.themeManager;
    view_.emplace(environment.notch.hoverLayoutManager, *theme_,
                  &environment.settings.value().undo);
    QVariantList shown;
    for (const auto zone : allHoverWidgetPositions)
        shown.push_back(
            QVariantMap{{QStringLiteral("value"), toQt(rawValue(zone))},
                        {QStringLiteral("label"), toQt(HoverLayoutSettingsView::zoneName(zone))}});
    show_zones(shown);
    follow(environment.notch.hoverLayoutManager.placements, *theme_);
}

void HoverLayoutSettingsBinding::refresh() {
    show_accentColor(toQt(theme_->accentColor()));
    const auto values = [this](HoverWidgetPosition zone) {
        std::vector<WidgetRowValue> shown;
        for (const auto& row : view_->rows(zone))
            shown.push_back({QString::fromStdString(row.id), toQt(row.symbol), toQt(row.name),
                             toQt(rawValue(row.zone)), row.isVisible});
        return shown;
    };
    leftWing_.show(values(HoverWidgetPosition::leftWing));
    rightWing_.show(values(HoverWidgetPosition::rightWing));
    bottomRow_.show(values(HoverWidgetPosition::bottomRow));
}

QAbstractItemModel* HoverLayoutSettingsBinding::rows(const QString& zone) {
    switch (zoneFrom(zone).value_or(HoverWidgetPosition::bottomRow)) {
    case HoverWidgetPosition::leftWing:
        return leftWing();
    case HoverWidgetPosition::rightWing:
        return rightWing();
    case HoverWidgetPosition::bottomRow:
        break;
    }
    return bottomRow();
}

void HoverLayoutSettingsBinding::move(const QString& zone, int from, int to) {
    if (const auto position = zoneFrom(zone); position && from >= 0 && to >= 0)
        view_->move(*position, static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    refresh();
}

void HoverLayoutSettingsBinding::changeZone(const QString& id, const QString& zone) {
    if (const auto position = zoneFrom(zone))
        view_->changeZone(id.toStdString(), *position);
}

void HoverLayoutSettingsBinding::setVisible(const QString& id, bool isVisible) {
    view_->setVisible(id.toStdString(), isVisible);
}

void PanelOrderSettingsBinding::attach(const ViewEnvironment& environment) {
    const auto& theme = environment.notch.themeManager;
    view_.emplace(environment.notch.panelOrderManager, theme, &environment.settings.value().undo);
    follow(environment.notch.panelOrderManager.panelOrder, theme);
}

void PanelOrderSettingsBinding::refresh() {
    std::vector<PanelRowValue> shown;
    for (const auto& row : view_->rows())
        shown.push_back({QString::fromStdString(row.id), toQt(row.symbol), toQt(row.label),
                         toQt(row.eye), toQt(row.help), row.isVisible});
    rows_.show(shown);
}

void PanelOrderSettingsBinding::move(int from, int to) {
    if (from >= 0 && to >= 0)
        view_->move(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    refresh();
}

void PanelOrderSettingsBinding::toggleVisibility(const QString& id) {
    view_->toggleVisibility(id.toStdString());
}

} // namespace orvelle
