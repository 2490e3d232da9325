#include "Settings/SettingsPageBinding.h"

#include "Features/Theme/ThemeManager.h"
#include "Settings/AppearanceSettingsView.h"
#include "Settings/FeatureSettingsView.h"
#include "Settings/GeneralSettingsView.h"

namespace orvelle {

namespace {

QString kindName(SettingsRow::Kind kind) {
    using Kind = SettingsRow::Kind;
    switch (kind) {
    case Kind::title:
        return QStringLiteral("title");
    case Kind::footnote:
        return QStringLiteral("footnote");
    case Kind::text:
        return QStringLiteral("text");
    case Kind::toggle:
        return QStringLiteral("toggle");
    case Kind::slider:
        return QStringLiteral("slider");
    case Kind::picker:
        return QStringLiteral("picker");
    case Kind::segments:
        return QStringLiteral("segments");
    case Kind::swatch:
        return QStringLiteral("swatch");
    case Kind::action:
        return QStringLiteral("action");
    case Kind::place:
        return QStringLiteral("place");
    case Kind::found:
        return QStringLiteral("found");
    case Kind::search:
        return QStringLiteral("search");
    case Kind::about:
        break;
    }
    return QStringLiteral("about");
}

SettingsRowValue rowValue(const SettingsRow& row) {
    SettingsRowValue value;
    value.kind = kindName(row.kind);
    value.id = QString::fromStdString(row.id);
    value.label = toQt(std::string_view(row.label));
    value.detail = toQt(std::string_view(row.detail));
    value.indent = row.indent;
    value.isOn = row.isOn;
    value.isDimmed = row.isDimmed;
    value.isDestructive = row.isDestructive;
    value.value = row.value;
    value.lowerBound = row.range.lowerBound;
    value.upperBound = row.range.upperBound;
    value.step = row.range.step;
    value.valueText = toQt(std::string_view(row.valueText));
    value.valueWidth = row.valueWidth;
    value.labelWidth = row.labelWidth;
    for (const auto& choice : row.choices)
        value.choices.push_back(QVariantMap{{QStringLiteral("value"), toQt(choice.value)},
                                            {QStringLiteral("label"), toQt(choice.label)}});
    value.choice = toQt(std::string_view(row.choice));
    value.button = toQt(std::string_view(row.button));
    value.symbol = toQt(row.symbol);
    value.color = toQt(row.color);
    value.isInGroup = !endsGroup(row.kind);
    return value;
}

std::vector<SettingsRowValue> rowValues(const std::vector<SettingsRow>& rows) {
    std::vector<SettingsRowValue> values;
    for (const auto& row : rows) {
        auto value = rowValue(row);
        value.isFirst = value.isInGroup && (values.empty() || !values.back().isInGroup);
        if (!value.isInGroup && !values.empty())
            values.back().isLast = values.back().isInGroup;
        values.push_back(std::move(value));
    }
    if (!values.empty())
        values.back().isLast = values.back().isInGroup;
    return values;
}

} // namespace

void SettingsPageBinding::attach(const ViewEnvironment& environment) {
    theme_ = &environment.notch.themeManager;
    page_ = makePage(environment);
    follow(page_->rows, *theme_);
}

void SettingsPageBinding::refresh() {
    show_accentColor(toQt(theme_->accentColor()));
    rows_.show(rowValues(page_->rows));
}

void SettingsPageBinding::flip(const QString& id, bool on) {
    page_->flip(id.toStdString(), on);
}

void SettingsPageBinding::slide(const QString& id, double value) {
    page_->slide(id.toStdString(), value);
}

void SettingsPageBinding::choose(const QString& id, const QString& value) {
    page_->choose(id.toStdString(), value.toStdString());
}

void SettingsPageBinding::press(const QString& id) {
    page_->press(id.toStdString());
}

void SettingsPageBinding::type(const QString& id, const QString& text) {
    page_->type(id.toStdString(), text.toStdString());
}

std::unique_ptr<SettingsPage> GeneralSettingsBinding::makePage(const ViewEnvironment& environment) {
    return std::make_unique<GeneralSettingsView>(environment.settings.value(),
                                                 environment.platform);
}

std::unique_ptr<SettingsPage>
AppearanceSettingsBinding::makePage(const ViewEnvironment& environment) {
    return std::make_unique<AppearanceSettingsView>(environment.platform,
                                                    &environment.settings.value().undo);
}

std::unique_ptr<SettingsPage> FeatureSettingsBinding::makePage(const ViewEnvironment& environment) {
    return std::make_unique<FeatureSettingsView>(environment.notch.weatherManager,
                                                 environment.platform);
}

} // namespace orvelle
