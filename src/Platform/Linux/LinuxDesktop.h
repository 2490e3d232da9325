#pragma once

#include "Platform/Linux/TrayStatusBar.h"
#include "Platform/Linux/X11Desktop.h"
#include "Platform/Linux/X11EventMonitors.h"
#include "Platform/Linux/X11PanelWindows.h"
#include "Platform/Linux/X11RawPresses.h"
#include "Platform/Linux/X11Screens.h"
#include "Platform/Linux/X11TaskList.h"
#include "Platform/Qt/QtApplication.h"

namespace orvelle {

/// What every run needs of the display, a demonstration too. Needs a QApplication on the platform
/// "xcb".
struct LinuxDesktop {
    LinuxDesktop(UserDefaults& defaults, RunLoop& runLoop)
        : screens(x11, defaults), statusBar(runLoop, &QDBusConnection::sessionBus) {}

    X11Desktop x11;
    X11RawPresses presses;
    X11Screens screens;
    X11PanelWindows panelWindows{x11, presses};
    X11EventMonitors eventMonitors{presses};
    QtApplication application;
    X11TaskList taskList{application};
    TrayStatusBar statusBar;
};

} // namespace orvelle
