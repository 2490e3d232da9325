#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace orvelle {

/// An environment variable with another value, or none, for a while.
class TemporaryVariable {
public:
    TemporaryVariable(const char* name, const char* value) : name_(name) {
        if (const char* present = std::getenv(name))
            before_ = present;
        set(value);
    }
    TemporaryVariable(const TemporaryVariable&) = delete;
    TemporaryVariable& operator=(const TemporaryVariable&) = delete;
    ~TemporaryVariable() { set(before_ ? before_->c_str() : nullptr); }

    void set(const char* value) {
        if (value)
            setenv(name_, value, 1);
        else
            unsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> before_;
};

} // namespace orvelle
