#include "Features/Pomodoro/PomodoroExpandedBinding.h"

#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/Theme/ThemeManager.h"

namespace orvelle {

namespace {

QUrl viewOf(PomodoroTimerStyle style) {
    const char* name = "PomodoroDigital";
    switch (style) {
    case PomodoroTimerStyle::digital:
        break;
    case PomodoroTimerStyle::ring:
        name = "PomodoroRing";
        break;
    case PomodoroTimerStyle::analog:
        name = "PomodoroAnalog";
        break;
    case PomodoroTimerStyle::minimal:
        name = "PomodoroMinimal";
        break;
    }
    return QUrl(QStringLiteral("qrc:/Orvelle/%1.qml").arg(QLatin1String(name)));
}

} // namespace

static QVariantList toQt(const std::vector<PomodoroExpandedView::Tick>& ticks) {
    QVariantList values;
    for (const auto& tick : ticks)
        values.append(QVariantMap{{QStringLiteral("angle"), tick.angle},
                                  {QStringLiteral("length"), tick.length}});
    return values;
}

static QVariantList toQt(const std::vector<Color>& colors) {
    QVariantList values;
    for (const auto& color : colors)
        values.append(toQt(color));
    return values;
}

void PomodoroExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.pomodoroManager;
    const auto& theme = environment.notch.themeManager;
    view_.emplace(manager, theme, environment.platform);
    follow(manager.state, manager.sessionsBeforeLongBreak, view_->timerStyle);
    follow(theme.themeMode, theme.customAccentHue, theme.customAccentSaturation,
           theme.systemAccentRefresh);
}

void PomodoroExpandedBinding::setAreaHeight(double height) {
    if (height == areaHeight_)
        return;
    areaHeight_ = height;
    Q_EMIT areaHeightChanged();
    refresh();
}

void PomodoroExpandedBinding::refresh() {
    const double size = PomodoroExpandedView::availableSize(areaHeight_);
    show_timerSize(size);
    show_analogTimeOffset(PomodoroExpandedView::analogTimeOffset(size));
    show_ticks(toQt(PomodoroExpandedView::ticks()));
    show_tickColor(orvelle::toQt(view_->tickColor()));
    show_phaseColor(orvelle::toQt(view_->phaseColor()));
    show_progress(view_->progress());
    show_time(orvelle::toQt(view_->time(size)));
    show_phaseLabel(orvelle::toQt(view_->phaseLabel()));
    show_sessionDots(toQt(view_->sessionDots()));
    show_resetButton(orvelle::toQt(view_->resetButton()));
    show_playButton(orvelle::toQt(view_->playButton()));
    show_skipButton(orvelle::toQt(view_->skipButton()));
    show_timerView(viewOf(view_->style()));
}

} // namespace orvelle
