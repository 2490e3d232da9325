#include "Platform/Linux/DataFolderLock.h"

#include "Foundation/Json.h"
#include "Platform/Linux/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>
#include <utility>

namespace orvelle {

namespace {

constexpr const char* lockName = ".lock";
constexpr auto handOverTime = std::chrono::seconds(2);
constexpr auto handOverPause = std::chrono::milliseconds(20);

std::string hostName() {
    char name[HOST_NAME_MAX + 1] = {};
    return gethostname(name, HOST_NAME_MAX) == 0 ? name : "";
}

std::string displayName() {
    const char* display = std::getenv("DISPLAY");
    return display ? display : "";
}

} // namespace

DataFolderLock::Holder DataFolderLock::Holder::self(std::string socket) {
    return {std::to_string(getpid()), hostName(), displayName(), std::move(socket)};
}

std::string DataFolderLock::Holder::text() const {
    return Json(Json::Object{
                    {"process", process}, {"host", host}, {"display", display}, {"socket", socket}})
        .text();
}

DataFolderLock::DataFolderLock(std::string folder) : folder_(std::move(folder)) {}

DataFolderLock::Claim
DataFolderLock::claim(const Holder& self,
                      const std::function<bool(const std::string& socket)>& show) {
    const auto path = folder_ + "/" + lockName;
    if (makePrivateFolder(folder_)) {
        // For writing, as network file systems want it.
        constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
        file_ = Descriptor(open(path.c_str(), flags, S_IRUSR | S_IWUSR));
    }
    if (!file_) {
        reason_ = std::strerror(errno);
        return Claim::unavailable;
    }
    const auto end = std::chrono::steady_clock::now() + handOverTime;
    do {
        if (flock(file_.get(), LOCK_EX | LOCK_NB) == 0) {
            announce(self);
            return Claim::held;
        }
        if (errno != EWOULDBLOCK) {
            reason_ = std::strerror(errno);
            return Claim::unavailable;
        }
        readHolder(); // each time: the one before may have left its name
        if (!holder_.socket.empty() && show(holder_.socket))
            return Claim::handedOver;
        std::this_thread::sleep_for(handOverPause);
    } while (std::chrono::steady_clock::now() < end);
    return Claim::refused;
}

/// On a full disk others learn less; the lock is had all the same.
void DataFolderLock::announce(const Holder& self) {
    const auto text = self.text();
    if (ftruncate(file_.get(), 0) != 0 || pwrite(file_.get(), text.data(), text.size(), 0) < 0)
        reason_ = std::strerror(errno);
}

void DataFolderLock::readHolder() {
    char text[4096];
    const auto size = pread(file_.get(), text, sizeof text, 0);
    const auto json =
        Json::parse(std::string_view(text, size < 0 ? 0 : static_cast<std::size_t>(size)));
    const auto member = [&](const char* key) {
        return json ? json->member(key).string().value_or("") : "";
    };
    holder_ = {member("process"), member("host"), member("display"), member("socket")};
}

} // namespace orvelle
