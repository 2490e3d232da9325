#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orvelle {

/// The programs that run already. Main thread only; nothing waits.
class RunningPrograms {
public:
    struct Wanted {
        std::vector<std::string> identifiers; ///< names of its desktop entry, here and elsewhere
        std::vector<std::string> windowNames; ///< what its windows may be called

        bool operator==(const Wanted&) const = default;
    };

    virtual ~RunningPrograms() = default;

    /// Whether one of these identifiers is known to run; one that is not known may run all the
    /// same.
    virtual bool isRunning(const std::vector<std::string>& identifiers) const = 0;
    /// Brings the program to the front. `failed` is called, perhaps during the call, when it does
    /// not run or will not come.
    virtual void bringToFront(const Wanted& wanted, std::function<void()> failed) = 0;
};

} // namespace orvelle
