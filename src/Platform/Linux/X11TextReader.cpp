#include "Platform/Linux/X11TextReader.h"

#include "Platform/Linux/X11Connection.h"

#include <QString>
#include <QUtf8StringView>

#include <algorithm>
#include <utility>

namespace orvelle {

namespace {

constexpr std::uint32_t mostOffers = 1024;

/// In the order of the enumeration, the properties left out.
constexpr const char* atomNames[] = {"TARGETS",
                                     "INCR",
                                     "x-kde-passwordManagerHint",
                                     "text/uri-list",
                                     "x-special/gnome-copied-files",
                                     "x-special/mate-copied-files",
                                     "application/x-kde-cutselection",
                                     "UTF8_STRING",
                                     "text/plain;charset=utf-8",
                                     "STRING"};

using PropertyReply = X11::Reply<xcb_get_property_reply_t>;

/// At most `limit` bytes. A property that is longer stays, and has bytes left behind those.
PropertyReply takeProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                           std::size_t limit) {
    const auto items = static_cast<std::uint32_t>(limit / 4 + 1);
    const auto cookie =
        xcb_get_property(connection, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, items);
    return PropertyReply(xcb_get_property_reply(connection, cookie, nullptr));
}

std::size_t lengthOf(const PropertyReply& reply) {
    return static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
}

/// What is said to be Latin-1 is UTF-8 from programs that do not care.
std::string decoded(std::string text, bool isCalledLatin1) {
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    const QUtf8StringView view(text.data(), static_cast<qsizetype>(text.size()));
    if (view.isValidUtf8() && !text.starts_with(byteOrderMark))
        return text; // a long text is not converted twice
    const auto bytes = QByteArray::fromStdString(text);
    auto decoded = QString::fromUtf8(bytes);
    if (isCalledLatin1 && decoded.contains(QChar::ReplacementCharacter))
        decoded = QString::fromLatin1(bytes);
    return decoded.toStdString();
}

/// Whether one of the addresses (RFC 2483) is a file's, wherever that is.
bool namesFile(const std::string& uriList) {
    const auto lines = QString::fromUtf8(QByteArray::fromStdString(uriList)).split(u'\n');
    return std::ranges::any_of(lines, [](const QString& line) {
        return line.startsWith(QStringLiteral("file:"), Qt::CaseInsensitive);
    });
}

} // namespace

X11TextReader::X11TextReader(xcb_connection_t* connection, xcb_window_t window,
                             xcb_atom_t selection, std::chrono::milliseconds patience)
    : connection_(connection), window_(window), selection_(selection) {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (std::size_t index = 0; index < atoms_.size(); ++index) {
        const auto name = index < firstProperty
                              ? std::string(atomNames[index])
                              : "ORVELLE_SELECTION_" + std::to_string(index - firstProperty);
        cookies.push_back(
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    }
    for (std::size_t index = 0; index < atoms_.size(); ++index)
        if (const X11::Reply<xcb_intern_atom_reply_t> reply{
                xcb_intern_atom_reply(connection, cookies[index], nullptr)})
            atoms_[index] = reply->atom;
    deadline_.setSingleShot(true);
    deadline_.setInterval(patience);
    QObject::connect(&deadline_, &QTimer::timeout, &deadline_, [this] { finish(std::nullopt); });
}

Subscription X11TextReader::read(xcb_timestamp_t since, Pasteboard::Reading done) {
    const auto id = readingCount_++;
    waiting_->emplace(id, std::move(done));
    if (step_ == Step::idle || since != since_) {
        since_ = since;
        deadline_.start();
        request(atoms_[targets], Step::offers);
    }
    return Subscription([id, waiting = std::weak_ptr<Waiting>(waiting_)] {
        if (const auto list = waiting.lock())
            list->erase(id);
    });
}

void X11TextReader::handle(const xcb_generic_event_t& event) {
    switch (X11::typeOf(event)) {
    case XCB_SELECTION_NOTIFY:
        answered(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == window_ && change.state == XCB_PROPERTY_NEW_VALUE)
            propertyArrived(change.atom);
        break;
    }
    default:
        break;
    }
}

void X11TextReader::request(xcb_atom_t target, Step step) {
    step_ = step;
    target_ = target;
    property_ = atoms_[firstProperty + requestCount_++ % propertyCount];
    text_.clear();
    xcb_convert_selection(connection_, window_, selection_, target_, property_, since_);
    xcb_flush(connection_);
}

void X11TextReader::answered(const xcb_selection_notify_event_t& event) {
    const bool isAwaited = step_ == Step::offers || step_ == Step::text;
    if (!isAwaited || event.requestor != window_ || event.target != target_ || event.time != since_)
        return;
    if (event.property == XCB_ATOM_NONE) { // refused
        if (step_ == Step::offers)
            chooseOffer({atoms_[utf8], atoms_[latin1]}); // an owner that tells nothing
        else
            requestNextOffer();
        return;
    }
    if (event.property != property_)
        return;
    const auto reply = takeProperty(connection_, window_, property_,
                                    step_ == Step::offers ? mostOffers * sizeof(xcb_atom_t)
                                                          : Pasteboard::maximumSize);
    if (!reply || reply->bytes_after > 0) {
        xcb_delete_property(connection_, window_, property_);
        finish(std::nullopt);
    } else if (step_ == Step::offers) {
        const auto* offers = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
        const auto count = reply->format == 32 ? lengthOf(reply) / sizeof(xcb_atom_t) : 0;
        chooseOffer({offers, offers + count});
    } else if (reply->type == atoms_[incremental]) {
        step_ = Step::pieces; // taking the property was the sign to begin
        xcb_flush(connection_);
    } else {
        take(xcb_get_property_value(reply.get()), lengthOf(reply));
        if (step_ == Step::text)
            arrived();
    }
}

void X11TextReader::propertyArrived(xcb_atom_t property) {
    if (property != property_ || step_ == Step::idle) {
        xcb_delete_property(connection_, window_, property);
        xcb_flush(connection_);
        return;
    }
    if (step_ != Step::pieces)
        return; // its announcement follows
    const auto reply = takeProperty(connection_, window_, property_, Pasteboard::maximumSize);
    if (!reply || reply->bytes_after > 0) {
        xcb_delete_property(connection_, window_, property_);
        finish(std::nullopt);
    } else if (lengthOf(reply) > 0) {
        take(xcb_get_property_value(reply.get()), lengthOf(reply));
    } else {
        arrived();
    }
}

void X11TextReader::chooseOffer(const std::vector<xcb_atom_t>& offers) {
    const auto offered = [&](Atom atom) {
        return std::find(offers.begin(), offers.end(), atoms_[atom]) != offers.end();
    };
    acceptable_.clear();
    const auto marks = {secretMark, fileMark, otherFileMark, cutMark};
    if (std::ranges::none_of(marks, offered))
        for (const auto kind : {latin1, plainText, utf8})
            if (offered(kind))
                acceptable_.push_back(atoms_[kind]);
    if (!acceptable_.empty() && offered(uriList))
        acceptable_.push_back(atoms_[uriList]);
    requestNextOffer();
}

void X11TextReader::requestNextOffer() {
    if (acceptable_.empty()) {
        finish(std::nullopt);
        return;
    }
    const auto target = acceptable_.back();
    acceptable_.pop_back();
    request(target, Step::text);
}

void X11TextReader::take(const void* bytes, std::size_t count) {
    text_.append(static_cast<const char*>(bytes), count);
    if (text_.size() > Pasteboard::maximumSize)
        finish(std::nullopt);
}

void X11TextReader::arrived() {
    if (target_ != atoms_[uriList])
        finish(std::move(text_));
    else if (namesFile(text_))
        finish(std::nullopt);
    else
        requestNextOffer(); // the text of a link
}

void X11TextReader::finish(std::optional<std::string> text) {
    deadline_.stop();
    step_ = Step::idle;
    if (text)
        text = decoded(*std::move(text), target_ == atoms_[latin1]);
    text_.clear();
    xcb_flush(connection_);
    // Whoever reads anew when it is called waits for another answer.
    auto answered = std::exchange(*waiting_, {});
    for (auto& [id, done] : answered)
        done(text);
}

} // namespace orvelle
