#pragma once

#include "Platform/Linux/X11Connection.h"

#include <QTimer>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace orvelle {

/// Reads what another program offers through a selection, and never waits for that program. One
/// reading at a time: a new one puts an end to the one before. Main thread only.
class X11SelectionReader {
public:
    /// Data beyond this many bytes is not read.
    static constexpr std::size_t maximumSize = 4 << 20;

    /// None when the program refuses, falls silent for five seconds or offers too much.
    using Done = std::function<void(std::optional<std::string> bytes)>;

    X11SelectionReader();
    ~X11SelectionReader();
    X11SelectionReader(const X11SelectionReader&) = delete;
    X11SelectionReader& operator=(const X11SelectionReader&) = delete;

    /// `time` is that of the event that is the reason to ask. `done` is called after this returns.
    void read(xcb_atom_t selection, xcb_atom_t target, xcb_timestamp_t time, Done done);
    void cancel();
    /// From `read` until just before `done` is called.
    bool isReading() const { return done_ != nullptr; }

private:
    void handle(const xcb_generic_event_t& event);
    void takeAnswer(xcb_atom_t property);
    void takePiece();
    /// What stands in the property, which is taken away; none when there is nothing or too much.
    std::optional<std::string> take(xcb_atom_t property, xcb_atom_t& type);
    void finish(std::optional<std::string> bytes);

    xcb_window_t window_ = XCB_WINDOW_NONE; ///< of this reading alone: late answers find none
    bool isInPieces_ = false;
    std::string bytes_;
    Done done_;
    QTimer silence_;
    Subscription events_;
};

} // namespace orvelle
