#include "App/Tour.h"

#include "App/AppDelegate.h"
#include "App/Film.h"
#include "App/HeldRunLoop.h"
#include "App/PanelWatch.h"
#include "Platform/Linux/TrayMenu.h"
#include "Platform/UserDefaults.h"
#include "Settings/SettingsKeys.h"
#include "Settings/SettingsView.h"
#include "Views/Qt/Marquee.h"
#include "Views/Qt/SymbolImages.h"

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
constexpr int enoughLooks = 4;     // a change may take a moment to begin to move
constexpr int settlingTime = 2500; // lets two samples of the system monitor come in
constexpr int longestWait = 60000; // milliseconds a stop may take
constexpr int desktopMargin = 24;  // points of desktop around the panel
constexpr int windowTime = 700;    // milliseconds in which an ordinary window comes to rest
const QString settingsTitle = QStringLiteral("Orvelle Settings");
const QString wizardTitle = QStringLiteral("Welcome to Orvelle");
const QString menuTitle = QStringLiteral("Status Menu");

/// Those of this title that can be seen.
std::vector<const QWindow*> windowsTitled(const QString& title) {
    std::vector<const QWindow*> found;
    for (const auto* window : QGuiApplication::topLevelWindows())
        if (window->isVisible() && window->title() == title)
            found.push_back(window);
    return found;
}

/// What they cover together.
QRect frameOf(const std::vector<const QWindow*>& windows) {
    QRect frame;
    for (const auto* window : windows)
        frame |= window->geometry();
    return frame;
}

QQuickItem* itemNamed(QQuickItem* top, const QString& objectName) {
    if (top->objectName() == objectName)
        return top;
    for (auto* child : top->childItems())
        if (auto* found = itemNamed(child, objectName))
            return found;
    return nullptr;
}

/// The item of this name in the window of this title; null without one of them.
QQuickItem* itemIn(const QString& title, const QString& objectName) {
    for (const auto* window : windowsTitled(title))
        if (const auto* views = qobject_cast<const QQuickWindow*>(window))
            return itemNamed(views->contentItem(), objectName);
    return nullptr;
}

void click(QQuickItem* button) {
    if (button)
        QMetaObject::invokeMethod(button, "clicked");
}

} // namespace

Tour::Tour(AppDelegate& app, const std::string& directory)
    : app_(app), directory_(QString::fromStdString(directory)) {
    Marquee::holdsAll = true;
    addStops();
    watch_.setInterval(lookInterval);
    connect(&watch_, &QTimer::timeout, this, &Tour::look);
    QTimer::singleShot(settlingTime, this, &Tour::begin);
}

Tour::~Tour() = default;

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
    addMediaStops();
    addShelfStops();
    addTimerStops();
    addWeatherStops();
    addEmptyStops();
    addMenuStop();
    addSettingsStops();
    addWizardStops();
}

void Tour::addMediaStops() {
    const auto add = [&](const char* name, const char* themeMode, auto change) {
        stops_.push_back({QLatin1String(name), [this, themeMode, change] {
                              app_.mediaManager.stop(); // else the player would tell of its own
                              app_.mediaManager.currentMedia.update(change);
                              app_.themeManager.themeMode.set(themeMode);
                              app_.notchState.activePanel = ActivePanel::media;
                              app_.notchState.expandedState = NotchExpandedState::expanded;
                          }});
    };
    const auto asItIs = [](MediaInfo&) {};
    add("media-system", "system", asItIs);
    add("media-custom", "custom", asItIs);
    add("media-multicolor", "multicolor", asItIs);
    const auto longTexts = [](MediaInfo& media) {
        media.title = "Concerto for Twelve Alarm Clocks and a Door That Never Quite Closes, Op. 48";
        media.artist = "The Combined Municipal Orchestras of Three Neighbouring Cities";
        media.isPlaying = false;
    };
    add("media-long-system", "system", longTexts);
    add("media-long-custom", "custom", longTexts);
    add("media-long-multicolor", "multicolor", longTexts);
    stops_.push_back({QStringLiteral("media-long-hover"),
                      [this] { app_.notchState.expandedState = NotchExpandedState::hovering; }});
    add("media-foreign", "system", [](MediaInfo& media) {
        media.title = "أغنية المساء 🎵 夕方の歌";
        media.artist = "فرقة النور";
        media.artwork.reset();
    });
    const auto nothing = [](MediaInfo& media) { media = {}; };
    add("media-none-system", "system", nothing);
    add("media-none-custom", "custom", nothing);
    add("media-none-multicolor", "multicolor", nothing);
}

void Tour::addShelfStops() {
    auto& state = app_.notchState;
    stops_.push_back({QStringLiteral("fileShelf-empty"), [&] {
                          app_.fileShelfManager.items = std::vector<ShelfItem>();
                          state.activePanel = ActivePanel::fileShelf;
                      }});
    stops_.push_back({QStringLiteral("fileShelf-drag"), [&] { state.isDragSessionActive = true; }});
}

void Tour::addTimerStops() {
    constexpr PomodoroState underWay{.phase = PomodoroPhase::work,
                                     .timeRemaining = 17 * 60 + 24,
                                     .totalTime = 25 * 60,
                                     .sessionsCompleted = 2,
                                     .isRunning = true};
    for (const auto style : allPomodoroTimerStyles) {
        const auto name = rawValue(style);
        stops_.push_back({QStringLiteral("pomodoro-") +
                              QLatin1String(name.data(), static_cast<int>(name.size())),
                          [this, name, underWay] {
                              Platform::shared().userDefaults().set(
                                  Settings::pomodoroTimerStyle.name, std::string(name));
                              app_.pomodoroManager.state = underWay;
                              app_.notchState.activePanel = ActivePanel::pomodoro;
                          }});
    }
}

void Tour::addWeatherStops() {
    struct Sky {
        const char* name;
        std::int64_t code;
        bool isDay;
        double temperature;
    };
    static constexpr Sky skies[] = {
        {"weather-day", 0, true, 81},     {"weather-night", 0, false, 64},
        {"weather-rain", 63, true, 52},   {"weather-snow", 73, true, 27},
        {"weather-fog", 45, true, 48},    {"weather-storm", 96, false, 70},
        {"weather-unknown", 56, true, 33}};
    for (const auto& sky : skies)
        stops_.push_back({QLatin1String(sky.name), [this, &sky] {
                              app_.weatherManager.weather.update([&](WeatherData& data) {
                                  data.weatherCode = sky.code;
                                  data.isDay = sky.isDay;
                                  data.temperature = sky.temperature;
                              });
                              app_.notchState.activePanel = ActivePanel::weather;
                          }});
    stops_.push_back(
        {QStringLiteral("weather-alone"), [this] { app_.weatherManager.savedLocations.set({}); }});
    stops_.push_back({QStringLiteral("weather-loading"), [this] {
                          app_.weatherManager.weather.set({});
                          app_.weatherManager.isLoading = true;
                      }});
}

void Tour::addEmptyStops() {
    const auto add = [this](const char* name, ActivePanel panel, std::function<void()> empty) {
        stops_.push_back({QLatin1String(name), [this, panel, empty = std::move(empty)] {
                              empty();
                              app_.notchState.activePanel = panel;
                          }});
    };
    add("todo-empty", ActivePanel::todo, [this] { app_.todoManager.items.set({}); });
    add("notes-empty", ActivePanel::notes, [this] { app_.notesManager.items.set({}); });
    add("stocks-no-quote", ActivePanel::stockTicker, [this] {
        app_.stockTickerManager.refreshTimer.reset(); // else the quotes would come back
        app_.stockTickerManager.quotes.set({});
    });
    add("stocks-empty", ActivePanel::stockTicker,
        [this] { app_.stockTickerManager.tickers.set({}); });
    add("clipboard-empty", ActivePanel::clipboard, [this] { app_.clipboardManager.items.set({}); });
    add("calendar-empty", ActivePanel::calendar, [this] { app_.calendarManager.events.set({}); });
    add("mirror-unflipped", ActivePanel::mirror, [this] { app_.mirrorManager.isMirrored = false; });
    // Its panel, when it appears, asks anew.
    add("mirror-refused", ActivePanel::mirror,
        [this] { app_.mirrorManager.hasPermission = false; });
}

void Tour::addMenuStop() {
    stops_.push_back(
        {QStringLiteral("menu"),
         [this] {
             menu_ = std::make_unique<TrayMenu>(
                 app_.statusBarMenu->items(), [](const std::string& symbol, double size) {
                     return SymbolImages::trayIcon(QString::fromStdString(symbol), size);
                 });
             auto& menu = menu_->menu();
             auto* systemInfo = menu.findChild<QMenu*>();
             menu.setWindowTitle(menuTitle);
             systemInfo->setWindowTitle(menuTitle);
             menu.popup(QGuiApplication::primaryScreen()->geometry().center());
             menu.setActiveAction(systemInfo->menuAction());
         },
         menuTitle});
}

void Tour::addSettingsStops() {
    for (const auto& tab : SettingsView::tabs()) {
        const auto title = QString::fromUtf8(tab.title.data(), static_cast<int>(tab.title.size()));
        const auto name = QStringLiteral("settings-") + title.toLower().replace(u' ', u'-');
        stops_.push_back({name,
                          [this, title] {
                              app_.openSettings();
                              click(itemIn(settingsTitle, QStringLiteral("tab.") + title));
                          },
                          settingsTitle});
        stops_.push_back({name + QStringLiteral("-end"),
                          [] {
                              auto* page = itemIn(settingsTitle, QStringLiteral("scroll"));
                              if (page)
                                  QMetaObject::invokeMethod(page, "scrollToEnd");
                          },
                          settingsTitle});
    }
}

void Tour::addWizardStops() {
    constexpr int steps = 7;
    for (int step = 1; step <= steps; ++step)
        stops_.push_back({QStringLiteral("wizard-%1").arg(step),
                          [this, step] {
                              app_.settingsWindow.reset();
                              if (step == 1)
                                  app_.runSetupWizard();
                              else
                                  click(itemIn(wizardTitle, QStringLiteral("forward")));
                          },
                          wizardTitle});
}

void Tour::begin() {
    auto* runLoop = dynamic_cast<HeldRunLoop*>(&Platform::shared().runLoop());
    const auto* window = PanelWatch::window(app_);
    // Another renderer drives the animations itself.
    if (runLoop && window &&
        window->rendererInterface()->graphicsApi() == QSGRendererInterface::Software) {
        Film film(app_, *runLoop, QDir(directory_.filePath(QStringLiteral("film"))));
        if (const auto complaint = film.shoot(); !complaint.isEmpty()) {
            fail(QStringLiteral("film: ") + complaint);
            return;
        }
    }
    next();
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
    menu_.reset();
    stops_[index_].go();
    since_.start();
    stillLooks_ = 0;
    watch_.start();
}

void Tour::look() {
    stillLooks_ = isStill() ? stillLooks_ + 1 : 0;
    if (stillLooks_ < enoughLooks) {
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
    if (!stops_[index_].window.isEmpty())
        return since_.elapsed() >= windowTime && !windowsTitled(stops_[index_].window).empty();
    return PanelWatch::window(app_) && since_.elapsed() >= 2 * lookInterval &&
           !PanelWatch::isMoving(app_);
}

bool Tour::takePicture() {
    const auto& title = stops_[index_].window;
    const auto windows = title.isEmpty() ? std::vector<const QWindow*>{PanelWatch::window(app_)}
                                         : windowsTitled(title);
    const auto around =
        frameOf(windows).marginsAdded({desktopMargin, 0, desktopMargin, desktopMargin});
    const auto picture = windows.front()->screen()->grabWindow(0, around.x(), around.y(),
                                                               around.width(), around.height());
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
