#pragma once

#include "Core/ViewHost.h"
#include "Platform/Platform.h"
#include "Views/Qt/ViewEngine.h"

#include <QQuickItem>

#include <functional>
#include <memory>

class QQuickWindow;

namespace orvelle {

/// Draws the views with Qt Quick. The windows that it fills are Qt Quick's own; into any other it
/// draws nothing. Needs the application object to exist.
class QtViewHost : public ViewHost {
public:
    explicit QtViewHost(Platform& platform);
    ~QtViewHost() override;

    void showNotchContent(PanelWindow& window, const NotchEnvironment& environment) override;
    std::unique_ptr<AppWindow> showSettings(const AppWindow::Description& description,
                                            const SettingsEnvironment& environment,
                                            std::function<void()> closed) override;
    std::unique_ptr<AppWindow> showOnboarding(const AppWindow::Description& description,
                                              const NotchEnvironment& environment,
                                              std::function<void()> onComplete,
                                              std::function<void()> closed) override;

    /// The same for a bare window, which must outlive this host. Replaces what was shown before.
    /// `takeKeyboard` gives the keyboard to that window.
    QQuickItem* showNotchContent(QQuickWindow& window, const NotchEnvironment& environment,
                                 std::function<void()> takeKeyboard = {});

private:
    Platform& platform_;
    std::unique_ptr<ViewEngine> engine_;
    std::unique_ptr<QQuickItem> content_;
};

} // namespace orvelle
