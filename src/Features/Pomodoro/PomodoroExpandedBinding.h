#pragma once

#include "Features/Pomodoro/PomodoroExpandedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <QUrl>
#include <QVariantList>

#include <optional>

namespace orvelle {

class PomodoroExpandedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, controlsHeight, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, controlsSpacing, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, dotSize, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, dotSpacing, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, buttonSpacing, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, textSpacing, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, barWidth, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, barHeight, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, ringWidth, PomodoroExpandedView)
    ORVELLE_CONSTANT(QColor, trackColor, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, dialOpacity, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, dialWidth, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, tickWidth, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, tickInset, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, handWidth, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, handInset, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, hubSize, PomodoroExpandedView)
    ORVELLE_CONSTANT(double, progressDuration, PomodoroExpandedView)
    ORVELLE_SHOWN(QUrl, timerView)
    ORVELLE_SHOWN(double, progress)
    ORVELLE_SHOWN(QColor, phaseColor)
    ORVELLE_SHOWN(orvelle::TextValue, time)
    ORVELLE_SHOWN(orvelle::TextValue, phaseLabel)
    ORVELLE_SHOWN(double, timerSize)
    ORVELLE_SHOWN(double, analogTimeOffset)
    ORVELLE_SHOWN(QVariantList, ticks)
    ORVELLE_SHOWN(QColor, tickColor)
    ORVELLE_SHOWN(QVariantList, sessionDots)
    ORVELLE_SHOWN(orvelle::SymbolValue, resetButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, playButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, skipButton)
    Q_PROPERTY(double areaHeight READ areaHeight WRITE setAreaHeight NOTIFY areaHeightChanged FINAL)

public:
    /// Of the whole panel.
    double areaHeight() const { return areaHeight_; }
    void setAreaHeight(double height);

    Q_INVOKABLE void reset() { view_->reset(); }
    Q_INVOKABLE void togglePlaying() { view_->togglePlaying(); }
    Q_INVOKABLE void skip() { view_->skip(); }
    Q_INVOKABLE orvelle::MenuValue contextMenu() { return {view_->contextMenu()}; }

Q_SIGNALS:
    void areaHeightChanged();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    double areaHeight_ = 0;
    std::optional<PomodoroExpandedView> view_;
};

} // namespace orvelle
