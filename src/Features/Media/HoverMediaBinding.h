#pragma once

#include "Views/Qt/ArtworkItem.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/MenuValue.h"

namespace orvelle {

class Appearance;
class MediaManager;

/// What the media widget of the hover bar shows beside its texts.
class HoverMediaBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_SHOWN(orvelle::ImageValue, artwork)
    ORVELLE_SHOWN(QColor, tint) ///< of the bars: the desktop's accent, whatever the theme

public:
    Q_INVOKABLE orvelle::MenuValue contextMenu() const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    MediaManager* manager_ = nullptr;
    const Appearance* appearance_ = nullptr;
};

} // namespace orvelle
