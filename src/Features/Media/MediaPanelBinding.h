#pragma once

#include "Features/Media/MediaPanelView.h"
#include "Views/Qt/ArtworkItem.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

class MediaPanelBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, rowSpacing, MediaPanelView)
    ORVELLE_CONSTANT(double, textSpacing, MediaPanelView)
    ORVELLE_CONSTANT(double, sliderTopPadding, MediaPanelView)
    ORVELLE_CONSTANT(double, transportSpacing, MediaPanelView)
    ORVELLE_SHOWN(QVariant, placeholder)
    ORVELLE_SHOWN(orvelle::ArtworkValue, artwork)
    ORVELLE_SHOWN(orvelle::TextValue, title)
    ORVELLE_SHOWN(orvelle::TextValue, artist)
    ORVELLE_SHOWN(orvelle::TextValue, album)
    ORVELLE_SHOWN(orvelle::SliderValue, slider)
    ORVELLE_SHOWN(orvelle::TextValue, elapsed)
    ORVELLE_SHOWN(orvelle::TextValue, duration)
    ORVELLE_SHOWN(orvelle::SymbolValue, previousButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, playButton)
    ORVELLE_SHOWN(orvelle::SymbolValue, nextButton)
    ORVELLE_SHOWN(QString, playName)

public:
    Q_INVOKABLE void previousTrack();
    Q_INVOKABLE void playPause();
    Q_INVOKABLE void nextTrack();
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    MediaManager* manager_ = nullptr;
    std::optional<MediaPanelView> view_;
};

} // namespace orvelle
