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
    /// `openSettings` opens the settings window; without it no menu offers it.
    explicit QtViewHost(Platform& platform, std::function<void()> openSettings = {});
    ~QtViewHost() override;

    void showNotchContent(PanelWindow& window, const NotchEnvironment& environment) override;

    /// The same for a bare window, which must outlive this host. Replaces what was shown before.
    /// `takeKeyboard` gives the keyboard to that window.
    QQuickItem* showNotchContent(QQuickWindow& window, const NotchEnvironment& environment,
                                 std::function<void()> takeKeyboard = {});

private:
    Platform& platform_;
    const std::function<void()> openSettings_;
    std::unique_ptr<ViewEngine> engine_;
    std::unique_ptr<QQuickItem> content_;
};

} // namespace orvelle
