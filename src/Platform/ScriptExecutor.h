#pragma once

#include "Foundation/SharedBytes.h"

#include <optional>
#include <string>
#include <variant>

namespace orvelle {

/// What a script returned, under each of the readings that its callers ask for.
struct ScriptResult {
    std::optional<std::string> stringValue; ///< none when the result has no text
    bool booleanValue = false;              ///< false when the result is no truth value
    SharedBytes data;                       ///< the result as bytes
};

/// The script ran into an error.
struct ScriptError {
    std::optional<std::string> message;
    std::optional<long> number;
};

/// The source is no script, or nothing here runs scripts.
struct ScriptNotMade {};

using ScriptOutcome = std::variant<ScriptResult, ScriptError, ScriptNotMade>;

/// Speaks with scriptable applications in their script language. A platform without that language
/// recognises the sources that the program uses, and answers for the same applications in its own
/// way; any other source is not made.
class ScriptExecutor {
public:
    virtual ~ScriptExecutor() = default;

    /// Runs the script and waits for the application, for five seconds at most; one that does not
    /// answer is an error. Any thread but the main one, several at once.
    virtual ScriptOutcome execute(const std::string& source) = 0;
};

} // namespace orvelle
