// SPDX-License-Identifier: Apache-2.0
#include "server/administration/backup.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "server/administration/store_location.h"
#include "server/base/errors.h"

namespace qvserver {

namespace {

namespace fs = std::filesystem;

template <typename... Pieces>
[[noreturn]] void failBackup(const std::string& file, const Pieces&... pieces)
{
    fail(Failure::StoreFailure, "no backup was made at ", file, ": ", pieces...);
}

[[noreturn]] void failBackupOfSystem(const std::string& file)
{
    failBackup(file, systemReason(errno));
}

class Descriptor {
public:
    explicit Descriptor(int number) noexcept : number_(number) {}
    ~Descriptor()
    {
        if (number_ != -1) {
            ::close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const noexcept { return number_; }

private:
    int number_;
};

/** An empty file beside its final place; removed unless it was moved there. */
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::string& file)
        : file_(file), path_(file + ".XXXXXX"), descriptor_(::mkostemp(path_.data(), O_CLOEXEC))
    {
        if (descriptor_.number() == -1) {
            failBackup(file_, "cannot create a file in its folder: ", systemReason(errno));
        }
    }
    ~UnfinishedFile()
    {
        if (!path_.empty()) {
            ::unlink(path_.c_str());
        }
    }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::string& path() const noexcept { return path_; }

    /** Moves the file to its place when its content is on the disk. */
    void finish(mode_t permissions, Replace replace)
    {
        if (::fchmod(descriptor_.number(), permissions) != 0 || ::fsync(descriptor_.number()) != 0 ||
            !rename(replace)) {
            failBackupOfSystem(file_);
        }
        path_.clear();
        const fs::path folder = fs::path(file_).parent_path();
        const Descriptor opened(
            ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (opened.number() == -1 || ::fsync(opened.number()) != 0) {
            fail(Failure::StoreFailure, "the backup at ", file_,
                 " may be lost if the machine stops now: ", systemReason(errno));
        }
    }

private:
    /** Another process may have created the file meanwhile, which only Replace::Yes may overwrite. */
    bool rename(Replace replace) const
    {
        if (replace == Replace::Yes) {
            return ::rename(path_.c_str(), file_.c_str()) == 0;
        }
        return ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, file_.c_str(), RENAME_NOREPLACE) == 0 ||
               (errno == EINVAL && // some file systems do not know this flag
                ::link(path_.c_str(), file_.c_str()) == 0 && ::unlink(path_.c_str()) == 0);
    }

    const std::string& file_;
    std::string path_;
    Descriptor descriptor_;
};

bool isThere(const std::string& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

/** Fails when a copy at `file` would destroy something, or would be destroyed. */
void checkPlace(const std::vector<std::string>& storeFiles, const std::string& file, Replace replace)
{
    std::error_code ignored;
    for (const std::string& own : storeFiles) {
        if (fs::equivalent(own, file, ignored)) {
            failBackup(file, "this is the store itself; choose another file");
        }
    }
    if (isThere(file) && !fs::is_regular_file(fs::symlink_status(file, ignored))) {
        failBackup(file, "what is there is not a plain file; choose another file");
    }
    if (isThere(file) && replace == Replace::No) {
        failBackup(
            file, "there is already a file; choose another one, remove it, or have it replaced with --force");
    }
    const auto files = storeFilesAt(file);
    for (auto beside = files.begin() + 1; beside != files.end(); ++beside) {
        if (isThere(*beside)) {
            failBackup(
                file, *beside,
                " belongs to a store that is in use or was not closed; choose another file, or end its "
                "use and remove both");
        }
    }
}

} // namespace

void backUpStore(const std::string& location, const std::string& file, Replace replace,
                 const CopyProgress& progress)
{
    const auto store = openStoreFile(location);
    const auto storeFiles = storeFilesAt(pathOfStore(location));
    checkPlace(storeFiles, file, replace);
    struct stat status = {};
    if (::stat(storeFiles.front().c_str(), &status) != 0) {
        failBackupOfSystem(file);
    }
    UnfinishedFile unfinished(file);
    try {
        store->copyTo(unfinished.path(), progress);
    } catch (const ServerError& error) {
        failBackup(file, error.what());
    }
    constexpr mode_t readAndWrite = 0666;
    unfinished.finish(status.st_mode & readAndWrite, replace);
}

} // namespace qvserver
