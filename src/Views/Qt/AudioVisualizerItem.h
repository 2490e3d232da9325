#pragma once

#include "Features/Media/AudioVisualizer.h"

#include <QColor>
#include <QElapsedTimer>
#include <QQmlParserStatus>
#include <QQuickPaintedItem>

#include <optional>
#include <vector>

namespace orvelle {

/// Bars that dance at the bottom of the item while something plays. Hidden or at rest it costs
/// nothing.
class AudioVisualizerItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool playing READ isPlaying WRITE setPlaying NOTIFY playingChanged FINAL)
    Q_PROPERTY(bool compact MEMBER isCompact_ FINAL)
    Q_PROPERTY(QColor tint READ tint WRITE setTint NOTIFY tintChanged FINAL)
    Q_PROPERTY(bool animating READ isAnimating FINAL)

public:
    explicit AudioVisualizerItem(QQuickItem* parent = nullptr);

    bool isPlaying() const { return isPlaying_; }
    void setPlaying(bool playing);
    QColor tint() const { return tint_; }
    void setTint(const QColor& tint);
    bool isAnimating() const { return visualizer_ && visualizer_->isAnimating(); }

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void playingChanged();
    void tintChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void followVisibility();
    void follow(const std::vector<double>& heights);
    std::vector<double> shownHeights() const;

    bool isPlaying_ = false;
    bool isCompact_ = false;
    QColor tint_ = Qt::white;
    bool isShown_ = false;
    std::vector<double> from_; ///< what was drawn when the present change began
    std::vector<double> to_;
    QElapsedTimer since_;
    Timer settling_; ///< repaints while the bars go down
    RunLoop* runLoop_ = nullptr;
    std::optional<AudioVisualizer> visualizer_;
    Subscription heights_;
};

} // namespace orvelle
