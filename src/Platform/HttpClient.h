#pragma once

#include "Foundation/Date.h"
#include "Foundation/Subscription.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvelle {

enum class HttpCachePolicy {
    useProtocol,              ///< what the protocol's own headers allow
    reloadIgnoringLocalCache, ///< asks every cache on the way for a fresh answer as well
};

/// A plain GET.
struct HttpRequest {
    std::string url; ///< absolute, goes over the wire as it stands
    std::vector<std::pair<std::string, std::string>> headers = {};
    Seconds timeout = 60; ///< without any progress
    HttpCachePolicy cachePolicy = HttpCachePolicy::useProtocol;

    bool operator==(const HttpRequest&) const = default;
};

struct HttpReply {
    static constexpr int statusOK = 200;

    /// Why there is no whole answer, for people; then the other fields mean nothing. Any HTTP
    /// status is an answer.
    std::optional<std::string> error;
    int status = 0;
    /// Decompressed. When the server announced no length and hung up, it may lack its end.
    std::string body;
};

/// The program's way to the web services. Certificates are verified; a redirect is followed from
/// https to https only; nothing is kept on disk, and no cookie at all.
class HttpClient {
public:
    /// A longer body, also a decompressed one, is an error and is not read to its end.
    static constexpr std::size_t bodyLimit = 4 << 20; // bytes

    using Completion = std::function<void(const HttpReply&)>;

    virtual ~HttpClient() = default;

    /// Main thread; `done` arrives there once, never during the call, and not after the handle
    /// died. The handle may be reset from `done`, and ends the request when it dies before.
    [[nodiscard]] virtual Subscription get(HttpRequest request, Completion done) = 0;
};

} // namespace orvelle
