#pragma once

#include "Platform/Linux/X11SelectionReader.h"
#include "Platform/Linux/X11TextReader.h"
#include "Platform/Pasteboard.h"

#include <QSocketNotifier>
#include <xcb/xcb.h>

#include <chrono>
#include <memory>

namespace orvelle {

/// The X server's selection CLIPBOARD. Its changes are counted, and its texts are read, over a
/// connection of its own, which is made at the first look: what Qt would read it waits for.
///
/// A text whose owner offers the target "x-kde-passwordManagerHint" beside it is secret. A text
/// beside the address of a file, or beside a file manager's mark, stands for that file.
class X11Pasteboard : public Pasteboard {
public:
    explicit X11Pasteboard(std::chrono::milliseconds patience = X11TextReader::defaultPatience);
    ~X11Pasteboard() override;

    std::int64_t changeCount() override;
    Subscription readString(Reading done) override;
    /// The selection PRIMARY.
    Subscription readSelection(Reading done) override;
    Subscription readFiles(FileReading done) override;
    void setString(const std::string& text) override;
    void writeFiles(const std::vector<std::string>& urls) override;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    /// Once; without a server the clipboard stays empty.
    void connect();
    bool followOwners(xcb_window_t window);
    void handleEvents();
    void countOwnChange();

    std::chrono::milliseconds patience_;
    bool isTried_ = false;
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    std::unique_ptr<X11TextReader> reader_;
    std::unique_ptr<X11TextReader> selectionReader_;
    std::unique_ptr<X11SelectionReader> fileReader_;
    std::unique_ptr<QSocketNotifier> arrivals_;
    std::uint8_t ownerChange_ = 0; ///< the type of that event
    std::int64_t changeCount_ = 0;
    xcb_timestamp_t ownedSince_ = XCB_CURRENT_TIME;
};

} // namespace orvelle
