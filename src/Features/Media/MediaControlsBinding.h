#pragma once

#include "Features/Media/MediaControlsView.h"
#include "Views/Qt/ArtworkItem.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

class MediaControlsBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, horizontalPadding, MediaControlsView)
    ORVELLE_CONSTANT(double, verticalPadding, MediaControlsView)
    ORVELLE_CONSTANT(double, titleWidth, MediaControlsView)
    ORVELLE_CONSTANT(double, spacing, MediaControlsView)
    ORVELLE_SHOWN(bool, showsContent)
    ORVELLE_SHOWN(orvelle::ArtworkValue, miniArtwork)
    ORVELLE_SHOWN(orvelle::TextValue, title)
    ORVELLE_SHOWN(orvelle::SymbolValue, playButton)
    ORVELLE_SHOWN(QString, playName)

public:
    Q_INVOKABLE void playPause();

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    const MediaManager* manager_ = nullptr;
    std::optional<MediaControlsView> view_;
};

} // namespace orvelle
