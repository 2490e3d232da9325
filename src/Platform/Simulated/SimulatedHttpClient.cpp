#include "Platform/Simulated/SimulatedHttpClient.h"

#include <algorithm>
#include <utility>

namespace orvelle {

Subscription SimulatedHttpClient::get(HttpRequest request, Completion done) {
    requests.push_back(request);
    auto waiting = std::make_shared<Waiting>(Waiting{std::move(request), std::move(done)});
    if (respond)
        runLoop_.post([waiting, reply = respond(waiting->request)] { finish(*waiting, reply); });
    else
        waiting_.push_back(waiting);
    return Subscription([waiting] { waiting->isWanted = false; });
}

std::size_t SimulatedHttpClient::waitingCount() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(waiting_, [](const auto& waiting) { return waiting->isWanted; }));
}

bool SimulatedHttpClient::answer(const HttpReply& reply, std::string_view part) {
    const auto found = std::ranges::find_if(waiting_, [&](const auto& waiting) {
        return waiting->isWanted && waiting->request.url.find(part) != std::string::npos;
    });
    if (found == waiting_.end())
        return false;
    const auto waiting = *found;
    waiting_.erase(found);
    finish(*waiting, reply);
    return true;
}

void SimulatedHttpClient::finish(Waiting& waiting, const HttpReply& reply) {
    if (!waiting.isWanted)
        return;
    const auto done = std::move(waiting.done);
    done(reply);
}

} // namespace orvelle
