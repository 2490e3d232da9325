#pragma once

#include "Features/Media/NowPlayingView.h"
#include "Views/Qt/ArtworkItem.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

struct LoveButtonValue {
    Q_GADGET
    Q_PROPERTY(orvelle::SymbolValue symbol MEMBER symbol)
    Q_PROPERTY(double opacity MEMBER opacity)
    Q_PROPERTY(QString help MEMBER help)
    Q_PROPERTY(bool isEnabled MEMBER isEnabled)

public:
    SymbolValue symbol;
    double opacity = 1;
    QString help;
    bool isEnabled = false;
    bool operator==(const LoveButtonValue&) const = default;
};

struct ProgressBarValue {
    Q_GADGET
    Q_PROPERTY(QColor fillColor MEMBER fillColor)
    Q_PROPERTY(QColor trackColor READ trackColor)
    Q_PROPERTY(double height READ height)
    Q_PROPERTY(int changeDuration READ changeDuration)

public:
    double fraction = 0;
    QColor fillColor;
    QColor trackColor() const { return toQt(NowPlayingView::ProgressBar::trackColor); }
    double height() const { return NowPlayingView::ProgressBar::height; }
    /// Milliseconds.
    int changeDuration() const {
        return qRound(NowPlayingView::ProgressBar::changeDuration * 1000);
    }
    Q_INVOKABLE double fillWidth(double width) const {
        return NowPlayingView::ProgressBar{fraction, {}}.fillWidth(width);
    }
    bool operator==(const ProgressBarValue&) const = default;
};

class NowPlayingBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, horizontalPadding, NowPlayingView)
    ORVELLE_CONSTANT(double, verticalPadding, NowPlayingView)
    ORVELLE_CONSTANT(double, spacing, NowPlayingView)
    ORVELLE_CONSTANT(double, progressSpacing, NowPlayingView)
    ORVELLE_CONSTANT(double, visualizerHeight, NowPlayingView)
    ORVELLE_CONSTANT(QSizeF, visualizerPadding, NowPlayingView)
    ORVELLE_CONSTANT(QColor, shadowColor, NowPlayingView)
    ORVELLE_CONSTANT(double, shadowRadius, NowPlayingView)
    ORVELLE_SHOWN(bool, showsMedia)
    ORVELLE_SHOWN(orvelle::PlaceholderValue, placeholder)
    ORVELLE_SHOWN(QColor, accentColor)
    ORVELLE_SHOWN(orvelle::ArtworkValue, artwork)
    ORVELLE_SHOWN(bool, showsVisualizer)
    ORVELLE_SHOWN(orvelle::TextValue, appName)
    ORVELLE_SHOWN(orvelle::TextValue, title)
    ORVELLE_SHOWN(orvelle::TextValue, artist)
    ORVELLE_SHOWN(orvelle::ProgressBarValue, progressBar)
    ORVELLE_SHOWN(orvelle::TextValue, elapsed)
    ORVELLE_SHOWN(orvelle::TextValue, duration)
    ORVELLE_SHOWN(orvelle::LoveButtonValue, loveButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, previousButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, playButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, nextButton)
    ORVELLE_SHOWN(QString, playName)

public:
    Q_INVOKABLE void toggleLove();
    Q_INVOKABLE void previousTrack();
    Q_INVOKABLE void playPause();
    Q_INVOKABLE void nextTrack();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    MediaManager* manager_ = nullptr;
    const ThemeManager* theme_ = nullptr;
    std::optional<NowPlayingView> view_;
};

} // namespace orvelle
