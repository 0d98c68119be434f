// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_OUTPUT_PROGRESS_H
#define VELRZM_TOOLS_OUTPUT_PROGRESS_H

#include <cstddef>

namespace tools {

/** Tells how far a long work has come, to a person only. */
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

} // namespace tools

#endif
