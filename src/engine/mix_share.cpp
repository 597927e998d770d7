#include "engine/mix_share.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <vector>

#include "engine/mix_format.h"
#include "engine/mixer.h"

namespace brevane {

namespace {

constexpr std::array<char, 8> kMagic = {'B', 'R', 'V', 'M', 'I', 'X', '1', '\0'};
constexpr int kHeaderBytes = 16;
// How often the sending thread looks for a stop or new samples, in ms.
constexpr int kPollMs = 20;

sockaddr_un addressOf(const std::string& name, socklen_t& length) {
    sockaddr_un a{};
    a.sun_family = AF_UNIX;
    // Abstract: the first byte of the path is zero, the name follows.
    const std::size_t n = std::min(name.size(), sizeof(a.sun_path) - 1);
    std::memcpy(a.sun_path + 1, name.data(), n);
    length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + n);
    return a;
}

// Sends or receives all of `bytes`. False when the other side has gone, or when `stop`
// is set while a send waits on a recorder that has stopped reading.
bool transferAll(int fd, void* data, std::size_t bytes, bool sending,
                 const std::atomic<bool>& stop) {
    auto* p = static_cast<unsigned char*>(data);
    while (bytes > 0) {
        const ssize_t n = sending ? ::send(fd, p, bytes, MSG_NOSIGNAL) : ::recv(fd, p, bytes, 0);
        if (n < 0 && (errno == EINTR || errno == EAGAIN) && !stop.load()) {
            continue;
        }
        if (n <= 0) {
            return false;
        }
        p += n;
        bytes -= static_cast<std::size_t>(n);
    }
    return true;
}

const std::atomic<bool> kNeverStop{false};

}  // namespace

std::string mixShareAddress(const std::filesystem::path& appPath) {
    // FNV-1a of the tree's full path: short enough for any socket name, the same in
    // every process.
    std::error_code ec;
    const std::filesystem::path full = std::filesystem::weakly_canonical(appPath, ec);
    std::uint64_t h = 14695981039346656037ULL;
    for (const char c : (ec ? appPath : full).string()) {
        h = (h ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    }
    char hex[17];
    std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(h));
    return "brevane-mix-" + std::to_string(::getuid()) + "-" + hex;
}

MixShare::MixShare(Mixer& mixer, const std::string& address) : mixer_(mixer) {
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        return;
    }
    socklen_t length = 0;
    const sockaddr_un a = addressOf(address, length);
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&a), length) != 0 || ::listen(fd, 2) != 0) {
        ::close(fd);
        return;
    }
    listenFd_ = fd;
    thread_ = std::thread([this] { run(); });
}

MixShare::~MixShare() {
    stop_.store(true);
    if (thread_.joinable()) {
        thread_.join();
    }
    if (listenFd_ >= 0) {
        ::close(listenFd_);
    }
}

void MixShare::run() {
    while (!stop_.load()) {
        pollfd p{listenFd_, POLLIN, 0};
        if (::poll(&p, 1, kPollMs) <= 0 || (p.revents & POLLIN) == 0) {
            continue;
        }
        const int client = ::accept4(listenFd_, nullptr, nullptr, SOCK_CLOEXEC);
        if (client >= 0) {
            serve(client);
            ::close(client);
        }
    }
}

void MixShare::serve(int client) {
    // A recorder that stops reading must not hold this thread past a stop.
    timeval timeout{0, kPollMs * 1000};
    ::setsockopt(client, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
    std::array<unsigned char, kHeaderBytes> header{};
    const std::int32_t format[2] = {kMixRate, 2};
    std::memcpy(header.data(), kMagic.data(), kMagic.size());
    std::memcpy(header.data() + kMagic.size(), format, sizeof format);
    // The tap opens before the recorder hears back, so its file begins with the first
    // mix after its connection is made, with nothing missing.
    MixRing& ring = mixer_.tapRing();
    ring.discard();
    mixer_.setTapping(true);
    serving_.store(true, std::memory_order_release);
    if (!transferAll(client, header.data(), header.size(), true, stop_)) {
        mixer_.setTapping(false);
        serving_.store(false, std::memory_order_release);
        return;
    }
    std::vector<float> block(static_cast<std::size_t>(kMixRate) / 5);
    bool open = true;
    while (open && !stop_.load()) {
        const std::size_t n = ring.read(block.data(), block.size());
        if (n > 0) {
            open = transferAll(client, block.data(), n * sizeof(float), true, stop_);
            continue;
        }
        // Nothing to send: wait a little, and notice a recorder that went away.
        pollfd p{client, POLLIN | POLLRDHUP, 0};
        open = ::poll(&p, 1, kPollMs) == 0;
    }
    mixer_.setTapping(false);
    serving_.store(false, std::memory_order_release);
}

MixShareClient::~MixShareClient() {
    close();
}

bool MixShareClient::connect(const std::string& address) {
    close();
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        return false;
    }
    socklen_t length = 0;
    const sockaddr_un a = addressOf(address, length);
    std::array<unsigned char, kHeaderBytes> header{};
    std::int32_t format[2] = {0, 0};
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&a), length) != 0 ||
        !transferAll(fd, header.data(), header.size(), false, kNeverStop) ||
        std::memcmp(header.data(), kMagic.data(), kMagic.size()) != 0) {
        ::close(fd);
        return false;
    }
    std::memcpy(format, header.data() + kMagic.size(), sizeof format);
    if (format[0] <= 0 || format[1] <= 0) {
        ::close(fd);
        return false;
    }
    rate_ = format[0];
    channels_ = format[1];
    partialBytes_ = 0;
    fd_.store(fd);
    return true;
}

std::size_t MixShareClient::read(float* values, std::size_t maxValues) {
    const int fd = fd_.load();
    if (fd < 0 || maxValues == 0) {
        return 0;
    }
    auto* bytes = reinterpret_cast<unsigned char*>(values);
    std::memcpy(bytes, partial_, partialBytes_);
    for (;;) {
        const ssize_t n =
            ::recv(fd, bytes + partialBytes_, maxValues * sizeof(float) - partialBytes_, 0);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return 0;
        }
        const std::size_t have = partialBytes_ + static_cast<std::size_t>(n);
        const std::size_t whole = have / sizeof(float);
        partialBytes_ = have % sizeof(float);
        std::memcpy(partial_, bytes + whole * sizeof(float), partialBytes_);
        if (whole > 0) {
            return whole;
        }
    }
}

void MixShareClient::interrupt() {
    const int fd = fd_.load();
    if (fd >= 0) {
        ::shutdown(fd, SHUT_RDWR);
    }
}

void MixShareClient::close() {
    const int fd = fd_.exchange(-1);
    if (fd >= 0) {
        ::close(fd);
    }
}

}  // namespace brevane
