#pragma once

#include "Core/ViewHost.h"
#include "Views/Qt/ViewEngine.h"

#include <QQuickWindow>

#include <functional>
#include <memory>

namespace orvelle {

/// An ordinary window with one view of the module "Orvelle" in it, which has an engine of its own:
/// all that it loads is gone with it.
class QtAppWindow : public AppWindow {
public:
    QtAppWindow(const Description& description, ViewEnvironment environment, const QString& view,
                std::function<void()> closed);
    ~QtAppWindow() override;

    bool isVisible() const override;
    void makeKeyAndOrderFront() override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace orvelle
