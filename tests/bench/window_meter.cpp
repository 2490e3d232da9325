// Times what a user of the display can see of a program, on a display without other programs.
//
//   window_meter start COMMAND...  runs the command until its window has content, and ends it.
//                                  Writes two times since exec: the window mapped, and painted.
//   window_meter enter COUNT       moves the pointer onto the one window there is, COUNT times.
//                                  Writes two times for each: the window resized, and painted.
//
// Times are milliseconds. A window is painted when it shows a pixel that is not of the colour that
// this program gives to the root, so that a window of just that colour does not count.

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::uint32_t rootColour = 0x204060; // also the background in polybar.ini
constexpr std::uint32_t colourMask = 0xffffff;
constexpr milliseconds patience{10000};
constexpr milliseconds restTime{300}; ///< without any change, after which an animation is over

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

[[noreturn]] void fail(const char* complaint) {
    std::fprintf(stderr, "window_meter: %s\n", complaint);
    std::exit(EXIT_FAILURE);
}

double sinceInMilliseconds(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct Frame {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    bool operator==(const Frame&) const = default;
};

class Meter {
public:
    Meter() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_))
            fail("no display");
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        root_ = screen->root;
        farAway_ = {static_cast<std::int16_t>(screen->width_in_pixels / 2),
                    static_cast<std::int16_t>(screen->height_in_pixels - 50)};
        const auto* damage = xcb_get_extension_data(connection_, &xcb_damage_id);
        if (!damage || !damage->present)
            fail("the display has no extension DAMAGE");
        damaged_ = damage->first_event + XCB_DAMAGE_NOTIFY;
        const Reply<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
            connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));

        const std::uint32_t values[] = {rootColour, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
        xcb_change_window_attributes(connection_, root_, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                                     values);
        xcb_clear_area(connection_, 0, root_, 0, 0, 0, 0);
        movePointerAway();
    }

    ~Meter() { xcb_disconnect(connection_); }

    void timeStart(char** command) {
        const auto start = Clock::now();
        const pid_t process = fork();
        if (process == 0) {
            execvp(command[0], command);
            std::_Exit(127);
        }
        double mapped = 0;
        wait("the window", [&](const xcb_generic_event_t& event) {
            if (typeOf(event) == XCB_CREATE_NOTIFY)
                observeDamage(reinterpret_cast<const xcb_create_notify_event_t&>(event).window);
            if (typeOf(event) != XCB_MAP_NOTIFY)
                return false;
            mapped = sinceInMilliseconds(start);
            window_ = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
            return true;
        });
        double painted = sinceInMilliseconds(start);
        while (!isPainted()) {
            wait("content", [&](const xcb_generic_event_t& event) { return isDamage(event); });
            painted = sinceInMilliseconds(start);
        }
        std::printf("%.3f %.3f\n", mapped, painted);
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
    }

    void timeEnter(int count) {
        findWindow();
        observeDamage(window_);
        rest();
        const Frame collapsed = frame();
        for (int turn = 0; turn < count; ++turn) {
            const auto start = Clock::now();
            movePointer(static_cast<std::int16_t>(collapsed.x + collapsed.width / 2),
                        static_cast<std::int16_t>(collapsed.y + collapsed.height / 2));
            wait("a new size", [&](const auto& event) { return isResize(event, collapsed); });
            const double resized = sinceInMilliseconds(start);
            passResize();
            wait("content", [&](const auto& event) { return isPaint(event); });
            const double painted = sinceInMilliseconds(start);
            std::printf("%.3f %.3f\n", resized, painted);
            movePointerAway();
            do
                rest();
            while (frame() != collapsed);
        }
    }

private:
    static int typeOf(const xcb_generic_event_t& event) { return event.response_type & 0x7f; }

    bool isDamage(const xcb_generic_event_t& event) const {
        return typeOf(event) == damaged_ &&
               reinterpret_cast<const xcb_damage_notify_event_t&>(event).drawable == window_;
    }

    /// Tells what the program draws from what a new outline uncovers, which lies at the edges.
    bool isPaint(const xcb_generic_event_t& event) const {
        if (!isDamage(event))
            return false;
        const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
        const int middle = damage.geometry.width / 2;
        return damage.area.y == 0 && damage.area.x <= middle &&
               damage.area.x + damage.area.width > middle;
    }

    /// Drops the damage that the server itself did by moving what the window showed.
    void passResize() {
        const Reply<xcb_get_input_focus_reply_t> fence(
            xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
        while (Reply<xcb_generic_event_t>(xcb_poll_for_queued_event(connection_))) {
        }
    }

    bool isResize(const xcb_generic_event_t& event, const Frame& before) const {
        if (typeOf(event) != XCB_CONFIGURE_NOTIFY)
            return false;
        const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        return change.window == window_ &&
               (change.width != before.width || change.height != before.height);
    }

    /// Takes events until one is wanted.
    template <class Wanted>
    void wait(const char* what, Wanted wanted) {
        const auto end = Clock::now() + patience;
        while (Clock::now() < end)
            if (const auto event = next(patience); event && wanted(*event))
                return;
        std::fprintf(stderr, "window_meter: waited for %s\n", what);
        fail("nothing came");
    }

    Reply<xcb_generic_event_t> next(milliseconds longest) {
        xcb_flush(connection_);
        if (auto* event = xcb_poll_for_event(connection_))
            return Reply<xcb_generic_event_t>(event);
        pollfd ready{xcb_get_file_descriptor(connection_), POLLIN, 0};
        poll(&ready, 1, static_cast<int>(longest.count()));
        return Reply<xcb_generic_event_t>(xcb_poll_for_event(connection_));
    }

    /// Takes events until none has come for a while.
    void rest() {
        auto last = Clock::now();
        while (Clock::now() - last < restTime)
            if (next(restTime))
                last = Clock::now();
    }

    void findWindow() {
        const Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
        const auto* children = xcb_query_tree_children(tree.get());
        for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
            const Reply<xcb_get_window_attributes_reply_t> attributes(
                xcb_get_window_attributes_reply(
                    connection_, xcb_get_window_attributes(connection_, children[index]), nullptr));
            if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
                window_ = children[index];
        }
        if (window_ == XCB_WINDOW_NONE)
            fail("no window is shown");
    }

    Frame frame() {
        const Reply<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window_), nullptr));
        if (!geometry)
            fail("the window has gone");
        return {geometry->x, geometry->y, geometry->width, geometry->height};
    }

    bool isPainted() {
        const Frame at = frame();
        const Reply<xcb_get_image_reply_t> image(
            xcb_get_image_reply(connection_,
                                xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, root_, at.x,
                                              at.y, at.width, at.height, ~0U),
                                nullptr));
        if (!image)
            fail("the window is not within the display");
        const auto* bytes = xcb_get_image_data(image.get());
        const int length = xcb_get_image_data_length(image.get());
        for (int offset = 0; offset + 4 <= length; offset += 4) {
            std::uint32_t pixel;
            std::memcpy(&pixel, bytes + offset, sizeof pixel);
            if ((pixel & colourMask) != rootColour)
                return true;
        }
        return false;
    }

    void observeDamage(xcb_window_t window) {
        xcb_damage_create(connection_, xcb_generate_id(connection_), window,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    }

    void movePointer(std::int16_t x, std::int16_t y) {
        xcb_warp_pointer(connection_, XCB_WINDOW_NONE, root_, 0, 0, 0, 0, x, y);
        xcb_flush(connection_);
    }

    void movePointerAway() { movePointer(farAway_.x, farAway_.y); }

    struct Place {
        std::int16_t x;
        std::int16_t y;
    };

    xcb_connection_t* connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    Place farAway_{};
    int damaged_ = 0;
};

} // namespace

int main(int argumentCount, char** arguments) {
    const std::string_view order = argumentCount > 2 ? arguments[1] : "";
    if (order == "start")
        Meter().timeStart(arguments + 2);
    else if (order == "enter")
        Meter().timeEnter(std::atoi(arguments[2]));
    else
        fail("start COMMAND... or enter COUNT");
}
