#pragma once

#include "Core/NotchEnvironment.h"
#include "Platform/Platform.h"

#include <QQmlEngine>

#include <functional>

namespace orvelle {

/// What the views of one engine draw.
struct ViewEnvironment {
    NotchEnvironment notch;
    Platform& platform;
    /// Gives the keyboard to the window, for a field that was pressed; empty without such a window.
    std::function<void()> takeKeyboard;
    std::function<void()> openSettings; ///< empty when there is no settings window to open
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
