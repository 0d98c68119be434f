// SPDX-License-Identifier: Apache-2.0
#include "server/administration/backup.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "server/administration/store_location.h"
#include "server/base/errors.h"
#include "server/sqlite/exclusive_use.h"
#include "server/sqlite/store.h"

namespace qvserver {

namespace {

namespace fs = std::filesystem;

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

[[noreturn]] void failOfSystem(std::string_view what, int error)
{
    fail(Failure::StoreFailure, what, systemReason(error));
}

std::string folderOf(const std::string& file)
{
    const fs::path folder = fs::path(file).parent_path();
    return folder.empty() ? "." : folder.string();
}

/** Has the names in the folder of `file` on the disk. */
void syncFolderOf(const std::string& file)
{
    const Descriptor folder(::open(folderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.number() == -1 || ::fsync(folder.number()) != 0) {
        failOfSystem("it may be lost if the machine stops now: ", errno);
    }
}

/** An empty file beside its final place; removed unless it was moved there. What a process that was killed left there is
 * used again. */
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::string& file)
        : file_(file), path_(file + ".unfinished"),
          descriptor_(::open(path_.c_str(), O_CREAT | O_RDWR | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR))
    {
        if (descriptor_.number() == -1) {
            failOfSystem("cannot create a file in its folder: ", errno);
        }
        if (::flock(descriptor_.number(), LOCK_EX | LOCK_NB) != 0 || !isAtPath()) {
            fail(Failure::StoreBusy, "another process is making one there");
        }
        if (::ftruncate(descriptor_.number(), 0) != 0) {
            const int error = errno;
            ::unlink(path_.c_str());
            failOfSystem("", error);
        }
    }
    ~UnfinishedFile()
    {
        if (!isFinished_) {
            ::unlink(path_.c_str());
        }
    }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::string& path() const noexcept { return path_; }

    /** Has the content on the disk. */
    void sync(mode_t permissions)
    {
        if (::fchmod(descriptor_.number(), permissions) != 0 || ::fsync(descriptor_.number()) != 0) {
            failOfSystem("", errno);
        }
    }
    /** Moves the file to its place. */
    void finish(Replace replace)
    {
        if (!rename(replace)) {
            failOfSystem("", errno);
        }
        isFinished_ = true;
        syncFolderOf(file_);
    }

private:
    /** Whether the path still names the file: who held the lock before may have moved it to its place. */
    bool isAtPath() const noexcept
    {
        struct stat opened = {};
        struct stat named = {};
        return ::fstat(descriptor_.number(), &opened) == 0 && ::lstat(path_.c_str(), &named) == 0 &&
               opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
    }
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
    bool isFinished_ = false;
};

bool isThere(const std::string& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

/** Fails when a copy at `file` would destroy something, or would be destroyed. */
void checkPlace(const std::string& store, const std::string& file, Replace replace)
{
    std::error_code ignored;
    for (const std::string& own : storeFilesAt(store)) {
        if (fs::equivalent(own, file, ignored)) {
            fail(Failure::StoreFailure, "this is the store itself; choose another file");
        }
    }
    if (isThere(file) && !fs::is_regular_file(fs::symlink_status(file, ignored))) {
        fail(Failure::StoreFailure, "what is there is not a plain file; choose another file");
    }
    if (isThere(file) && replace == Replace::No) {
        fail(Failure::StoreFailure,
             "there is already a file; choose another one, remove it, or have it replaced with --force");
    }
}

void checkNothingBeside(const std::string& file)
{
    const auto files = storeFilesAt(file);
    for (auto beside = files.begin() + 1; beside != files.end(); ++beside) {
        if (isThere(*beside)) {
            fail(Failure::StoreFailure, *beside,
                 " belongs to a store that is in use or was not closed; choose another file, or end its use "
                 "and remove both");
        }
    }
}

/** Removes what lies beside the store in `file`: it belongs to the one that is replaced. */
void removeWhatIsBeside(const std::string& file)
{
    const auto files = storeFilesAt(file);
    for (auto beside = files.begin() + 1; beside != files.end(); ++beside) {
        if (::unlink(beside->c_str()) != 0 && errno != ENOENT) {
            const int error = errno;
            failOfSystem(*beside + " cannot be removed: ", error);
        }
    }
    syncFolderOf(file);
}

/** Holds the file, if there is one, so that nobody begins to use it as a store; fails when somebody does. */
std::optional<ExclusiveUse> hold(const std::string& file)
{
    if (!isThere(file)) {
        return std::nullopt;
    }
    return std::optional<ExclusiveUse>(std::in_place, file);
}

/** The permissions of the first of two files that is there. */
mode_t permissionsOf(const std::string& file, const std::string& otherwise)
{
    constexpr mode_t readAndWrite = 0666;
    struct stat status = {};
    if (::stat(file.c_str(), &status) != 0 && ::stat(otherwise.c_str(), &status) != 0) {
        failOfSystem("", errno);
    }
    return status.st_mode & readAndWrite;
}

/** Runs `use`; its failure says that there is no `what`. */
template <typename Use>
void make(const std::string& what, Use use)
{
    try {
        use();
    } catch (const ServerError& error) {
        fail(error.failure(), what, ": ", error.what());
    }
}

} // namespace

void backUpStore(const std::string& location, const std::string& file, Replace replace,
                 const CopyProgress& progress)
{
    const auto store = openStoreFile(location);
    const std::string path = pathOfStore(location);
    make("no backup was made at " + file, [&] {
        checkPlace(path, file, replace);
        checkNothingBeside(file);
        UnfinishedFile unfinished(file);
        store->copyTo(unfinished.path(), progress);
        unfinished.sync(permissionsOf(path, path));
        const auto held = hold(file);
        checkPlace(path, file, replace); // again, since somebody may have begun to use it
        checkNothingBeside(file);
        unfinished.finish(held ? replace : Replace::No);
    });
}

void restoreStore(const std::string& file, const std::string& location, const CopyProgress& progress)
{
    std::error_code ignored;
    const std::string path = fs::weakly_canonical(pathOfStore(location), ignored).string();
    make("nothing was restored at " + path, [&] {
        if (!isThere(file)) {
            fail(Failure::StoreFailure, "there is no file ", file, " to restore");
        }
        const auto copy = SqliteStore::open(file);
        checkPlace(file, path, Replace::Yes);
        fs::create_directories(folderOf(path), ignored);
        hold(path); // before anything is copied in vain
        UnfinishedFile unfinished(path);
        copy->copyTo(unfinished.path(), progress);
        unfinished.sync(permissionsOf(path, file));
        const auto held = hold(path);
        // First, since it would change the restored store if the machine stopped in between.
        removeWhatIsBeside(path);
        unfinished.finish(held ? Replace::Yes : Replace::No);
    });
}

} // namespace qvserver
