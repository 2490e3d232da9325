#include "Features/Mirror/MirrorExpandedBinding.h"

#include "Features/Mirror/MirrorManager.h"

#include <QEvent>
#include <QScreen>

namespace orvelle {

MirrorExpandedBinding::~MirrorExpandedBinding() {
    setShown(false);
}

void MirrorExpandedBinding::attach(const ViewEnvironment& environment) {
    auto& manager = environment.notch.mirrorManager;
    manager_ = &manager;
    view_.emplace(manager, environment.platform);
    follow(manager.latestFrame, manager.isMirrored, manager.hasPermission);
}

void MirrorExpandedBinding::refresh() {
    show_showsPreview(view_->showsPreview());
    show_frame(sharedImage(manager_->latestFrame->value_or(Image())));
    show_horizontalScale(view_->horizontalScale());
    show_startingText(toQt(view_->startingText()));
    show_toggleSymbol(toQt(view_->toggleSymbol()));
    show_toggleHelp(toQt(view_->toggleHelp()));
    show_permissionSymbol(toQt(view_->permissionSymbol()));
    show_permissionTitle(toQt(view_->permissionTitle()));
    show_permissionText(toQt(view_->permissionText()));
    show_settingsButton(toQt(view_->settingsButton()));
}

void MirrorExpandedBinding::setShown(bool isShown) {
    if (isShown == isShown_)
        return;
    isShown_ = isShown;
    runCamera();
    Q_EMIT isShownChanged();
}

void MirrorExpandedBinding::setWindow(QWindow* window) {
    if (window == window_)
        return;
    if (window_) {
        disconnect(window_, nullptr, this, nullptr);
        window_->removeEventFilter(this);
    }
    window_ = window;
    if (window_) {
        window_->installEventFilter(this);
        connect(window_, &QWindow::visibleChanged, this, [this] { runCamera(); });
        connect(window_, &QWindow::screenChanged, this, [this] { followScreen(); });
    }
    followScreen();
    Q_EMIT windowChanged();
}

void MirrorExpandedBinding::followScreen() {
    disconnect(screenSize_);
    if (window_ && window_->screen())
        screenSize_ =
            connect(window_->screen(), &QScreen::geometryChanged, this, [this] { runCamera(); });
    runCamera();
}

/// Another program may take the window from the screen, of which the window hears by this alone.
bool MirrorExpandedBinding::eventFilter(QObject* window, QEvent* event) {
    if (window == window_ && event->type() == QEvent::Expose)
        runCamera();
    return Binding::eventFilter(window, event);
}

bool MirrorExpandedBinding::isOnScreen() const {
    // An empty screen stands in while none is connected.
    return isShown_ && window_ && window_->isVisible() && window_->isExposed() &&
           window_->screen() && !window_->screen()->geometry().isEmpty();
}

void MirrorExpandedBinding::runCamera() {
    if (isOnScreen() == isRunning_)
        return;
    isRunning_ = !isRunning_;
    if (isRunning_)
        view_->appear();
    else
        view_->disappear();
}

void MirrorExpandedBinding::toggleMirrored() {
    view_->toggleMirrored();
}

void MirrorExpandedBinding::openSystemSettings() {
    view_->openSystemSettings();
}

} // namespace orvelle
