#pragma once
// A temporary folder of the program's, removed with everything in it when the object
// goes: a headless program's tree for the tools, the recorder's renders and the tests.
// Symbolic links inside are removed, never followed.

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>

namespace brevane {

class ScratchTree {
  public:
    // "<temp>/<prefix>-<pid>-<n>", made empty.
    explicit ScratchTree(const std::string& prefix = "brevane-scratch") {
        static std::atomic<int> counter{0};
        root_ = std::filesystem::temp_directory_path() /
                (prefix + "-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
        std::filesystem::remove_all(root_);
        std::filesystem::create_directories(root_);
    }
    ~ScratchTree() {
        std::error_code ec;
        std::filesystem::remove_all(root_, ec);
    }
    ScratchTree(const ScratchTree&) = delete;
    ScratchTree& operator=(const ScratchTree&) = delete;

    const std::filesystem::path& root() const { return root_; }

  private:
    std::filesystem::path root_;
};

}  // namespace brevane
