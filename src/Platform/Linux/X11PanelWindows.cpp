#include "Platform/Linux/X11PanelWindows.h"

#include "Platform/Linux/X11PanelWindow.h"

#include <QQuickWindow>
#include <QSGRendererInterface>

namespace orvelle {

X11PanelWindows::X11PanelWindows(X11Desktop& desktop, X11RawPresses& presses)
    : desktop_(desktop), presses_(presses) {
    const bool useGraphicsCard = qgetenv("ORVELLE_RENDERER") == "gl";
    QQuickWindow::setGraphicsApi(useGraphicsCard ? QSGRendererInterface::OpenGL
                                                 : QSGRendererInterface::Software);
}

std::unique_ptr<PanelWindow> X11PanelWindows::make(const PanelAttributes& attributes,
                                                   const Rect& frame) {
    return std::make_unique<X11PanelWindow>(desktop_, presses_, attributes, frame);
}

} // namespace orvelle
