// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_OUTPUT_PROGRESS_H
#define VELRZM_TOOLS_OUTPUT_PROGRESS_H

#include <chrono>
#include <cstddef>

namespace tools {

/** Tells a person at a terminal how far a long work has come. */
class Progress {
public:
    /** `unit` is what the work is counted in. */
    explicit Progress(const char* unit);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void show(std::size_t done, std::size_t total);

private:
    const char* unit_;
    bool isWatched_;
    bool isShown_ = false;
    std::size_t filled_ = 0;
};

/** Tells a person at a terminal for how long a work has been going on, where nobody knows how far it has come. */
class ElapsedTime {
public:
    /** `work` is what goes on: "drawing". */
    explicit ElapsedTime(const char* work);
    ~ElapsedTime();
    ElapsedTime(const ElapsedTime&) = delete;
    ElapsedTime& operator=(const ElapsedTime&) = delete;

    void show();

private:
    const char* work_;
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    std::chrono::seconds shown_{0};
};

} // namespace tools

#endif
