#include "Platform/Linux/StandardLog.h"

#include "Foundation/Format.h"
#include "Foundation/Utf8.h"
#include "Platform/Linux/StandardStreams.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace orvelle {

namespace {

/// In bytes; a peer's words may be of any length.
constexpr std::size_t longestLine = 8192;

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

/// A terminal acts on controls, those of C1 too, as two bytes of UTF-8 or as a stray one.
bool mayStand(std::string_view letter) {
    const auto first = static_cast<unsigned char>(letter[0]);
    if (letter.size() == 1)
        return first >= 0x20 && first < 0x7F;
    return !(first == 0xC2 && static_cast<unsigned char>(letter[1]) < 0xA0);
}

void appendEscaped(std::string& line, std::string_view text) {
    while (!text.empty()) {
        if (line.size() >= longestLine) {
            line += format("... (%zu more bytes)", text.size());
            return;
        }
        const auto letter = text.substr(0, std::max<std::size_t>(utf8SequenceLength(text), 1));
        text.remove_prefix(letter.size());
        if (letter == "\n")
            line += "\\n";
        else if (mayStand(letter))
            line += letter;
        else
            for (const char byte : letter)
                line += format("\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
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
