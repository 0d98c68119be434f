// SPDX-License-Identifier: Apache-2.0
//
// The 20 entries of one operation among 1,000 lines in two files: by DefaultRead, and both files only read
// line by line.
#include <array>
#include <filesystem>
#include <fstream>
#include <string>

#include <benchmark/benchmark.h>
#include <velrzm/defaults.h>

#include "bench/log_folder.h"

namespace {

constexpr std::array<const char*, 2> files{"QVL_RZM_DEFAULT", "My_QVL_RZM_DEFAULT"};

/** The working directory for the time of a measurement, with both files. */
class SiteFolder {
public:
    SiteFolder() : previous_(std::filesystem::current_path())
    {
        constexpr int lines = 500;
        constexpr int share = 50; // one line of so many
        std::filesystem::current_path(bench::logFolder());
        for (const char* const path : files) {
            std::ofstream file(path);
            for (int line = 0; line < lines; ++line) {
                file << (line % share == 0 ? "ItemCreate" : "DocumentCheckIn") << "  site_attribute_" << line
                     << "  value\n";
            }
        }
    }
    SiteFolder(const SiteFolder&) = delete;
    SiteFolder& operator=(const SiteFolder&) = delete;
    ~SiteFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path(previous_, ignored);
    }

private:
    std::filesystem::path previous_;
};

void defaultsByDefaultRead(benchmark::State& state)
{
    const SiteFolder folder;
    VELListValVELUnicodeString names;
    VELListValVELUnicodeString values;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(DefaultRead("ItemCreate", names, values));
    }
}
BENCHMARK(defaultsByDefaultRead)->Name("defaults/DefaultRead");

void defaultsByGetline(benchmark::State& state)
{
    const SiteFolder folder;
    std::string line;
    for ([[maybe_unused]] auto _ : state) {
        for (const char* const path : files) {
            std::ifstream file(path);
            while (std::getline(file, line)) {
                benchmark::DoNotOptimize(line.data());
            }
        }
    }
}
BENCHMARK(defaultsByGetline)->Name("defaults/getline");

} // namespace
