#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace orvelle {

/// Cuts the bytes of an iCalendar file into its events and time zones, each with nothing but the
/// properties that tell when and what it is: descriptions, alarms and attachments are left behind
/// as they are read. Takes a file of any size in pieces of any size, and holds one component at a
/// time.
///
/// A component that is cut off, by the end of the file or by the beginning of the next, is left
/// out, as is one that is too large; the others are found nevertheless.
class ComponentReader {
public:
    /// A longer property is left out; hundreds of exception dates have room.
    static constexpr std::size_t maximumProperty = 64 << 10; // bytes
    static constexpr std::size_t maximumComponent = 256 << 10;

    enum class Kind { event, timeZone };
    /// `text` is one component from BEGIN to END, with unfolded lines.
    using Handler = std::function<void(Kind kind, const std::string& text)>;

    explicit ComponentReader(Handler handler) : handler_(std::move(handler)) {}

    void feed(std::string_view bytes);
    /// The file has ended.
    void finish();

private:
    void addToLine(std::string_view bytes);
    void endLine();
    void take(std::string_view line);
    void begin(std::string_view name);
    void end(std::string_view name);
    void keep(std::string_view line);

    Handler handler_;
    std::string line_; ///< unfolded so far
    bool isLineUsable_ = true;
    bool isLineEnded_ = false; ///< unless a blank follows, which folds the next line to it
    std::string component_;    ///< empty outside of one
    Kind kind_ = Kind::event;
    int depth_ = 0;        ///< of components inside the present one
    int skippedDepth_ = 0; ///< the depth from which on nothing is kept; 0 keeps all
    bool isComponentUsable_ = true;
};

} // namespace orvelle
