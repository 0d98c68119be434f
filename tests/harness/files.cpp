// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/files.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <system_error>

#include <unistd.h>

namespace harness {

namespace {

/** Standard output, turned into a file for as long as it lives. */
class RedirectedOutput {
public:
    explicit RedirectedOutput(std::FILE* target) : original_(dup(STDOUT_FILENO))
    {
        flush();
        if (original_ < 0 || dup2(fileno(target), STDOUT_FILENO) < 0) {
            throw std::runtime_error("standard output cannot be redirected");
        }
    }
    ~RedirectedOutput()
    {
        flush();
        dup2(original_, STDOUT_FILENO);
        close(original_);
    }
    RedirectedOutput(const RedirectedOutput&) = delete;
    RedirectedOutput& operator=(const RedirectedOutput&) = delete;

private:
    static void flush()
    {
        std::cout.flush();
        static_cast<void>(std::fflush(stdout));
    }
    int original_;
};

} // namespace

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
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> target(std::tmpfile(), &std::fclose);
    if (target == nullptr) {
        throw std::runtime_error("no temporary file for standard output");
    }
    {
        const RedirectedOutput redirected(target.get());
        use();
    }
    std::rewind(target.get());
    std::string text;
    for (int unit = std::fgetc(target.get()); unit != EOF; unit = std::fgetc(target.get())) {
        text += static_cast<char>(unit);
    }
    return text;
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
