#include "views/ViewFixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cstdlib>

namespace orvelle {

ViewFixture::ViewFixture() {
    notchState.notchSize = Size{180, 32};
    window.setColor(QColor(0x5a, 0x6b, 0x7c)); // a desktop, for the pictures
    window.resize(566, 220);
    root = host.showNotchContent(window, environment);
    window.show();
}

void ViewFixture::turn() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

bool ViewFixture::eventually(const std::function<bool()>& condition, int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

void ViewFixture::settle() {
    turn();
    ASSERT_TRUE(eventually([this] {
        for (const auto* spring : root->findChildren<QObject*>())
            if (spring->inherits("orvelle::SpringValue") && spring->property("running").toBool())
                return false;
        return true;
    }));
}

void ViewFixture::show(NotchExpandedState state) {
    notchState.expandedState = state;
    settle();
}

void ViewFixture::show(ActivePanel panel) {
    notchState.activePanel = panel;
    show(NotchExpandedState::expanded);
}

QQuickItem* ViewFixture::item(const QString& objectName) const {
    std::function<QQuickItem*(QQuickItem*)> find = [&](QQuickItem* at) -> QQuickItem* {
        if (at->objectName() == objectName)
            return at;
        for (auto* child : at->childItems())
            if (auto* found = find(child))
                return found;
        return nullptr;
    };
    return find(root);
}

QString ViewFixture::textOf(const QString& objectName) const {
    const auto* found = item(objectName);
    return found ? found->property("text").toString() : QStringLiteral("<no item>");
}

QRectF ViewFixture::frameOf(const QString& objectName) const {
    const auto* found = item(objectName);
    return found ? found->mapRectToScene(found->boundingRect()) : QRectF();
}

void ViewFixture::click(const QString& objectName) {
    const QPointF at = frameOf(objectName).center();
    const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, at, Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &event);
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    turn();
}

void ViewFixture::picture(const std::string& name, QQuickWindow& of) {
    const char* folder = std::getenv("ORVELLE_PICTURES");
    if (!folder)
        return;
    settle();
    of.grabWindow().save(
        QStringLiteral("%1/%2.png").arg(QString::fromUtf8(folder), QString::fromStdString(name)));
}

} // namespace orvelle
