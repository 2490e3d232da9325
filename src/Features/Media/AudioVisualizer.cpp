#include "Features/Media/AudioVisualizer.h"

namespace orvelle {

std::array<Color, 2> AudioVisualizer::barGradient(Color tint) {
    return {tint.withAlpha(0.9), tint.withAlpha(0.5)};
}

double AudioVisualizer::width(const Measures& measures) {
    return measures.bars * (measures.barWidth + measures.gap) - measures.gap;
}

AudioVisualizer::AudioVisualizer(RunLoop& runLoop, bool isCompact)
    : measures(isCompact ? compact : regular), runLoop_(runLoop) {}

void AudioVisualizer::appear(bool isPlaying) {
    isPlaying_ = isPlaying;
    lower();
    if (isPlaying_)
        startAnimating();
}

void AudioVisualizer::setPlaying(bool isPlaying) {
    if (isPlaying == isPlaying_)
        return;
    isPlaying_ = isPlaying;
    if (isPlaying_)
        startAnimating();
    else
        stopAnimating();
}

void AudioVisualizer::disappear() {
    stopAnimating();
}

void AudioVisualizer::startAnimating() {
    animationTimer_ = runLoop_.every(interval, [this] { updateBars(); });
}

void AudioVisualizer::stopAnimating() {
    animationTimer_.reset();
    lower();
}

void AudioVisualizer::lower() {
    barHeights = std::vector<double>(static_cast<std::size_t>(measures.bars), measures.lowest);
}

void AudioVisualizer::updateBars() {
    if (!isPlaying_)
        return;
    std::uniform_real_distribution<double> height(measures.lowest, measures.highest);
    auto heights = barHeights.get();
    heights.resize(static_cast<std::size_t>(measures.bars), measures.lowest);
    for (auto& current : heights)
        current += (height(random_) - current) * smoothing;
    barHeights = std::move(heights);
}

} // namespace orvelle
