// Decoding sound files on a few worker threads.
//
// A restored session asks for well over a hundred files at once. Decoded one after the
// other on the event thread they kept the program silent for more than a second; here
// they are decoded side by side, the loops that are already wanted first, and handed
// straight to the samples waiting for them.
#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "engine/decode_cache.h"
#include "engine/mixer.h"

namespace brevane {

// Thread: request, withdraw, hurry, takeUnclaimed and waitIdle on one thread (the
// engine's interface thread); the workers are the pool's own. A record handed to
// request() is written by a worker (its frames and rate, then its state made Ready or
// Failed, with release order) unless withdraw() takes it back first. Records are
// owned by the caller and must outlive the request or its withdrawal.
class DecodePool {
  public:
    // One thread per core, at least two and at most four: decoding is the whole of a
    // start-up's work, and the event thread has little else to do meanwhile.
    static int defaultWorkers();

    // `workers` threads (at least one), started with the first request.
    explicit DecodePool(int workers);
    // Drops what is queued and waits for the decodes under way to end.
    ~DecodePool();
    DecodePool(const DecodePool&) = delete;
    DecodePool& operator=(const DecodePool&) = delete;

    // Decodes `file` into `record`, whose state is Pending until then. A file already
    // queued or being decoded is decoded once for every record that asks for it.
    void request(const FileIdentity& file, SampleRecord* record);
    // The record no longer wants its decode; once this returns no worker writes to it.
    // A decode that nobody wants any more is dropped if it has not begun.
    void withdraw(const SampleRecord* record);
    // The record is about to be heard: its decode goes before every other queued one.
    void hurry(SampleRecord* record);
    // Decodes that were under way when their last record was withdrawn: kept for a
    // load of the same file a moment later.
    std::vector<std::pair<FileIdentity, DecodedSample>> takeUnclaimed();
    // Returns once nothing is queued or under way.
    void waitIdle();
    // Decodes queued or under way.
    std::size_t outstanding();

  private:
    struct Job {
        FileIdentity file;
        std::vector<SampleRecord*> records;
        bool running = false;
    };

    void work();
    // The job a record waits on, or null. Under `mutex_`.
    std::shared_ptr<Job> jobOf(const SampleRecord* record) const;

    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable idle_;
    std::deque<std::shared_ptr<Job>> queue_;
    std::vector<std::shared_ptr<Job>> running_;
    std::vector<std::pair<FileIdentity, DecodedSample>> unclaimed_;
    bool stopping_ = false;
    int workerCount_;
    std::vector<std::jthread> workers_;
};

}  // namespace brevane
