#pragma once

#include "Platform/HttpClient.h"
#include "Platform/RunLoop.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvelle {

/// A network that does what the test says.
class SimulatedHttpClient : public HttpClient {
public:
    explicit SimulatedHttpClient(RunLoop& runLoop) : runLoop_(runLoop) {}

    /// Every request so far, in order.
    std::vector<HttpRequest> requests;
    /// Gives the reply to each request at the next turn of the loop; without it requests wait.
    std::function<HttpReply(const HttpRequest&)> respond;

    static HttpReply success(std::string body) { return {{}, 200, std::move(body)}; }
    static HttpReply failure(std::string description) { return {std::move(description), 0, {}}; }

    /// The requests without an answer whose owner still wants one.
    std::size_t waitingCount() const;
    /// Answers the oldest waiting request whose address has `part` in it; false without one.
    bool answer(const HttpReply& reply, std::string_view part = {});

    Subscription get(HttpRequest request, Completion done) override;

private:
    struct Waiting {
        HttpRequest request;
        Completion done;
        bool isWanted = true;
    };

    static void finish(Waiting& waiting, const HttpReply& reply);

    RunLoop& runLoop_;
    std::deque<std::shared_ptr<Waiting>> waiting_;
};

} // namespace orvelle
