// SPDX-License-Identifier: Apache-2.0
//
// Connects to a server that does nothing, with an access log in a folder of its own, and runs the benchmarks.
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include <benchmark/benchmark.h>
#include <velrzm/velrzm.h>

#include "bench/log_folder.h"

namespace {

/** A temporary folder that is removed at the end. */
class TemporaryFolder {
public:
    TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "velrzm_bench.XXXXXX")
    {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::filesystem::filesystem_error("no temporary folder", path_,
                                                    std::error_code(errno, std::generic_category()));
        }
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::string& path() const noexcept { return path_; }

private:
    std::string path_;
};

int run(int argc, char** argv)
{
    for (const char* const file : {"QVL_LOG_FILE", "QVL_LOG_ERROR", "QVL_LAST_ERROR"}) {
        ::setenv(file, (bench::logFolder() + "/" + file).c_str(), 1);
    }
    ::setenv("QV_STORE", "sqlite::memory:", 1);
    ::setenv("QVL_TRACE_LEVEL", "-1", 1);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv) || QvConnect("bench", "") == 0) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}

} // namespace

const std::string& bench::logFolder()
{
    static const TemporaryFolder folder;
    return folder.path();
}

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "velrzm_bench: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
