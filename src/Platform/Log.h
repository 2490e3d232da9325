#pragma once

#include <string>
#include <string_view>

namespace orvelle {

enum class LogLevel { debug, info, error };

/// Where log lines go. Any thread.
class LogSink {
public:
    virtual ~LogSink() = default;
    virtual void write(std::string_view subsystem, std::string_view category, LogLevel level,
                       std::string_view message) = 0;
};

/// One type's way to the log.
class Logger {
public:
    static constexpr std::string_view subsystem = "com.orvelle.app";

    /// `category` is the type's name; it must outlive the logger.
    Logger(LogSink& sink, std::string_view category) : sink_(sink), category_(category) {}

    void debug(const std::string& message) const { write(LogLevel::debug, message); }
    void info(const std::string& message) const { write(LogLevel::info, message); }
    void error(const std::string& message) const { write(LogLevel::error, message); }

private:
    void write(LogLevel level, const std::string& message) const {
        sink_.write(subsystem, category_, level, message);
    }

    LogSink& sink_;
    std::string_view category_;
};

} // namespace orvelle
