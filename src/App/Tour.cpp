#include "App/Tour.h"

#include "App/AppDelegate.h"
#include "Platform/Qt/QuickPanel.h"
#include "Views/Qt/SpringValue.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPixmap>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>
#include <cstdio>

namespace orvelle {

namespace {

constexpr int lookInterval = 50;   // milliseconds
constexpr int settlingTime = 2500; // lets two samples of the system monitor come in
constexpr int longestWait = 15000; // milliseconds a stop may take
constexpr int desktopMargin = 24;  // points of desktop around the panel

const QQuickWindow* quickWindow(AppDelegate& app) {
    if (!app.notchWindowController)
        return nullptr;
    auto* panel = dynamic_cast<QuickPanel*>(app.notchWindowController->window());
    return panel ? &panel->quickWindow() : nullptr;
}

/// Loaded views hang in the tree of items, springs in that of objects. What is still on its way has
/// a spinner in its place.
bool moves(const QQuickItem& item) {
    if (item.isVisible() && item.objectName() == QLatin1String("spinner"))
        return true;
    for (const auto* spring : item.findChildren<SpringValue*>())
        if (spring->isRunning())
            return true;
    const auto children = item.childItems();
    return std::any_of(children.begin(), children.end(),
                       [](const QQuickItem* child) { return moves(*child); });
}

} // namespace

Tour::Tour(AppDelegate& app, const std::string& directory)
    : app_(app), directory_(QString::fromStdString(directory)) {
    addStops();
    watch_.setInterval(lookInterval);
    connect(&watch_, &QTimer::timeout, this, &Tour::look);
    QTimer::singleShot(settlingTime, this, &Tour::next);
}

void Tour::addStops() {
    auto& state = app_.notchState;
    stops_.push_back({QStringLiteral("collapsed"),
                      [&] { state.expandedState = NotchExpandedState::collapsed; }});
    stops_.push_back(
        {QStringLiteral("hover"), [&] { state.expandedState = NotchExpandedState::hovering; }});
    for (const auto panel : app_.panelOrderManager.visiblePanels()) {
        const auto name = rawValue(panel);
        stops_.push_back({QLatin1String(name.data(), static_cast<int>(name.size())), [&, panel] {
                              state.activePanel = panel;
                              state.expandedState = NotchExpandedState::expanded;
                          }});
    }
}

void Tour::next() {
    if (index_ == stops_.size()) {
        QCoreApplication::exit(0);
        return;
    }
    if (!directory_.mkpath(QStringLiteral("."))) {
        fail(QStringLiteral("cannot make the folder"));
        return;
    }
    stops_[index_].go();
    since_.start();
    watch_.start();
}

void Tour::look() {
    if (!isStill()) {
        if (since_.elapsed() > longestWait)
            fail(QStringLiteral("the view does not come to rest"));
        return;
    }
    watch_.stop();
    if (!takePicture()) {
        fail(QStringLiteral("no picture could be written"));
        return;
    }
    ++index_;
    next();
}

bool Tour::isStill() const {
    const auto* window = quickWindow(app_);
    if (!window || since_.elapsed() < 2 * lookInterval)
        return false;
    if (app_.notchWindowController->isAnimatingCollapse())
        return false;
    return !moves(*window->contentItem());
}

bool Tour::takePicture() {
    const auto* window = quickWindow(app_);
    const auto around =
        window->geometry().marginsAdded({desktopMargin, 0, desktopMargin, desktopMargin});
    const auto picture =
        window->screen()->grabWindow(0, around.x(), around.y(), around.width(), around.height());
    return !picture.isNull() &&
           picture.save(directory_.filePath(stops_[index_].name + QStringLiteral(".png")));
}

void Tour::fail(const QString& reason) {
    watch_.stop();
    std::fprintf(stderr, "orvelle: tour: %s: %s\n", qPrintable(stops_[index_].name),
                 qPrintable(reason));
    QCoreApplication::exit(1);
}

} // namespace orvelle
