#pragma once

#include "Platform/Linux/Descriptor.h"

#include <sys/types.h>

#include <functional>
#include <string>

namespace orvelle {

/// Keeps a second process from changing the lists of one data folder, wherever it runs: as another
/// user, in another session, on another display, in a container that shares the folder. The lock
/// lies on a file of the folder itself and ends with the process that holds it.
class DataFolderLock {
public:
    enum class Claim {
        held,
        handedOver, ///< another process holds it, and shows itself now
        refused,    ///< another process holds it and cannot be asked, see `holder`
        unavailable ///< the folder cannot be locked, see `reason`
    };
    /// Who has the lock.
    struct Holder {
        std::string process; ///< its number, which a container may count by itself
        std::string host;
        std::string display;
        std::string socket; ///< where it can be asked to show itself

        /// This process.
        static Holder self(std::string socket);
        std::string text() const;
    };

    explicit DataFolderLock(std::string folder);

    /// `show` asks the process that listens on a socket to show itself, and says whether it is
    /// told. Waits up to two seconds for one that is just starting.
    Claim claim(const Holder& self, const std::function<bool(const std::string& socket)>& show);
    const std::string& folder() const { return folder_; }
    const Holder& holder() const { return holder_; }
    /// In words.
    const std::string& reason() const { return reason_; }

private:
    void announce(const Holder& self);
    void readHolder();

    std::string folder_;
    Descriptor file_;
    Holder holder_;
    std::string reason_;
};

} // namespace orvelle
