#pragma once
// A temporary folder for one test, removed with everything in it afterwards.

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>

namespace brevane {

class TempTree {
  public:
    TempTree() {
        static std::atomic<int> counter{0};
        root_ = std::filesystem::temp_directory_path() /
                ("brevane-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
        std::filesystem::remove_all(root_);
        std::filesystem::create_directories(root_);
    }
    ~TempTree() {
        std::error_code ec;
        std::filesystem::remove_all(root_, ec);
    }
    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;

    const std::filesystem::path& root() const { return root_; }

  private:
    std::filesystem::path root_;
};

}  // namespace brevane
