#include "views/ViewFixture.h"

#include "Views/Qt/SpringValue.h"
#include "Views/Qt/WheelArea.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace orvelle {

bool StageWindow::event(QEvent* event) {
    if (event->type() != QEvent::Wheel)
        return QQuickWindow::event(event);
    event->setAccepted(WheelArea::scroll(*content, static_cast<QWheelEvent&>(*event)));
    return true;
}

ViewFixture::ViewFixture() {
    notchState.notchSize = Size{180, 32};
    window.setColor(QColor(0x5a, 0x6b, 0x7c)); // a desktop, for the pictures
    window.resize(566, 220);
    root = host.showNotchContent(window, environment);
    window.content = root;
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
        animations.step(16);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
    }
    return true;
}

void ViewFixture::settle() {
    turn();
    const auto moves = [](const SpringValue* spring) { return spring->isRunning(); };
    for (int step = 0; std::ranges::any_of(root->findChildren<SpringValue*>(), moves); ++step) {
        ASSERT_LT(step, 400) << "it does not come to rest";
        animations.step(50);
        turn();
    }
    window.grabWindow(); // only a frame that is drawn has its rows laid out
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    turn();
}

void ViewFixture::show(NotchExpandedState state) {
    notchState.expandedState = state;
    settle();
}

void ViewFixture::show(ActivePanel panel) {
    notchState.activePanel = panel;
    show(NotchExpandedState::expanded);
}

QQuickItem* ViewFixture::item(QQuickItem* top, const QString& objectName) {
    if (!top || top->objectName() == objectName)
        return top;
    for (auto* child : top->childItems())
        if (auto* found = item(child, objectName))
            return found;
    return nullptr;
}

QString ViewFixture::textOf(QQuickItem* top, const QString& objectName) {
    const auto* found = item(top, objectName);
    return found ? found->property("text").toString() : QStringLiteral("<no item>");
}

QStringList ViewFixture::titlesOf(const MenuValue& menu) {
    QStringList titles;
    for (const auto& entry : menu.entries)
        titles.append(QString::fromStdString(entry.title));
    return titles;
}

QRectF ViewFixture::frameOf(const QString& objectName) const {
    const auto* found = item(objectName);
    return found ? found->mapRectToScene(found->boundingRect()) : QRectF();
}

void ViewFixture::click(const QString& objectName) {
    const QPointF at = frameOf(objectName).center();
    mouse(QEvent::MouseButtonPress, at);
    mouse(QEvent::MouseButtonRelease, at);
}

void ViewFixture::mouse(QEvent::Type type, QPointF at) {
    const bool isDown = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, window.mapToGlobal(at),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
    turn();
}

bool ViewFixture::wheel(QPointF at, int units) {
    QWheelEvent event(at, window.mapToGlobal(at), {}, {0, units}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &event);
    return event.isAccepted();
}

std::unique_ptr<QQuickItem> ViewFixture::part(const QString& name, const QVariantMap& properties) {
    QQmlComponent component(qmlEngine(root), QUrl(QStringLiteral("qrc:/Orvelle/%1.qml").arg(name)));
    std::unique_ptr<QQuickItem> made(
        qobject_cast<QQuickItem*>(component.createWithInitialProperties(properties)));
    EXPECT_NE(made, nullptr) << component.errorString().toStdString();
    if (made)
        made->setParentItem(root);
    return made;
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
