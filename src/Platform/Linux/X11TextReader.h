#pragma once

#include "Platform/Pasteboard.h"

#include <QTimer>
#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// Reads a selection's text in steps, each an event: what it is offered as, then the addresses that
/// are offered beside it, which may be those of files, then the text, in one piece or in many. It
/// waits for the X server alone, never for the selection's owner.
///
/// Whatever arrives late or unasked is deleted unread, which also lets the sender of a text in
/// pieces come to its end.
class X11TextReader {
public:
    /// For one whole reading.
    static constexpr std::chrono::milliseconds defaultPatience{5000};

    /// Both must outlive the reader, which reads the properties of `window`.
    X11TextReader(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t selection,
                  std::chrono::milliseconds patience);

    /// `since` is when the selection got its present owner. Readings of the same content share one
    /// answer.
    [[nodiscard]] Subscription read(xcb_timestamp_t since, Pasteboard::Reading done);
    void handle(const xcb_generic_event_t& event);

private:
    enum class Step { idle, offers, text, pieces };
    enum Atom {
        targets,
        incremental,
        secretMark,
        uriList,
        fileMark,
        otherFileMark,
        cutMark,
        utf8,
        plainText,
        latin1,
        firstProperty
    };
    /// Each request has a property of its own for the answer, so that late ones are told apart.
    static constexpr std::size_t propertyCount = 8;
    using Waiting = std::map<std::uint64_t, Pasteboard::Reading>;

    void request(xcb_atom_t target, Step step);
    void answered(const xcb_selection_notify_event_t& event);
    void propertyArrived(xcb_atom_t property);
    void chooseOffer(const std::vector<xcb_atom_t>& offers);
    void requestNextOffer();
    void take(const void* bytes, std::size_t count);
    void arrived();
    void finish(std::optional<std::string> text);

    xcb_connection_t* connection_;
    xcb_window_t window_;
    xcb_atom_t selection_;
    std::array<xcb_atom_t, firstProperty + propertyCount> atoms_{};

    Step step_ = Step::idle;
    xcb_timestamp_t since_ = 0;
    std::size_t requestCount_ = 0;
    xcb_atom_t target_ = XCB_ATOM_NONE;
    xcb_atom_t property_ = XCB_ATOM_NONE;
    std::vector<xcb_atom_t> acceptable_; ///< what is left to ask for, the best last
    std::string text_;
    QTimer deadline_;
    std::shared_ptr<Waiting> waiting_ = std::make_shared<Waiting>();
    std::uint64_t readingCount_ = 0;
};

} // namespace orvelle
