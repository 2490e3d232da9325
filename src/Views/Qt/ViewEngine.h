#pragma once

#include "Core/NotchEnvironment.h"
#include "Core/SettingsEnvironment.h"
#include "Platform/Platform.h"

#include <QQmlEngine>

#include <functional>
#include <optional>

namespace orvelle {

/// What the views of one engine draw.
struct ViewEnvironment {
    NotchEnvironment notch;
    Platform& platform;
    /// Gives the keyboard to the window, for a field that was pressed; empty without such a window.
    std::function<void()> takeKeyboard = {};
    std::optional<SettingsEnvironment> settings = {}; ///< of the settings' window
    std::function<void()> completeOnboarding = {};    ///< of the wizard's window
};

/// A QML engine whose views share one environment. Several may live in one process.
class ViewEngine : public QQmlEngine {
    Q_OBJECT

public:
    explicit ViewEngine(ViewEnvironment environment);

    const ViewEnvironment& environment() const { return environment_; }

private:
    const ViewEnvironment environment_;
};

} // namespace orvelle
