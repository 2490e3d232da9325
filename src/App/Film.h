#pragma once

#include "Models/NotchState.h"

#include <QDir>
#include <QImage>
#include <QRect>
#include <QString>

#include <functional>

class QQuickWindow;

namespace orvelle {

class AppDelegate;
class HeldAnimations;
class HeldRunLoop;

/// Twelve pictures of each change of the notch's state, as the screen shows it at fixed moments:
/// time stands still while a picture is taken. Draws with the software renderer, which leaves the
/// animations to the film.
class Film {
public:
    /// Pictures go to `directory`, named by change and number.
    Film(AppDelegate& app, HeldRunLoop& runLoop, const QDir& directory);

    /// Takes them all, and leaves the notch closed. Says what went wrong, if anything did.
    QString shoot();

private:
    bool shootChange(NotchExpandedState from, NotchExpandedState to);
    bool takePicture(const QString& name);
    void rest(NotchExpandedState state);
    void passTime(int milliseconds);
    /// What the screen shows of the panel's place and the desktop around it.
    QImage screen() const;
    /// Whether that is what the panel has drawn, to the pixel.
    bool isShown() const;

    AppDelegate& app_;
    HeldRunLoop& runLoop_;
    const QDir directory_;
    QQuickWindow* window_ = nullptr;
    HeldAnimations* animations_ = nullptr; ///< while it shoots
    QRect area_;                           ///< of every picture, on the screen
    QRect closed_;                         ///< the closed notch
    QImage desktop_;                       ///< the area without anything but that
};

} // namespace orvelle
