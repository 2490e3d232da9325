#include "Platform/Linux/LinuxSharePicker.h"

#include "Platform/Linux/ScreenCoordinates.h"
#include "Platform/Linux/X11PanelWindow.h"

#include <QGuiApplication>

namespace orvelle {

namespace {

constexpr const char* look = "QMenu { background: #1f1f1f; color: #e6e6e6; padding: 4px;"
                             "  border: 1px solid #3a3a3a; }"
                             "QMenu::item { padding: 4px 26px 4px 12px; border-radius: 5px; }"
                             "QMenu::item:selected { background: #3d3d3d; }";

QPoint placeBeside(const QRect& anchor, Edge edge, const QSize& size) {
    const QPoint middle = anchor.center();
    switch (edge) {
    case Edge::top:
        return {middle.x() - size.width() / 2, anchor.top() - size.height()};
    case Edge::leading:
        return {anchor.left() - size.width(), middle.y() - size.height() / 2};
    case Edge::trailing:
        return {anchor.right() + 1, middle.y() - size.height() / 2};
    case Edge::bottom:
        break;
    }
    return {middle.x() - size.width() / 2, anchor.bottom() + 1};
}

} // namespace

LinuxSharePicker::LinuxSharePicker(Pasteboard& pasteboard)
    : services_(pasteboard, qEnvironmentVariable("PATH")) {}

std::optional<Rect> LinuxSharePicker::keyWindowContent() const {
    const QWindow* key = QGuiApplication::focusWindow();
    if (!key)
        for (const auto* window : QGuiApplication::topLevelWindows())
            if (window->isVisible() && X11PanelWindow::of(*window))
                key = window;
    if (!key)
        return std::nullopt;
    return ScreenCoordinates::fromQt(QRectF(key->geometry()));
}

void LinuxSharePicker::show(const std::vector<std::string>& urls, const Rect& anchor,
                            Edge preferredEdge) {
    menu_ = std::make_unique<QMenu>();
    menu_->setStyleSheet(QLatin1String(look));
    menu_->setAccessibleName(QStringLiteral("Share"));
    for (const auto& service : services_.servicesFor(urls))
        QObject::connect(menu_->addAction(service.title), &QAction::triggered, menu_.get(),
                         service.perform);
    menu_->popup(placeBeside(ScreenCoordinates::toQt(anchor), preferredEdge, menu_->sizeHint()));
}

} // namespace orvelle
