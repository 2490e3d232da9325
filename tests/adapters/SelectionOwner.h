#pragma once

#include <QSocketNotifier>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orvelle {

/// Another program that has copied something, and does as the test says.
class SelectionOwner {
public:
    /// What it offers: target names, and what it gives for them.
    std::map<std::string, std::string> offers;
    bool tellsTargets = true;
    bool isSilent = false;
    /// Texts above this go in pieces of this size.
    std::size_t pieceSize = 1 << 30;
    std::vector<std::string> requests; ///< target names, in order
    bool isTransferDone = false;

    SelectionOwner() : connection_(xcb_connect(nullptr, nullptr)) {
        const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        window_ = xcb_generate_id(connection_);
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        arrivals_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_),
                                                      QSocketNotifier::Read);
        QObject::connect(arrivals_.get(), &QSocketNotifier::activated, arrivals_.get(),
                         [this] { handleEvents(); });
    }
    ~SelectionOwner() {
        arrivals_.reset();
        xcb_disconnect(connection_);
    }
    SelectionOwner(const SelectionOwner&) = delete;
    SelectionOwner& operator=(const SelectionOwner&) = delete;

    /// Becomes the owner of the clipboard.
    void copy() { own("CLIPBOARD"); }
    /// Becomes the owner of what the middle button pastes.
    void select(const std::string& text) {
        offers = {{"UTF8_STRING", text}};
        own("PRIMARY");
    }
    void copy(const std::string& text) {
        offers = {{"UTF8_STRING", text}};
        copy();
    }
    /// Answers what it was silent about.
    void speak() {
        isSilent = false;
        for (const auto& request : unanswered_)
            answer(request);
        unanswered_.clear();
    }

private:
    struct Transfer {
        xcb_window_t window;
        xcb_atom_t property;
        xcb_atom_t type;
        std::string rest;
    };

    void own(const char* selection) {
        xcb_set_selection_owner(connection_, window_, atom(selection), XCB_CURRENT_TIME);
        xcb_flush(connection_);
    }
    xcb_atom_t atom(const std::string& name) {
        auto& known = atoms_[name];
        if (known == XCB_ATOM_NONE) {
            auto* reply = xcb_intern_atom_reply(
                connection_,
                xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()),
                                name.data()),
                nullptr);
            known = reply->atom;
            std::free(reply);
        }
        return known;
    }
    std::string nameOf(xcb_atom_t wanted) {
        auto* reply =
            xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, wanted), nullptr);
        std::string name(xcb_get_atom_name_name(reply),
                         static_cast<std::size_t>(xcb_get_atom_name_name_length(reply)));
        std::free(reply);
        return name;
    }

    void handleEvents() {
        while (auto* event = xcb_poll_for_event(connection_)) {
            if ((event->response_type & 0x7f) == XCB_SELECTION_REQUEST) {
                const auto& request = *reinterpret_cast<xcb_selection_request_event_t*>(event);
                requests.push_back(nameOf(request.target));
                if (isSilent)
                    unanswered_.push_back(request);
                else
                    answer(request);
            } else if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
                const auto& change = *reinterpret_cast<xcb_property_notify_event_t*>(event);
                if (transfer_ && change.state == XCB_PROPERTY_DELETE &&
                    change.atom == transfer_->property)
                    sendPiece();
            }
            std::free(event);
        }
    }

    void answer(const xcb_selection_request_event_t& request) {
        const auto target = nameOf(request.target);
        bool isGiven = true;
        if (target == "TARGETS" && tellsTargets) {
            std::vector<xcb_atom_t> targets{atom("TARGETS")};
            for (const auto& [name, bytes] : offers)
                targets.push_back(atom(name));
            xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor,
                                request.property, XCB_ATOM_ATOM, 32,
                                static_cast<std::uint32_t>(targets.size()), targets.data());
        } else if (offers.contains(target) && offers[target].size() > pieceSize) {
            beginTransfer(request, offers[target]);
        } else if (offers.contains(target)) {
            put(request.requestor, request.property, request.target, offers[target]);
        } else {
            isGiven = false;
        }
        xcb_selection_notify_event_t notice{};
        notice.response_type = XCB_SELECTION_NOTIFY;
        notice.time = request.time;
        notice.requestor = request.requestor;
        notice.selection = request.selection;
        notice.target = request.target;
        notice.property = isGiven ? request.property : xcb_atom_t{XCB_ATOM_NONE};
        xcb_send_event(connection_, 0, request.requestor, 0, reinterpret_cast<char*>(&notice));
        xcb_flush(connection_);
    }

    void beginTransfer(const xcb_selection_request_event_t& request, const std::string& text) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection_, request.requestor, XCB_CW_EVENT_MASK, &events);
        const auto size = static_cast<std::uint32_t>(text.size());
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                            atom("INCR"), 32, 1, &size);
        transfer_ = std::make_unique<Transfer>(
            Transfer{request.requestor, request.property, request.target, text});
    }

    void sendPiece() {
        const auto count = std::min(pieceSize, transfer_->rest.size());
        put(transfer_->window, transfer_->property, transfer_->type,
            transfer_->rest.substr(0, count));
        transfer_->rest.erase(0, count);
        if (count == 0) {
            transfer_.reset();
            isTransferDone = true;
        }
        xcb_flush(connection_);
    }

    void put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::string& bytes) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(bytes.size()), bytes.data());
    }

    xcb_connection_t* connection_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    std::unique_ptr<QSocketNotifier> arrivals_;
    std::map<std::string, xcb_atom_t> atoms_;
    std::vector<xcb_selection_request_event_t> unanswered_;
    std::unique_ptr<Transfer> transfer_;
};

} // namespace orvelle
