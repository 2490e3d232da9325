#include "Core/NotchWindow/NotchDetector.h"

#include "App/Constants.h"
#include "Core/Describe.h"
#include "Foundation/Format.h"
#include "Platform/Log.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"

namespace orvelle::NotchDetector {

namespace {

namespace Notch = AppConstants::Notch;

bool hasPhysicalNotch(const Screen& screen) {
    return screen.safeAreaInsets.top > 0;
}

NotchScreenInfo centredUnderTop(const Screen& screen, Size size, bool hasNotch) {
    const Point position{screen.frame.midX() - size.width / 2, screen.frame.maxY() - size.height};
    return {hasNotch, size, position, screen};
}

NotchScreenInfo physicalNotch(const Screen& screen, const Logger& log) {
    double width = Notch::defaultWidth;
    if (screen.auxiliaryTopLeftArea && screen.auxiliaryTopRightArea)
        width = screen.auxiliaryTopRightArea->minX() - screen.auxiliaryTopLeftArea->maxX();
    const Size size{width, screen.safeAreaInsets.top};
    log.info(format("Physical notch found on %s: %fx%f", screen.localizedName.c_str(), size.width,
                    size.height));
    return centredUnderTop(screen, size, true);
}

NotchScreenInfo virtualNotch(const Screen& screen, const Logger& log) {
    const double menuBarHeight = screen.frame.maxY() - screen.visibleFrame.maxY();
    const Size size{Notch::defaultWidth, menuBarHeight > 0 ? menuBarHeight : Notch::defaultHeight};
    log.info(
        format("Virtual notch: %fx%f, menuBarHeight=%f", size.width, size.height, menuBarHeight));
    return centredUnderTop(screen, size, false);
}

} // namespace

NotchScreenInfo detectNotch(Platform& platform) {
    const Logger log(platform.log(), "NotchDetector");
    const auto screens = platform.screens().screens();

    log.info(format("Detecting notch — %zu screen(s) connected", screens.size()));
    for (std::size_t index = 0; index < screens.size(); ++index) {
        const auto& screen = screens[index];
        log.info(format("  Screen %zu: %s, frame=%s, safeAreaInsets.top=%f, hasNotch=%s", index,
                        screen.localizedName.c_str(), describe(screen.frame).c_str(),
                        screen.safeAreaInsets.top, describe(hasPhysicalNotch(screen))));
    }
    for (const auto& screen : screens)
        if (hasPhysicalNotch(screen))
            return physicalNotch(screen, log);

    if (platform.userDefaults().boolean(Settings::requireRealNotch.name)) {
        log.info("requireRealNotch=true and no physical notch found — skipping virtual notch");
        return {};
    }

    auto screen = platform.screens().main();
    if (!screen && !screens.empty())
        screen = screens.front();
    log.info(format("No physical notch — using virtual notch on %s",
                    screen ? screen->localizedName.c_str() : "nil"));
    if (screen)
        return virtualNotch(*screen, log);

    log.error("No screens available at all — returning zero-sized info");
    return {};
}

} // namespace orvelle::NotchDetector
