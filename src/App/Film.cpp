#include "App/Film.h"

#include "App/AppDelegate.h"
#include "App/HeldRunLoop.h"
#include "App/PanelWatch.h"
#include "Views/Qt/HeldAnimations.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPixmap>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>

#include <utility>

namespace orvelle {

namespace {

using State = NotchExpandedState;

constexpr std::pair<State, State> changes[] = {
    {State::collapsed, State::hovering}, {State::hovering, State::expanded},
    {State::expanded, State::hovering},  {State::hovering, State::collapsed},
    {State::collapsed, State::expanded}, {State::expanded, State::collapsed},
};
/// Milliseconds after the change: the shape moves most at first.
constexpr int moments[] = {16, 32, 48, 64, 80, 104, 128, 160, 208, 272, 360, 560};
constexpr int frameTime = 8;       // milliseconds
constexpr int longestMove = 5000;  // milliseconds of film
constexpr int longestLook = 10000; // milliseconds for the screen to show what is drawn
constexpr int screenLook = 10;     // milliseconds between two looks at it
constexpr int filmMargin = 24;     // points of desktop around the open panel

QString nameOf(State state) {
    switch (state) {
    case State::collapsed:
        return QStringLiteral("collapsed");
    case State::hovering:
        return QStringLiteral("hovering");
    case State::expanded:
        return QStringLiteral("expanded");
    case State::fullExpanded:
        break;
    }
    return QStringLiteral("fullExpanded");
}

bool becomesTrue(const std::function<bool()>& condition) {
    QElapsedTimer since;
    since.start();
    while (!condition()) {
        if (since.elapsed() > longestLook)
            return false;
        QEventLoop pause;
        QTimer::singleShot(screenLook, &pause, &QEventLoop::quit);
        pause.exec();
    }
    return true;
}

} // namespace

Film::Film(AppDelegate& app, HeldRunLoop& runLoop, const QDir& directory)
    : app_(app), runLoop_(runLoop), directory_(directory) {}

QString Film::shoot() {
    window_ = PanelWatch::window(app_);
    if (!window_)
        return QStringLiteral("there is no panel");
    if (!directory_.mkpath(QStringLiteral(".")))
        return QStringLiteral("cannot make the folder");
    HeldAnimations animations;
    animations_ = &animations;
    runLoop_.hold();
    app_.notchState.activePanel = ActivePanel::media;
    rest(State::expanded);
    area_ = window_->geometry().marginsAdded({filmMargin, 0, filmMargin, filmMargin});
    rest(State::collapsed);
    closed_ = window_->geometry();
    QString complaint;
    if (becomesTrue([this] {
            // Everything but the closed notch is the desktop as soon as two looks agree.
            const auto before = std::exchange(desktop_, screen());
            return before == desktop_ && isShown();
        })) {
        for (const auto& [from, to] : changes)
            if (complaint.isEmpty() && !shootChange(from, to))
                complaint = nameOf(from) + QStringLiteral(" to ") + nameOf(to);
    } else {
        complaint = QStringLiteral("the desktop does not rest");
    }
    rest(State::collapsed);
    runLoop_.release();
    animations_ = nullptr;
    return complaint;
}

bool Film::shootChange(State from, State to) {
    rest(from);
    app_.notchState.expandedState = to;
    int time = 0;
    int number = 0;
    for (const int moment : moments) {
        for (; time < moment; time += frameTime)
            passTime(frameTime);
        const auto name = QStringLiteral("%1-%2-%3.png")
                              .arg(nameOf(from), nameOf(to))
                              .arg(++number, 2, 10, QLatin1Char('0'));
        if (!becomesTrue([this] { return isShown(); }) || !takePicture(name))
            return false;
    }
    return true;
}

bool Film::takePicture(const QString& name) {
    return screen().save(directory_.filePath(name));
}

void Film::rest(State state) {
    app_.notchState.expandedState = state;
    int passed = 0;
    do {
        passTime(frameTime);
        passed += frameTime;
    } while (PanelWatch::isMoving(app_) && passed < longestMove);
}

void Film::passTime(int milliseconds) {
    QCoreApplication::processEvents();
    animations_->step(milliseconds);
    runLoop_.advance(milliseconds / 1000.0);
    QCoreApplication::processEvents();
}

QImage Film::screen() const {
    return window_->screen()
        ->grabWindow(0, area_.x(), area_.y(), area_.width(), area_.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

bool Film::isShown() const {
    const auto drawn = window_->grabWindow().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto seen = screen();
    const double scale = window_->effectiveDevicePixelRatio();
    const QPoint corner = ((window_->position() - area_.topLeft()) * scale);
    const QRect closed(((closed_.topLeft() - area_.topLeft()) * scale), closed_.size() * scale);
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) {
            const QPoint at = corner + QPoint(x, y);
            if (!seen.valid(at))
                continue;
            const QRgb pixel = drawn.pixel(x, y);
            const QRgb opaque = pixel | 0xff000000;
            if (qAlpha(pixel) == 255 && seen.pixel(at) != opaque)
                return false;
            if (qAlpha(pixel) == 0 && !closed.contains(at) && seen.pixel(at) != desktop_.pixel(at))
                return false;
        }
    return true;
}

} // namespace orvelle
