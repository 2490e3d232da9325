#include "Views/Qt/QtAppWindow.h"

#include "Core/WindowPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QScreen>
#include <QTimer>
#include <QtDebug>

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

/// The window manager tells the height of a title bar when the window is shown, which is too late.
constexpr int titleBarHeight = 40;

QPoint place(QSize content, const QScreen& screen, double clearance) {
    const QRect whole = screen.geometry();
    const QRect free = screen.availableGeometry();
    const double top = windowTop(
        content.height() + titleBarHeight,
        {double(free.top() - whole.top()), double(free.bottom() + 1 - whole.top())}, clearance);
    return {free.center().x() - content.width() / 2, whole.top() + qRound(top)};
}

/// Hears of the user's closing, after the event.
class CloseWatch : public QObject {
public:
    CloseWatch(QWindow* window, std::function<void()> closed)
        : QObject(window), closed_(std::move(closed)) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Close)
            QTimer::singleShot(0, this, closed_);
        return false;
    }

private:
    std::function<void()> closed_;
};

} // namespace

struct QtAppWindow::Parts {
    explicit Parts(ViewEnvironment environment) : engine(std::move(environment)) {}

    ViewEngine engine;
    QQuickWindow window;
    std::unique_ptr<QQuickItem> root;
};

QtAppWindow::QtAppWindow(const Description& description, ViewEnvironment environment,
                         const QString& view, std::function<void()> closed)
    : parts_(std::make_unique<Parts>(std::move(environment))) {
    auto& window = parts_->window;
    window.setTitle(QString::fromStdString(description.title));
    window.setFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                    Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    QSize size(qRound(description.contentSize.width), qRound(description.contentSize.height));

    QQmlComponent component(&parts_->engine, QUrl(QStringLiteral("qrc:/Orvelle/%1.qml").arg(view)));
    parts_->root.reset(qobject_cast<QQuickItem*>(component.create()));
    if (auto* root = parts_->root.get()) {
        size = size.expandedTo(QSizeF(root->implicitWidth(), root->implicitHeight()).toSize());
        root->setParentItem(window.contentItem());
        root->setSize(size);
        root->setFocus(true);
    } else {
        qCritical() << component.errors();
    }
    window.setMinimumSize(size);
    window.setMaximumSize(size);
    window.resize(size);
    window.setFramePosition(place(size, *window.screen(), description.topClearance));

    window.installEventFilter(new CloseWatch(&window, std::move(closed)));
    window.show();
    makeKeyAndOrderFront();
}

QtAppWindow::~QtAppWindow() {
    parts_->window.hide();
    // The call may come from within the view, whose items must outlive it.
    auto* parts = parts_.release();
    QTimer::singleShot(0, qApp, [parts] { delete parts; });
}

bool QtAppWindow::isVisible() const {
    return parts_->window.isVisible();
}

void QtAppWindow::makeKeyAndOrderFront() {
    auto& window = parts_->window;
    if (window.windowStates() & Qt::WindowMinimized) // not every window manager heeds the flags
        window.showNormal();
    window.raise();
    window.requestActivate();
}

} // namespace orvelle
