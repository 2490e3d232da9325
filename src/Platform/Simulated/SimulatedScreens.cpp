#include "Platform/Simulated/SimulatedWindows.h"

namespace orvelle {

SimulatedScreens::SimulatedScreens() {
    constexpr Size size{1512, 982};
    constexpr double menuBarHeight = 24;
    const Screen screen{"Simulated Display",
                        {{0, 0}, size},
                        {{0, 0}, {size.width, size.height - menuBarHeight}},
                        {},
                        {},
                        {}};
    list = {screen};
    mainScreen = screen;
}

} // namespace orvelle
