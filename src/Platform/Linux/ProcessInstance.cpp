#include "Platform/Linux/ProcessInstance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

namespace orvelle {

namespace {

constexpr std::string_view request = "show";
constexpr auto startingTime = std::chrono::seconds(2);
/// So many may have called without a word; the oldest goes for the next.
constexpr std::size_t mostSilentPeers = 16;
constexpr auto retryInterval = std::chrono::milliseconds(20);

bool isPrivate(const std::filesystem::path& folder) {
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == getuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::filesystem::path privateFolder() {
    if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && isPrivate(runtime))
        return runtime;
    std::error_code error;
    const auto folder =
        std::filesystem::temp_directory_path(error) / ("orvelle-" + std::to_string(getuid()));
    mkdir(folder.c_str(), S_IRWXU);
    return isPrivate(folder) ? folder : std::filesystem::path();
}

/// None when the path is too long for a socket.
std::optional<sockaddr_un> addressOf(const std::filesystem::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof address.sun_path)
        return {};
    std::memcpy(address.sun_path, path.c_str(), path.native().size());
    return address;
}

int openSocket() {
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

bool isOwnPeer(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

int socketOf(const std::unique_ptr<QSocketNotifier>& notifier) {
    return static_cast<int>(notifier->socket());
}

} // namespace

ProcessInstance::ProcessInstance(std::string name)
    : name_(std::move(name)), folder_(privateFolder()) {}

ProcessInstance::~ProcessInstance() {
    notifier_.reset();
    while (!silent_.empty()) {
        const int peer = socketOf(silent_.front());
        forget(peer);
        close(peer);
    }
    if (socket_ >= 0) {
        unlink((folder_ / (name_ + ".sock")).c_str());
        close(socket_);
    }
    if (lock_ >= 0)
        close(lock_);
}

ProcessInstance::Claim ProcessInstance::claim() {
    if (folder_.empty())
        return Claim::unavailable;
    const auto end = std::chrono::steady_clock::now() + startingTime;
    do {
        if (lock())
            return bind() ? Claim::first : Claim::unavailable;
        if (askToShow(folder_ / (name_ + ".sock")))
            return Claim::handedOver;
        std::this_thread::sleep_for(retryInterval);
    } while (std::chrono::steady_clock::now() < end);
    return Claim::unavailable;
}

bool ProcessInstance::lock() {
    const auto path = folder_ / (name_ + ".lock");
    lock_ = open(path.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (lock_ < 0)
        return false;
    if (flock(lock_, LOCK_EX | LOCK_NB) == 0)
        return true;
    close(std::exchange(lock_, -1));
    return false;
}

bool ProcessInstance::bind() {
    const auto path = folder_ / (name_ + ".sock");
    const auto address = addressOf(path);
    if (!address)
        return false;
    // Whoever holds the lock owns the name: what lies here was left by an instance that crashed.
    unlink(path.c_str());
    socket_ = openSocket();
    const auto* generic = reinterpret_cast<const sockaddr*>(&*address);
    if (socket_ >= 0 && ::bind(socket_, generic, sizeof *address) == 0 &&
        ::listen(socket_, SOMAXCONN) == 0)
        return true;
    if (socket_ >= 0)
        close(std::exchange(socket_, -1));
    return false;
}

std::string ProcessInstance::socketPath() const {
    return socket_ < 0 ? "" : (folder_ / (name_ + ".sock")).string();
}

bool ProcessInstance::askToShow(const std::filesystem::path& path) {
    const auto address = addressOf(path);
    const int socket = address ? openSocket() : -1;
    if (socket < 0)
        return false;
    const auto* generic = reinterpret_cast<const sockaddr*>(&*address);
    const bool told = connect(socket, generic, sizeof *address) == 0 && isOwnPeer(socket) &&
                      send(socket, request.data(), request.size(), MSG_NOSIGNAL) ==
                          static_cast<ssize_t>(request.size());
    close(socket);
    return told;
}

void ProcessInstance::listen(std::function<void()> show) {
    if (socket_ < 0)
        return;
    show_ = std::move(show);
    notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { answer(); });
}

void ProcessInstance::answer() {
    const int peer = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (peer < 0)
        return;
    if (!isOwnPeer(peer))
        close(peer);
    else if (!heard(peer))
        waitFor(peer);
}

/// Ends the talk once the peer has said something or gone; false when there is nothing yet.
bool ProcessInstance::heard(int peer) {
    char text[request.size()];
    const auto length = recv(peer, text, sizeof text, 0);
    if (length < 0 && (errno == EAGAIN || errno == EINTR))
        return false;
    close(peer);
    if (length == static_cast<ssize_t>(request.size()) &&
        std::string_view(text, sizeof text) == request)
        show_();
    return true;
}

void ProcessInstance::waitFor(int peer) {
    auto notifier = std::make_unique<QSocketNotifier>(peer, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), [this, peer] {
        forget(peer);
        if (!heard(peer))
            waitFor(peer);
    });
    silent_.push_back(std::move(notifier));
    if (silent_.size() > mostSilentPeers) {
        const int oldest = socketOf(silent_.front());
        forget(oldest);
        close(oldest);
    }
}

void ProcessInstance::forget(int peer) {
    const auto found = std::ranges::find(silent_, peer, socketOf);
    (*found)->setEnabled(false);
    found->release()->deleteLater(); // it may be telling right now
    silent_.erase(found);
}

} // namespace orvelle
