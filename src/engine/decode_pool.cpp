#include "engine/decode_pool.h"

#include <algorithm>

#include "engine/sample_decoder.h"

namespace brevane {

int DecodePool::defaultWorkers() {
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 2, 4);
}

DecodePool::DecodePool(int workers) : workerCount_(std::max(1, workers)) {}

DecodePool::~DecodePool() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        queue_.clear();
    }
    wake_.notify_all();
    workers_.clear();  // joins: a decode under way ends first
}

std::shared_ptr<DecodePool::Job> DecodePool::jobOf(const SampleRecord* record) const {
    const auto holds = [record](const std::shared_ptr<Job>& job) {
        return std::find(job->records.begin(), job->records.end(), record) != job->records.end();
    };
    if (auto it = std::find_if(queue_.begin(), queue_.end(), holds); it != queue_.end()) {
        return *it;
    }
    if (auto it = std::find_if(running_.begin(), running_.end(), holds); it != running_.end()) {
        return *it;
    }
    return nullptr;
}

void DecodePool::request(const FileIdentity& file, SampleRecord* record) {
    record->state.store(SampleState::Pending, std::memory_order_relaxed);
    std::lock_guard lock(mutex_);
    const auto same = [&file](const std::shared_ptr<Job>& job) { return job->file == file; };
    if (auto it = std::find_if(queue_.begin(), queue_.end(), same); it != queue_.end()) {
        (*it)->records.push_back(record);
        return;
    }
    if (auto it = std::find_if(running_.begin(), running_.end(), same); it != running_.end()) {
        (*it)->records.push_back(record);
        return;
    }
    // The threads start with the first decode: most engines a test builds never load.
    while (static_cast<int>(workers_.size()) < workerCount_) {
        workers_.emplace_back([this] { work(); });
    }
    auto job = std::make_shared<Job>();
    job->file = file;
    job->records.push_back(record);
    queue_.push_back(std::move(job));
    wake_.notify_one();
}

void DecodePool::withdraw(const SampleRecord* record) {
    std::lock_guard lock(mutex_);
    const std::shared_ptr<Job> job = jobOf(record);
    if (!job) {
        return;
    }
    std::erase(job->records, record);
    if (job->records.empty() && !job->running) {
        std::erase(queue_, job);
        idle_.notify_all();
    }
}

void DecodePool::hurry(SampleRecord* record) {
    std::lock_guard lock(mutex_);
    const std::shared_ptr<Job> job = jobOf(record);
    if (!job || job->running) {
        return;
    }
    std::erase(queue_, job);
    queue_.push_front(job);
}

std::vector<std::pair<FileIdentity, DecodedSample>> DecodePool::takeUnclaimed() {
    std::lock_guard lock(mutex_);
    return std::exchange(unclaimed_, {});
}

void DecodePool::waitIdle() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return queue_.empty() && running_.empty(); });
}

std::size_t DecodePool::outstanding() {
    std::lock_guard lock(mutex_);
    return queue_.size() + running_.size();
}

void DecodePool::work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
        if (stopping_) {
            return;
        }
        std::shared_ptr<Job> job = queue_.front();
        queue_.pop_front();
        job->running = true;
        running_.push_back(job);

        lock.unlock();
        std::optional<DecodedSample> decoded = decodeSampleFile(job->file.path);
        lock.lock();

        // Handed over under the lock, so that a record withdrawn meanwhile is not touched.
        // Every record but the last gets a copy; a file asked for twice at once is rare.
        for (std::size_t i = 0; i < job->records.size(); ++i) {
            SampleRecord* record = job->records[i];
            if (decoded) {
                record->rate = decoded->rate;
                record->frames =
                    i + 1 < job->records.size() ? decoded->frames : std::move(decoded->frames);
            }
            record->state.store(decoded ? SampleState::Ready : SampleState::Failed,
                                std::memory_order_release);
        }
        if (job->records.empty() && decoded) {
            unclaimed_.emplace_back(job->file, std::move(*decoded));
        }
        std::erase(running_, job);
        if (queue_.empty() && running_.empty()) {
            idle_.notify_all();
        }
    }
}

}  // namespace brevane
