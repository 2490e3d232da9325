#include "Platform/WritersLock.h"

#include <utility>

namespace orvelle {

Subscription lockAmongWriters(FileSystem& fileSystem, const std::string& path, std::size_t limit,
                              Seconds patience) {
    constexpr int maximumWaits = 10;
    const auto folder = path.substr(0, path.rfind('/'));
    if (patience <= 0)
        return fileSystem.lock(folder, 0);
    Subscription held;
    auto before = fileSystem.read(path, limit).bytes;
    for (int waits = 0; !held && waits < maximumWaits; ++waits) {
        held = fileSystem.lock(folder, patience);
        auto now = fileSystem.read(path, limit).bytes;
        if (now == before)
            break;
        before = std::move(now);
    }
    return held;
}

} // namespace orvelle
