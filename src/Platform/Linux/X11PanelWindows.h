#pragma once

#include "Platform/Linux/X11Desktop.h"
#include "Platform/Linux/X11RawPresses.h"
#include "Platform/PanelWindow.h"

namespace orvelle {

/// Makes panels that are `X11PanelWindow`s. Built before the first Qt Quick window of the process,
/// since it chooses the renderer of all of them: the processor, which needs a third of the memory,
/// or the graphics card where the environment says ORVELLE_RENDERER=gl.
class X11PanelWindows : public PanelWindows {
public:
    X11PanelWindows(X11Desktop& desktop, X11RawPresses& presses);

    std::unique_ptr<PanelWindow> make(const PanelAttributes& attributes,
                                      const Rect& frame) override;

private:
    X11Desktop& desktop_;
    X11RawPresses& presses_;
};

} // namespace orvelle
