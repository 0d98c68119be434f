// SPDX-License-Identifier: Apache-2.0
//
// Files, environment variables and standard output as a test needs them: everything is put back at the end.
#ifndef VELRZM_TESTS_HARNESS_FILES_H
#define VELRZM_TESTS_HARNESS_FILES_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace harness {

/** The content of a file from byte `start` on; empty when there is none. */
std::string readFile(const std::string& path, std::size_t start = 0);
void writeFile(const std::string& path, const std::string& content);

/** What `use` writes to standard output, by whatever means. */
std::string captureOutput(const std::function<void()>& use);

/** An empty working directory of its own, removed with everything in it at the end. */
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

private:
    std::filesystem::path previous_;
    std::filesystem::path path_;
};

/** Changes of environment variables, taken back at the end. */
class Environment {
public:
    Environment() = default;
    ~Environment();
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    /** Sets the variable, or removes it when there is no value. */
    void set(const std::string& name, const std::optional<std::string>& value);

private:
    static void apply(const std::string& name, const std::optional<std::string>& value);
    std::map<std::string, std::optional<std::string>> originals_;
};

} // namespace harness

#endif
