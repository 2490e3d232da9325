#pragma once

#include "Core/SettingsEnvironment.h"
#include "Core/ViewHost.h"

#include <functional>
#include <memory>
#include <utility>

namespace orvelle {

/// A window of the program's, as the test's host shows it.
struct NullAppWindow {
    AppWindow::Description description;
    std::function<void()> onComplete;
    std::function<void()> closed;
    bool isShown = false;
    int madeCount = 0;
    int frontCount = 0; ///< beyond the making

    /// As the user does; the program hears of it.
    void close() {
        isShown = false;
        closed();
    }
};

/// Draws nothing, and counts what it was asked to draw.
class NullViewHost : public ViewHost {
public:
    int notchContentCount = 0;
    std::function<void()> closePanel; ///< what the last content was given for it
    std::function<void(const NotchEnvironment&)> notchContentShown;
    NullAppWindow settings;
    NullAppWindow onboarding;

    void showNotchContent(PanelWindow&, const NotchEnvironment& environment) override {
        ++notchContentCount;
        closePanel = environment.closePanel;
        if (notchContentShown)
            notchContentShown(environment);
    }
    std::unique_ptr<AppWindow> showSettings(const AppWindow::Description& description,
                                            const SettingsEnvironment&,
                                            std::function<void()> closed) override {
        return show(settings, description, {}, std::move(closed));
    }
    std::unique_ptr<AppWindow> showOnboarding(const AppWindow::Description& description,
                                              const NotchEnvironment&,
                                              std::function<void()> onComplete,
                                              std::function<void()> closed) override {
        return show(onboarding, description, std::move(onComplete), std::move(closed));
    }

private:
    class Window : public AppWindow {
    public:
        explicit Window(NullAppWindow& window) : window_(window) {}
        Window(const Window&) = delete;
        Window& operator=(const Window&) = delete;
        ~Window() override { window_.isShown = false; }
        bool isVisible() const override { return window_.isShown; }
        void makeKeyAndOrderFront() override { ++window_.frontCount; }

    private:
        NullAppWindow& window_;
    };

    static std::unique_ptr<AppWindow> show(NullAppWindow& window,
                                           const AppWindow::Description& description,
                                           std::function<void()> onComplete,
                                           std::function<void()> closed) {
        window.description = description;
        window.onComplete = std::move(onComplete);
        window.closed = std::move(closed);
        window.isShown = true;
        ++window.madeCount;
        return std::make_unique<Window>(window);
    }
};

} // namespace orvelle
