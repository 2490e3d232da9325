#include "Views/Qt/QtViewHost.h"

#include "Platform/PanelWindow.h"
#include "Platform/Qt/QuickPanel.h"
#include "Views/Qt/Face.h"
#include "Views/Qt/NotchShapeItem.h"
#include "Views/Qt/QtAppWindow.h"
#include "Views/Qt/WheelArea.h"

#include <QGuiApplication>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickWindow>
#include <QtDebug>

#include <utility>

namespace orvelle {

QtViewHost::QtViewHost(Platform& platform) : platform_(platform) {
    QGuiApplication::setFont(panelFace());
}

QtViewHost::~QtViewHost() = default;

void QtViewHost::showNotchContent(PanelWindow& window, const NotchEnvironment& environment) {
    auto* panel = dynamic_cast<QuickPanel*>(&window);
    if (!panel)
        return;
    auto& quickWindow = panel->quickWindow();
    auto* content = showNotchContent(quickWindow, environment, [&window] { window.makeKey(); });
    if (!content)
        return;
    panel->setScroller([content = QPointer<QQuickItem>(content)](const QWheelEvent& step) {
        return content && WheelArea::scroll(*content, step);
    });
    auto* shape = content->property("shape").value<NotchShapeItem*>();
    QObject::connect(&quickWindow, &QQuickWindow::afterAnimating, shape, [=, &quickWindow] {
        // Qt tells of a new size when the server has confirmed it; a frame may come before that.
        content->setSize(QSizeF(quickWindow.size()));
        panel->setShapeMask(shape->region().translated(shape->position().toPoint()));
    });
}

std::unique_ptr<AppWindow> QtViewHost::showSettings(const AppWindow::Description& description,
                                                    const SettingsEnvironment& environment,
                                                    std::function<void()> closed) {
    return std::make_unique<QtAppWindow>(
        description, ViewEnvironment{environment.notch, platform_, {}, environment, {}},
        QStringLiteral("SettingsView"), std::move(closed));
}

std::unique_ptr<AppWindow> QtViewHost::showOnboarding(const AppWindow::Description& description,
                                                      const NotchEnvironment& environment,
                                                      std::function<void()> onComplete,
                                                      std::function<void()> closed) {
    return std::make_unique<QtAppWindow>(
        description, ViewEnvironment{environment, platform_, {}, {}, std::move(onComplete)},
        QStringLiteral("OnboardingView"), std::move(closed));
}

QQuickItem* QtViewHost::showNotchContent(QQuickWindow& window, const NotchEnvironment& environment,
                                         std::function<void()> takeKeyboard) {
    content_.reset();
    engine_ = std::make_unique<ViewEngine>(
        ViewEnvironment{environment, platform_, std::move(takeKeyboard)});
    QQmlComponent component(engine_.get(),
                            QUrl(QStringLiteral("qrc:/Orvelle/NotchContentView.qml")));
    content_.reset(qobject_cast<QQuickItem*>(component.create()));
    if (!content_) {
        qCritical() << component.errors();
        return nullptr;
    }
    content_->setParentItem(window.contentItem());
    content_->setFocus(true);
    const auto fill = [content = content_.get(), &window] {
        content->setSize(QSizeF(window.size()));
    };
    fill();
    QObject::connect(&window, &QQuickWindow::widthChanged, content_.get(), fill);
    QObject::connect(&window, &QQuickWindow::heightChanged, content_.get(), fill);
    return content_.get();
}

} // namespace orvelle
