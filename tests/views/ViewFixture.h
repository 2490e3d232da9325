#pragma once

#include "Core/HoverLayoutManager.h"
#include "Core/NotchEnvironment.h"
#include "Core/PanelOrderManager.h"
#include "Core/UndoOffer.h"
#include "Features/Battery/BatteryManager.h"
#include "Features/Calendar/CalendarManager.h"
#include "Features/Clipboard/ClipboardManager.h"
#include "Features/FileShelf/FileShelfManager.h"
#include "Features/HUD/HUDManager.h"
#include "Features/Media/MediaManager.h"
#include "Features/Mirror/MirrorManager.h"
#include "Features/Notes/NotesManager.h"
#include "Features/Pomodoro/PomodoroManager.h"
#include "Features/StockTicker/StockTickerManager.h"
#include "Features/SystemMonitor/SystemMonitorManager.h"
#include "Features/Theme/ThemeManager.h"
#include "Features/Time/TimeManager.h"
#include "Features/Todo/TodoManager.h"
#include "Features/Weather/WeatherManager.h"
#include "Models/NotchState.h"
#include "Platform/Simulated/SimulatedPlatform.h"
#include "Views/Qt/HeldAnimations.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/QtViewHost.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace orvelle {

/// A window that asks the views about each step of the wheel first, as a panel does.
class StageWindow : public QQuickWindow {
public:
    QQuickItem* content = nullptr;

protected:
    /// The event stays accepted when the views have scrolled by it.
    bool event(QEvent* event) override;
};

/// Every manager over one simulated machine, and the notch's views over them in a real window that
/// nobody sees.
class ViewFixture : public testing::Test {
protected:
    ViewFixture();

    /// Turns the event loop, and moves the animations on, until the condition holds; says whether
    /// it came to.
    bool eventually(const std::function<bool()>& condition, int milliseconds = 3000);
    /// Lets pending refreshes happen.
    static void turn();
    /// Until nothing moves any more.
    void settle();

    /// The notch in this state, at rest.
    void show(NotchExpandedState state);
    void show(ActivePanel panel);

    QQuickItem* item(const QString& objectName) const { return item(root, objectName); }
    /// The first of that name in the tree below `top`, or null.
    static QQuickItem* item(QQuickItem* top, const QString& objectName);
    QString textOf(const QString& objectName) const { return textOf(root, objectName); }
    static QString textOf(QQuickItem* top, const QString& objectName);
    static QStringList titlesOf(const MenuValue& menu);
    QRectF frameOf(const QString& objectName) const;
    void click(const QString& objectName);
    /// The left button, at a point of the window.
    void mouse(QEvent::Type type, QPointF at);
    /// Turns the wheel there, a notch is 120 units and upwards positive; says whether the views
    /// have scrolled by it.
    bool wheel(QPointF at, int units);
    /// A view's part by itself: the QML file of this name in the middle of the window.
    std::unique_ptr<QQuickItem> part(const QString& name, const QVariantMap& properties);
    /// Keeps a picture when ORVELLE_PICTURES names a folder.
    void picture(const std::string& name) { picture(name, window); }
    void picture(const std::string& name, QQuickWindow& of);

    SimulatedPlatform platform;
    NotchState notchState{platform};
    MediaManager media{platform};
    FileShelfManager fileShelf{platform};
    HUDManager hud{{}, platform};
    CalendarManager calendar{platform};
    BatteryManager battery{platform};
    ClipboardManager clipboard{platform};
    SystemMonitorManager systemMonitor{platform};
    WeatherManager weather{platform};
    PomodoroManager pomodoro{platform};
    TodoManager todo{platform};
    NotesManager notes{platform};
    StockTickerManager stockTicker{platform};
    TimeManager time{platform};
    ThemeManager theme{platform};
    MirrorManager mirror{platform};
    HoverLayoutManager hoverLayout{platform};
    PanelOrderManager panelOrder{platform};
    PanelUndoOffer undo{notchState, platform.runLoopPort};
    NotchEnvironment environment{notchState,
                                 media,
                                 fileShelf,
                                 hud,
                                 calendar,
                                 battery,
                                 clipboard,
                                 systemMonitor,
                                 weather,
                                 pomodoro,
                                 todo,
                                 notes,
                                 stockTicker,
                                 time,
                                 theme,
                                 mirror,
                                 hoverLayout,
                                 panelOrder,
                                 undo,
                                 [this] { ++settingsOpened; },
                                 [this] { ++panelClosed; },
                                 [this](std::string_view key) {
                                     shortcuts.emplace_back(key);
                                     return key == ",";
                                 }};
    HeldAnimations animations; ///< they move with the tests' steps, not with the clock
    int settingsOpened = 0;
    int panelClosed = 0;
    std::vector<std::string> shortcuts; ///< that were asked for

    StageWindow window;
    QtViewHost host{platform};
    QQuickItem* root = nullptr;
};

} // namespace orvelle
