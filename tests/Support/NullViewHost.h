#pragma once

#include "Core/ViewHost.h"

namespace orvelle {

/// Draws nothing, and counts what it was asked to draw.
class NullViewHost : public ViewHost {
public:
    int notchContentCount = 0;
    void showNotchContent(PanelWindow&, const NotchEnvironment&) override { ++notchContentCount; }
};

} // namespace orvelle
