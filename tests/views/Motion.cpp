#include "views/Motion.h"

#include "Views/Qt/NotchShapeItem.h"
#include "Views/Qt/SpringValue.h"

#include <QPainter>

#include <algorithm>

namespace orvelle {

namespace {

double opacityOnScreen(const QQuickItem* item) {
    double opacity = 1;
    for (; item; item = item->parentItem())
        opacity *= item->opacity();
    return opacity;
}

void addPlaces(const QQuickItem* item, std::map<std::string, QRectF>& places) {
    const auto name = item->objectName();
    const bool isPart = name.startsWith("tab.") || name.startsWith("widget.") ||
                        name.endsWith("Wing") || name == "bottomRow" || name == "tabBar" ||
                        name == "panels" || name == "hoverBar" || name == "expandedContent";
    if (isPart && item->isVisible() && opacityOnScreen(item) > 0)
        places[name.toStdString()] = item->mapRectToScene(item->boundingRect());
    for (const auto* child : item->childItems())
        addPlaces(child, places);
}

/// Every pixel that the shape touches, and those beside it that a half-covered edge may reach.
QImage reachOf(const NotchShapeItem& shape, QSize size, double margin) {
    QImage reach(size, QImage::Format_Grayscale8);
    reach.fill(0);
    QPainter painter(&reach);
    painter.translate(shape.mapToScene({0, 0}));
    painter.fillPath(shape.path(), Qt::white);
    painter.strokePath(shape.path(), QPen(Qt::white, 2 * margin));
    return reach;
}

} // namespace

Motion::Motion() {
    battery.batteryLevel = 87;
    MediaInfo playing;
    playing.title = "A title that fills its wing";
    playing.artist = "An artist";
    media.currentMedia = playing;
    weather.weather.update([](auto& data) { data.locationName = "Oslo"; });
    hoverLayout.placements.update([](auto& placements) {
        for (auto& placement : placements)
            placement.isVisible = true;
    });
    time.isEnabled = true;
    pomodoro.isEnabled = true;
    fileShelf.isEnabled = true;
    notes.isEnabled = true;
    systemMonitor.isEnabled = true;
    notchState.activePanel = ActivePanel::systemMonitor;
    turn();
}

bool Motion::isMoving() const {
    std::function<bool(const QQuickItem*)> moves = [&](const QQuickItem* item) {
        for (const auto* spring : item->findChildren<SpringValue*>())
            if (spring->isRunning())
                return true;
        const auto children = item->childItems();
        return std::any_of(children.begin(), children.end(), moves);
    };
    return moves(root);
}

void Motion::frame() {
    animations.step(frameTime);
    turn();
    picture = window.grabWindow(); // only a frame that is drawn has its rows laid out
}

void Motion::move(NotchExpandedState to, const std::function<void()>& look) {
    notchState.expandedState = to;
    turn();
    picture = window.grabWindow();
    look();
    int frames = 0;
    do {
        frame();
        look();
        ASSERT_LT(++frames, 400) << "it does not come to rest";
    } while (isMoving());
}

void Motion::rest(NotchExpandedState state) {
    move(state, [] {});
}

Motion::Places Motion::places() const {
    Places found;
    addPlaces(root, found);
    return found;
}

int Motion::strayPixels() const {
    const auto reach = reachOf(*qobject_cast<NotchShapeItem*>(item("shape")), picture.size(), 2);
    int strays = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            strays += qGray(reach.pixel(x, y)) == 0 && picture.pixel(x, y) != window.color().rgb();
    return strays;
}

bool Motion::isBodyFilled() const {
    const auto* shape = qobject_cast<NotchShapeItem*>(item("shape"));
    const auto frame = shape->mapRectToScene(shape->boundingRect());
    const double inset = shape->bodyInset();
    const int left = static_cast<int>(frame.left() + inset) + 2;
    const int right = static_cast<int>(frame.right() - inset) - 3;
    // The border comes and goes there.
    const auto isBlack = [&](int x, int y) { return qGray(picture.pixel(x, y)) < 40; };
    const double end =
        std::min<double>(picture.height(), frame.bottom() - shape->bottomCornerRadius());
    for (int y = 1; y < end; ++y)
        if (!isBlack(left, y) || !isBlack(right, y))
            return false;
    return true;
}

} // namespace orvelle
