// SPDX-License-Identifier: Apache-2.0
//
// Commands that look after a store of the local server.
#include <memory>

#include <CLI/App.hpp>

#include <velrzm/qvlocal.h>

#include "tools/command_line/command_line.h"
#include "tools/output/outcome.h"
#include "tools/output/progress.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/password.h"

namespace tools {

namespace {

void initializeStore(const Settings& settings)
{
    if (settings.user.empty()) {
        throw WrongUsage("the store needs a first user; name them with --user");
    }
    const std::string location = qvlocal::currentStore();
    qvlocal::requireNoStore(location); // before a password is typed in vain
    qvlocal::initializeStore(location, settings.user, newPassword(settings.user, settings.passwordFile));
    writeOutcome(sentence("Made the store " + location + " with the user " + settings.user + ".",
                          {{"store", "user"}, {{location, settings.user}}}),
                 settings.format);
}

struct BackupOptions {
    std::string file;
    bool isForced = false;
};

/** Runs `copy(progress)`, with its progress shown; how many kilobytes were copied. */
template <typename Copy>
std::string kilobytesOf(const char* interrupted, Copy copy)
{
    constexpr std::uintmax_t kilobyte = 1024;
    std::uintmax_t size = 0;
    interruptibly(interrupted, [&] {
        Progress progress("KB");
        copy([&](std::uintmax_t done, std::uintmax_t total) {
            checkInterruption();
            size = total / kilobyte;
            progress.show(done / kilobyte, size);
        });
    });
    return std::to_string(size);
}

void backUpStore(const BackupOptions& options, const Settings& settings)
{
    const std::string location = qvlocal::currentStore();
    const std::string size = kilobytesOf("no copy was made", [&](const qvlocal::CopyProgress& progress) {
        qvlocal::backUpStore(location, options.file,
                             options.isForced ? qvlocal::Replace::Yes : qvlocal::Replace::No, progress);
    });
    writeOutcome(sentence("Copied the store " + location + " to " + options.file + ", " + size + " KB.",
                          {{"store", "file", "kilobytes"}, {{location, options.file, size}}}),
                 settings.format);
}

void restoreStore(const Settings& settings, const std::string& file)
{
    const std::string location = qvlocal::currentStore();
    const std::string size = kilobytesOf("nothing was restored", [&](const qvlocal::CopyProgress& progress) {
        qvlocal::restoreStore(file, location, progress);
    });
    writeOutcome(sentence("Restored the store " + location + " from " + file + ", " + size + " KB.",
                          {{"store", "file", "kilobytes"}, {{location, file, size}}}),
                 settings.format);
}

void addBackup(CommandLine& line)
{
    const auto options = std::make_shared<BackupOptions>();
    CLI::App& backup = line.addCommand(
        line.app(), "backup", "Copy the store into a file while others go on working with it",
        "velrzm backup parts-monday.db", [&line, options] { backUpStore(*options, line.settings()); });
    backup.add_option("file", options->file, "File to make; it is a store itself")->required();
    backup.add_flag("--force", options->isForced, "Replace a file that is already there");
}

void addUser(const Settings& settings, const std::string& user)
{
    qvlocal::addUser(qvlocal::currentStore(), user, newPassword(user, settings.passwordFile));
}

void changePassword(const Settings& settings, const std::string& user)
{
    qvlocal::setPassword(qvlocal::currentStore(), user, newPassword(user, settings.passwordFile));
}

void removeUser(const Settings& /*settings*/, const std::string& user)
{
    qvlocal::removeUser(qvlocal::currentStore(), user);
}

void listUsers(const Settings& settings)
{
    Records users{{"user"}, {}};
    for (const std::string& user : qvlocal::listUsers(qvlocal::currentStore())) {
        users.rows.push_back({user});
    }
    writeRecords(users, Shape::List, settings.format);
}

/** A command that takes one text. */
void addCommandOn(CommandLine& line, CLI::App& group, const char* name, const char* description,
                  const char* example, const char* subject, const char* meaning,
                  void (*action)(const Settings&, const std::string&))
{
    const auto text = std::make_shared<std::string>();
    line.addCommand(group, name, description, example,
                    [&line, text, action] { action(line.settings(), *text); })
        .add_option(subject, *text, meaning)
        ->required();
}

void addUserCommands(CommandLine& line)
{
    CLI::App& group =
        line.addGroup("user", "Add, remove and list the users of a store, and change passwords");
    addCommandOn(line, group, "add", "Add a user", "velrzm user add asmith", "name", "Name of the user",
                 addUser);
    addCommandOn(line, group, "passwd", "Give a user another password", "velrzm user passwd asmith", "name",
                 "Name of the user", changePassword);
    addCommandOn(line, group, "remove", "Remove a user; what the user saved stays",
                 "velrzm user remove asmith", "name", "Name of the user", removeUser);
    line.addCommand(group, "list", "List the users", "velrzm user list",
                    [&line] { listUsers(line.settings()); });
}

template <std::size_t (*load)(const std::string&, const std::string&)>
void loadFile(const Settings& settings, const std::string& file)
{
    const std::size_t rows = load(qvlocal::currentStore(), file);
    writeOutcome(sentence("Loaded " + counted(rows, "row") + " from " + file + ".",
                          {{"file", "rows"}, {{file, std::to_string(rows)}}}),
                 settings.format);
}

void addLoadCommands(CommandLine& line)
{
    CLI::App& group = line.addGroup(
        "load", "Load tables of a store from CSV files\n\n"
                "The first row of a file names its columns. A file replaces what the store has of its "
                "products or tables, and leaves that of others alone.");
    addCommandOn(line, group, "options", "Load options: the columns product, feature, variant",
                 "velrzm load options options.csv", "file", "CSV file to load",
                 loadFile<qvlocal::loadProductOptions>);
    addCommandOn(line, group, "packages", "Load option packages: the columns product, package_id",
                 "velrzm load packages packages.csv", "file", "CSV file to load",
                 loadFile<qvlocal::loadProductPackages>);
    addCommandOn(line, group, "xlat", "Load translation tables: the columns table, from, to",
                 "velrzm load xlat units.csv", "file", "CSV file to load",
                 loadFile<qvlocal::loadTranslationTables>);
}

} // namespace

void addStoreCommands(CommandLine& line)
{
    line.addCommand(line.app(), "init", "Make a store of the local server and its first user",
                    "velrzm init --store parts.db --user jdoe",
                    [&line] { initializeStore(line.settings()); });
    addBackup(line);
    addCommandOn(
        line, line.app(), "restore",
        "Put a copy of the store in its place\n\n"
        "The store gets everything from the copy, users included, and loses what was saved since. Nobody "
        "may be connected to it. The copy is checked first.",
        "velrzm restore parts-monday.db", "file", "Copy to restore, as backup makes it", restoreStore);
    addUserCommands(line);
    addLoadCommands(line);
}

} // namespace tools
