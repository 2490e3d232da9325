#include "Views/Qt/AudioVisualizerItem.h"

#include "Platform/RunLoop.h"
#include "Views/Qt/Values.h"
#include "Views/Qt/ViewEngine.h"

#include <QEasingCurve>
#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

namespace orvelle {

AudioVisualizerItem::AudioVisualizerItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void AudioVisualizerItem::setPlaying(bool playing) {
    if (playing == isPlaying_)
        return;
    isPlaying_ = playing;
    if (isShown_)
        visualizer_->setPlaying(playing);
    Q_EMIT playingChanged();
}

void AudioVisualizerItem::setTint(const QColor& tint) {
    if (tint == tint_)
        return;
    tint_ = tint;
    update();
    Q_EMIT tintChanged();
}

void AudioVisualizerItem::componentComplete() {
    QQuickPaintedItem::componentComplete();
    const auto* engine = qobject_cast<ViewEngine*>(qmlEngine(this));
    Q_ASSERT_X(engine, "AudioVisualizerItem", "views are loaded by a ViewEngine");
    runLoop_ = &engine->environment().platform.runLoop();
    visualizer_.emplace(*runLoop_, isCompact_);
    const auto& measures = visualizer_->measures;
    setImplicitSize(AudioVisualizer::width(measures), measures.highest);
    followVisibility();
}

void AudioVisualizerItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickPaintedItem::itemChange(change, data);
    if ((change == ItemVisibleHasChanged || change == ItemSceneChange) && visualizer_)
        followVisibility();
}

void AudioVisualizerItem::followVisibility() {
    const bool isShown = isVisible() && window();
    if (isShown == isShown_)
        return;
    isShown_ = isShown;
    heights_.reset();
    settling_.reset();
    if (!isShown) {
        visualizer_->disappear();
        return;
    }
    visualizer_->appear(isPlaying_);
    from_ = to_ = visualizer_->barHeights;
    since_.start();
    heights_ = visualizer_->barHeights.observe([this](const auto& heights) { follow(heights); });
}

void AudioVisualizerItem::follow(const std::vector<double>& heights) {
    from_ = shownHeights();
    to_ = heights;
    since_.start();
    settling_.reset();
    if (!visualizer_->isAnimating())
        settling_ = runLoop_->every(AudioVisualizer::interval, [this] {
            if (shownHeights() == to_)
                settling_.reset();
            update();
        });
    update();
}

std::vector<double> AudioVisualizerItem::shownHeights() const {
    const bool isDancing = visualizer_->isAnimating();
    const double duration =
        isDancing ? AudioVisualizer::changeDuration : AudioVisualizer::stopDuration;
    const QEasingCurve curve(isDancing ? QEasingCurve::InOutQuad : QEasingCurve::OutQuad);
    const double elapsed = static_cast<double>(since_.nsecsElapsed()) / 1e9;
    const double progress = curve.valueForProgress(std::min(1.0, elapsed / duration));
    auto shown = to_;
    for (std::size_t bar = 0; bar < shown.size(); ++bar)
        shown[bar] = progress < 1 ? from_[bar] + (to_[bar] - from_[bar]) * progress : to_[bar];
    return shown;
}

void AudioVisualizerItem::paint(QPainter* painter) {
    if (!isShown_)
        return;
    const auto& measures = visualizer_->measures;
    const auto colors =
        AudioVisualizer::barGradient({tint_.redF(), tint_.greenF(), tint_.blueF(), tint_.alphaF()});
    const double radius = AudioVisualizer::cornerRadius(measures);
    painter->setPen(Qt::NoPen);
    double x = (width() - AudioVisualizer::width(measures)) / 2;
    for (const double wanted : shownHeights()) {
        const double barHeight = std::min(wanted, height());
        const QRectF bar(x, height() - barHeight, measures.barWidth, barHeight);
        QLinearGradient gradient(bar.topLeft(), bar.bottomLeft());
        gradient.setColorAt(0, toQt(colors[0]));
        gradient.setColorAt(1, toQt(colors[1]));
        painter->setBrush(gradient);
        painter->drawRoundedRect(bar, radius, radius);
        x += measures.barWidth + measures.gap;
    }
}

} // namespace orvelle
