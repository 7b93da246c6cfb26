// A lock on the folder itself, which leaves no file behind, and a socket without one.
#include "platform/instance_lock.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "descriptor.h"

namespace platform {
namespace {

using posix::Descriptor;

constexpr auto restartTakes = std::chrono::seconds(4);
constexpr auto betweenTries = std::chrono::milliseconds(50);
constexpr char heard = 'y';

class FolderLock final : public InstanceLock {
  public:
    explicit FolderLock(Descriptor folder) : folder_(std::move(folder)) {}

  private:
    Descriptor folder_;
};

/// By the folder's number: it may have many names. The name begins with a zero byte and stands in
/// no folder.
struct Address {
    sockaddr_un address{};
    socklen_t size = 0;
};

bool addressOf(const std::string& folder, Address& address) {
    struct stat found {};
    if (::stat(folder.c_str(), &found) != 0)
        return false;
    const auto name = "vexillum " + std::to_string(::getuid()) + " " +
                      std::to_string(found.st_dev) + " " + std::to_string(found.st_ino);
    address.address.sun_family = AF_UNIX;
    std::memcpy(&address.address.sun_path[1], name.data(), name.size());
    address.size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    return true;
}

Descriptor newSocket() {
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

class SocketBell final : public Doorbell {
  public:
    explicit SocketBell(Descriptor socket) : socket_(std::move(socket)) {}

    std::intptr_t handle() const override { return socket_.get(); }
    void answer() override {
        const Descriptor caller(::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (caller)
            ::send(caller.get(), &heard, 1, MSG_NOSIGNAL);
    }

  private:
    Descriptor socket_;
};

class Ring {
  public:
    explicit Ring(const std::string& folder) : hasAddress_(addressOf(folder, address_)) {}

    /// Waits a moment for an answer, at the door if there is one.
    bool isAnswered() {
        if (!isAtDoor_ && hasAddress_) {
            socket_ = newSocket();
            const auto* address = reinterpret_cast<const sockaddr*>(&address_.address);
            isAtDoor_ = ::connect(socket_.get(), address, address_.size) == 0;
        }
        if (!isAtDoor_) {
            std::this_thread::sleep_for(betweenTries);
            return false;
        }
        pollfd waits{socket_.get(), POLLIN, 0};
        if (::poll(&waits, 1, static_cast<int>(betweenTries.count())) <= 0)
            return false;
        char byte = 0;
        if (::recv(socket_.get(), &byte, 1, 0) == 1)
            return byte == heard;
        isAtDoor_ = false;
        return false;
    }

  private:
    Address address_;
    bool hasAddress_;
    Descriptor socket_;
    bool isAtDoor_ = false;
};

} // namespace

LockOutcome lockFolder(const std::string& folder, Holder holder) {
    Descriptor handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const auto end = std::chrono::steady_clock::now() + restartTakes;
    Ring ring(holder == Holder::isAsked ? folder : "");
    while (handle && ::flock(handle.get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK)
            break;
        if (ring.isAnswered())
            return {nullptr, true};
        if (std::chrono::steady_clock::now() > end)
            return {};
    }
    return {std::make_unique<FolderLock>(std::move(handle))};
}

std::unique_ptr<Doorbell> hangDoorbell(const std::string& folder) {
    constexpr int callers = 4;
    Address address;
    auto socket = newSocket();
    if (!socket || !addressOf(folder, address) ||
        ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address.address), address.size) !=
            0 ||
        ::listen(socket.get(), callers) != 0)
        return nullptr;
    return std::make_unique<SocketBell>(std::move(socket));
}

} // namespace platform
