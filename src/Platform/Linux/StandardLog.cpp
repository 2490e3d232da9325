#include "Platform/Linux/StandardLog.h"

#include "Foundation/Format.h"
#include "Platform/Linux/StandardStreams.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace orvelle {

namespace {

bool isJournal(int descriptor) {
    const char* stream = std::getenv("JOURNAL_STREAM");
    struct stat status {};
    return stream && fstat(descriptor, &status) == 0 &&
           stream == format("%ju:%ju", static_cast<std::uintmax_t>(status.st_dev),
                            static_cast<std::uintmax_t>(status.st_ino));
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && value[0] != '\0';
}

/// The priorities of syslog.
std::string_view priority(LogLevel level) {
    switch (level) {
    case LogLevel::debug:
        return "<7>";
    case LogLevel::info:
        return "<6>";
    case LogLevel::error:
        break;
    }
    return "<3>";
}

std::string_view word(LogLevel level) {
    switch (level) {
    case LogLevel::debug:
        return "debug: ";
    case LogLevel::info:
        return "";
    case LogLevel::error:
        break;
    }
    return "error: ";
}

void appendEscaped(std::string& line, std::string_view text) {
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (letter == '\n')
            line += "\\n";
        else if (code < 0x20 || code == 0x7F)
            line += format("\\x%02x", code);
        else
            line += letter;
    }
}

} // namespace

StandardLog::StandardLog()
    : StandardLog(STDERR_FILENO, isJournal(STDERR_FILENO) ? Style::journal : Style::plain,
                  isSet("ORVELLE_DEBUG") ? LogLevel::debug : LogLevel::info) {}

StandardLog::StandardLog(int descriptor, Style style, LogLevel lowest)
    : descriptor_(descriptor), style_(style), lowest_(lowest) {}

void StandardLog::write(std::string_view subsystem, std::string_view category, LogLevel level,
                        std::string_view message) {
    if (level < lowest_)
        return;
    std::string line(style_ == Style::journal ? priority(level) : "");
    appendEscaped(line, subsystem);
    line += " [";
    appendEscaped(line, category);
    line += "] ";
    if (style_ == Style::plain)
        line += word(level);
    appendEscaped(line, message);
    line += '\n';

    const std::lock_guard guard(writing_); // long lines to a pipe could mix otherwise
    writeOrLose(descriptor_, line);
}

} // namespace orvelle
