#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orvelle {

/// Makes sure that one instance of a name runs for each user: the first holds a lock and listens on
/// a socket, each later one asks it to show itself and ends. Both lie in $XDG_RUNTIME_DIR, or else
/// in a folder of the user's own in the folder for temporary files.
class ProcessInstance {
public:
    enum class Claim {
        first,      ///< nobody else runs under this name
        handedOver, ///< another instance runs and was asked to show itself
        /// There is no folder that only this user can write, or another instance neither answers
        /// nor ends: nobody can tell.
        unavailable
    };

    /// `name` becomes part of file names.
    explicit ProcessInstance(std::string name);
    ~ProcessInstance();
    ProcessInstance(const ProcessInstance&) = delete;
    ProcessInstance& operator=(const ProcessInstance&) = delete;

    /// Needs no event loop, so that a second start costs next to nothing. Waits up to two seconds
    /// for an instance that is just starting.
    Claim claim();

    /// Where the first instance listens; empty while it does not.
    std::string socketPath() const;
    /// Asks the instance of this user's that listens on a socket to show itself.
    static bool askToShow(const std::filesystem::path& socket);

    /// For the first instance, once an event loop is there: calls `show` on the main thread each
    /// time another start asks. What was asked since the claim is delivered too.
    void listen(std::function<void()> show);

private:
    bool lock();
    bool bind();
    void answer();
    bool heard(int peer);
    void waitFor(int peer);
    void forget(int peer);

    std::string name_;
    std::filesystem::path folder_; ///< empty when there is none to trust
    int lock_ = -1;
    int socket_ = -1;
    std::function<void()> show_;
    std::unique_ptr<QSocketNotifier> notifier_;
    /// Peers that have called and not spoken yet, the oldest first.
    std::deque<std::unique_ptr<QSocketNotifier>> silent_;
};

} // namespace orvelle
