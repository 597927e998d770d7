// The program's mix handed to the recorder beside it, over a local socket: what the
// recorder keeps is exactly what the program plays, with no sound server in between.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

namespace brevane {

class Mixer;

// The socket of the program that runs on the tree at `appPath`: a name in the
// machine's abstract socket space, so nothing is left on disk and two programs on two
// trees never meet.
std::string mixShareAddress(const std::filesystem::path& appPath);

// The program's side. While a recorder is connected, the mixer copies its output into
// its tap ring (never blocking), and this object's own thread sends it on. One recorder
// at a time; the next is served when the first goes.
//
// Stream: a 16-byte header ("BRVMIX1", a zero byte, the rate and the channel count as
// 32-bit integers), then interleaved 32-bit float frames, all in this machine's order.
//
// Thread: made and destroyed on the interface thread; the mixer must outlive it.
class MixShare {
  public:
    MixShare(Mixer& mixer, const std::string& address);
    ~MixShare();
    MixShare(const MixShare&) = delete;
    MixShare& operator=(const MixShare&) = delete;

    // False when the address was taken (another program on the same tree).
    bool listening() const { return listenFd_ >= 0; }
    // Whether a recorder is connected at the moment; any thread.
    bool serving() const { return serving_.load(std::memory_order_acquire); }

  private:
    void run();
    void serve(int client);

    Mixer& mixer_;
    int listenFd_ = -1;
    std::atomic<bool> stop_{false};
    std::atomic<bool> serving_{false};
    std::thread thread_;
};

// The recorder's side: a connection to a program's MixShare.
//
// Thread: connect(), read() and close() on one thread at a time; interrupt() from any
// thread, to end a read() waiting on another before that thread is joined and close()d.
class MixShareClient {
  public:
    MixShareClient() = default;
    ~MixShareClient();
    MixShareClient(const MixShareClient&) = delete;
    MixShareClient& operator=(const MixShareClient&) = delete;

    // False when no program answers at `address`, or it is not a mix share.
    bool connect(const std::string& address);
    int rate() const { return rate_; }
    int channels() const { return channels_; }
    // Waits for and reads up to `maxValues` samples; 0 once the program has gone or
    // close() was called.
    std::size_t read(float* values, std::size_t maxValues);
    // Ends the connection for reading: a waiting read() returns 0, and so do later ones.
    void interrupt();
    // Lets the connection go; no read() may be running.
    void close();

  private:
    std::atomic<int> fd_{-1};
    int rate_ = 0;
    int channels_ = 0;
    // Bytes of a sample split between two reads.
    unsigned char partial_[sizeof(float)] = {};
    std::size_t partialBytes_ = 0;
};

}  // namespace brevane
