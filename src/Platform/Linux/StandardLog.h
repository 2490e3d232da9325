#pragma once

#include "Platform/Log.h"

#include <mutex>

namespace orvelle {

/// The process's error stream: one line a message, written in one piece. Line ends and other
/// control characters in a message are written as escapes, so that a message cannot pose as
/// another, and long ones are cut. What nobody reads is lost.
class StandardLog : public LogSink {
public:
    /// `journal` begins each line with the priority that the system journal reads, such as "<6>".
    enum class Style { plain, journal };

    /// Style and level from the environment: the journal when JOURNAL_STREAM names this very error
    /// stream (terminals pass the variable on to programs that write elsewhere), debug lines only
    /// with ORVELLE_DEBUG set to something.
    StandardLog();
    StandardLog(int descriptor, Style style, LogLevel lowest);

    void write(std::string_view subsystem, std::string_view category, LogLevel level,
               std::string_view message) override;

private:
    const int descriptor_;
    const Style style_;
    const LogLevel lowest_;
    std::mutex writing_;
};

} // namespace orvelle
