#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace orvelle {

/// Tells of the signals that ask the process to end (SIGTERM, SIGINT, SIGHUP), on the main thread
/// and through its event loop. Nothing is blocked, so that the programs which this one starts
/// answer them as ever; a signal that the process was started to ignore, as by nohup, stays
/// ignored.
///
/// A display that has stopped holds whoever talks to it up for ever: when it does not answer within
/// a second and a half of the signal, the process ends as it is.
///
/// One at a time. Once it is gone the signals do nothing: the process is on its way out.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> received);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    void listen();

    const std::function<void()> received_;
    const int arrivals_; ///< an event counter; -1 where the system has none left
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace orvelle
