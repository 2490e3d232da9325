// A panel that does what its standard input says, one command a line, and tells on its standard
// output what happens to it. With it the window's adapters are tested without the program's rules.

#include "Platform/Linux/X11EventMonitors.h"
#include "Platform/Linux/X11PanelWindow.h"
#include "Platform/Linux/X11PanelWindows.h"
#include "Platform/Linux/X11Screens.h"
#include "Platform/Simulated/SimulatedUserDefaults.h"

#include <QApplication>
#include <QCursor>
#include <QSocketNotifier>

#include <unistd.h>

#include <functional>
#include <iostream>
#include <map>
#include <sstream>

namespace {

using namespace orvelle;

class Probe {
public:
    Probe() {
        panel_->setPointerEvents({[] { tell("entered"); }, [] { tell("exited"); }});
        panel_->quickWindow().setColor(Qt::black);
        QObject::connect(&panel_->quickWindow(), &QWindow::activeChanged,
                         [this] { tell("active ", panel_->quickWindow().isActive()); });
        tell("ready");
    }

    void run(const std::string& line) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        const auto found = commands_.find(command);
        if (found == commands_.end())
            return tell("unknown ", command);
        found->second(words);
        tell("done ", command);
    }

private:
    static void tell(const auto&... parts) {
        (std::cout << ... << parts);
        std::cout << std::endl;
    }
    static Rect readRect(std::istream& words) {
        Rect rect;
        words >> rect.origin.x >> rect.origin.y >> rect.size.width >> rect.size.height;
        return rect;
    }
    static std::string text(const Rect& rect) {
        std::ostringstream stream;
        stream << rect.origin.x << " " << rect.origin.y << " " << rect.size.width << " "
               << rect.size.height;
        return stream.str();
    }
    void tellScreens() {
        for (const auto& screen : screens_.screens())
            tell("screen ", text(screen.frame), " visible ", text(screen.visibleFrame), " top ",
                 screen.safeAreaInsets.top, " beside ",
                 screen.auxiliaryTopLeftArea ? text(*screen.auxiliaryTopLeftArea) : "none", " ",
                 screen.auxiliaryTopRightArea ? text(*screen.auxiliaryTopRightArea) : "none");
    }

    X11Desktop desktop_;
    X11RawPresses presses_;
    X11PanelWindows windows_{desktop_, presses_};
    SimulatedUserDefaults defaults_;
    X11Screens screens_{desktop_, defaults_};
    X11EventMonitors monitors_{presses_};
    std::unique_ptr<X11PanelWindow> panel_{static_cast<X11PanelWindow*>(
        windows_.make({.title = "Probe"}, {{666, 950}, {180, 32}}).release())};
    Subscription desktopManager_ =
        desktop_.hasWindowManager.observe([](bool found) { tell("manager ", found); });
    Subscription compositor_ =
        desktop_.isComposited.observe([](bool found) { tell("composited ", found); });
    Subscription screenChanges_ = screens_.observeChanges([] { tell("screens changed"); });
    Subscription scrolls_ = monitors_.addLocalScrollMonitor([this](const ScrollEvent& event) {
        tell("scroll ", event.scrollingDeltaX, " ", event.scrollingDeltaY, " at ",
             event.locationInWindow.x, " ", event.locationInWindow.y, " panel ",
             event.panel == panel_.get());
    });
    Subscription ownPresses_ = monitors_.addLocalMouseDownMonitor([] { tell("press here"); });
    Subscription otherPresses_ =
        monitors_.addGlobalMouseDownMonitor([] { tell("press elsewhere"); });
    const std::map<std::string, std::function<void(std::istream&)>> commands_{
        {"frame", [this](auto& words) { panel_->setFrame(readRect(words)); }},
        {"shape",
         [this](auto& words) {
             const auto rect = readRect(words);
             panel_->setShapeMask(
                 QRectF(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height).toRect());
         }},
        {"front", [this](auto&) { panel_->orderFront(); }},
        {"out", [this](auto&) { panel_->orderOut(); }},
        {"lead",
         [this](auto& words) {
             int x = 0;
             int y = 0;
             words >> x >> y;
             QObject::connect(
                 &panel_->quickWindow(), &QWindow::visibilityChanged, &panel_->quickWindow(),
                 [x, y] { QCursor::setPos(x, y); }, Qt::SingleShotConnection);
         }},
        {"key", [this](auto&) { panel_->makeKey(); }},
        {"resign", [this](auto&) { panel_->resignKey(); }},
        {"screens", [this](auto&) { tellScreens(); }},
        {"pointer",
         [this](auto&) {
             const auto location = monitors_.mouseLocation();
             tell("pointer ", location.x, " ", location.y);
         }},
        {"set",
         [this](auto& words) {
             std::string key;
             double value = 0;
             words >> key >> value;
             defaults_.set(key, value);
         }},
    };
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Probe probe;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    std::string pending;
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char bytes[4096];
        const auto count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0)
            return QCoreApplication::quit();
        pending.append(bytes, static_cast<std::size_t>(count));
        for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
            probe.run(pending.substr(0, end));
            pending.erase(0, end + 1);
        }
    });
    return application.exec();
}
