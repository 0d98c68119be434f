// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/files.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include <gtest/gtest.h>

namespace harness {

std::string readFile(const std::string& path, std::size_t start)
{
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(start));
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : std::string();
}

void writeFile(const std::string& path, const std::string& content)
{
    std::ofstream file(path, std::ios::binary);
    file << content << std::flush;
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

std::string captureOutput(const std::function<void()>& use)
{
    testing::internal::CaptureStdout();
    use();
    return testing::internal::GetCapturedStdout();
}

TemporaryDirectory::TemporaryDirectory() : previous_(std::filesystem::current_path())
{
    std::string pattern = (std::filesystem::temp_directory_path() / "velrzm-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary directory " + pattern);
    }
    path_ = pattern;
    std::filesystem::current_path(path_);
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    std::filesystem::current_path(previous_, ignored);
    std::filesystem::remove_all(path_, ignored);
}

Environment::~Environment()
{
    for (const auto& [name, value] : originals_) {
        apply(name, value);
    }
}

void Environment::set(const std::string& name, const std::optional<std::string>& value)
{
    const char* const current = std::getenv(name.c_str());
    originals_.try_emplace(name, current == nullptr ? std::nullopt : std::optional<std::string>(current));
    apply(name, value);
}

void Environment::apply(const std::string& name, const std::optional<std::string>& value)
{
    if (value) {
        setenv(name.c_str(), value->c_str(), 1);
    } else {
        unsetenv(name.c_str());
    }
}

} // namespace harness
