// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/manual.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "tools/command_line/command_tree.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"

namespace tools {

namespace {

struct Explained {
    const char* name;
    const char* text;
};

constexpr Explained environment[] = {
    {"QV_STORE",
     "Store of the local server: sqlite:FILE, or sqlite::memory: for one that ends with the program. "
     "Unset: velrzm/store.db in the user's data directory. --store takes its place."},
    {"VELRZM_PASSWORD", "Password of the user, instead of --password-file and of the prompt."},
    {"USER", "User who logs on; --user takes its place. Also the initiator of an engineering change for "
             "which none is given."},
    {"QVL_TRACE_LEVEL", "Trace level of the library; --trace takes its place."},
    {"QVL_LOG_FILE", "Access log to which every call of the server is added. Unset: none is kept."},
    {"QVL_LOG_ERROR, QVL_LAST_ERROR",
     "Files for all errors and for the last one. Unset: files of these names in the user's state "
     "directory, ~/.local/state/velrzm."},
    {"RZM_DEFAULT_DIRECTORY", "Directory of the shared defaults file. Unset: the working directory."},
    {"QV_MULTI_SAVE",
     "0 or OFF: a multi-save of \"velrzm batch\" saves each object at once. \"velrzm import\" is all or "
     "nothing in any case."},
    {"QVL_BOM_HEADER_CREATE", "YES: \"velrzm item create\" makes a bill-of-material header as well."},
    {"NO_COLOR", "When set, nothing is coloured."},
};

constexpr Explained files[] = {
    {"QVL_RZM_DEFAULT", "Defaults that a site gives the attributes of new objects."},
    {"My_QVL_RZM_DEFAULT", "Those of the user, in the working directory; they win."},
    {"$XDG_DATA_HOME/velrzm/store.db",
     "The user's own store; ~/.local/share stands for an unset $XDG_DATA_HOME."},
};

constexpr Explained exitStatus[] = {
    {"0", "Done."},
    {"1", "Refused, failed, or nothing was found; standard error says why."},
    {"2", "Wrong usage."},
    {"128+N", "Ended by the signal N."},
};

constexpr const char* output = "Results go to standard output, everything else to standard error. A "
                               "terminal is shown a table that may cut long values to its width; json and "
                               "csv hold every value whole, and so does printlist, the form that the "
                               "library reads back as a print list.";

/** A text of which the formatter of the pages takes every sign as it is. */
std::string escaped(const std::string& text)
{
    std::string result;
    for (const char sign : text) {
        switch (sign) {
        case '\\':
            result += "\\e";
            break;
        case '-':
            result += "\\-";
            break;
        case '\'':
            result += "\\(aq";
            break;
        case '~':
            result += "\\(ti";
            break;
        case '^':
            result += "\\(ha";
            break;
        case '`':
            result += "\\(ga";
            break;
        default:
            result += sign;
        }
    }
    return result.rfind('.', 0) == 0 ? "\\&" + result : result;
}

std::string bold(const std::string& text)
{
    return "\\fB" + escaped(text) + "\\fP";
}

std::string italic(const std::string& text)
{
    return "\\fI" + escaped(text) + "\\fP";
}

/** What is typed as it stands is bold, what something is put in for is italic. */
std::string markedSign(const CLI::Option& option)
{
    const std::string sign = signOf(option);
    const std::string value = valueOf(option);
    std::string markedValue = choicesOf(option).empty() ? italic(value) : bold(value);
    if (option.get_positional()) {
        return markedValue;
    }
    return bold(sign.substr(0, sign.size() - value.size())) + (value.empty() ? "" : markedValue);
}

std::string pageName(const CLI::App& command)
{
    std::string name = fullNameOf(command);
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

std::string reference(const CLI::App& command)
{
    return bold(pageName(command)) + "(1)";
}

/** The text of a page, made from top to bottom. */
class Page {
public:
    explicit Page(const CLI::App& command)
    {
        std::string title = pageName(command);
        std::transform(title.begin(), title.end(), title.begin(),
                       [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
        text_ << ".\\\" SPDX-License-Identifier: Apache-2.0\n.TH " << quoted(escaped(title))
              << " 1 \"\" \"velrzm " VELRZM_VERSION "\" \"Manual of velrzm\"\n";
        section("NAME");
        text_ << escaped(pageName(command)) << " \\- " << escaped(summaryOf(command)) << "\n";
    }

    void section(const char* title) { begin(".SH", title); }
    void subsection(const std::string& title) { begin(".SS", title); }

    void paragraphs(const std::string& text)
    {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty()) {
                text_ << (isBegun_ ? ".PP\n" : "") << escaped(line) << "\n";
                isBegun_ = true;
            }
        }
    }

    void tagged(const std::string& tag, const std::string& text)
    {
        isBegun_ = true;
        text_ << ".TP\n" << tag << "\n" << escaped(text) << "\n";
    }

    template <std::size_t size>
    void list(const char* title, const Explained (&entries)[size])
    {
        section(title);
        for (const Explained& entry : entries) {
            tagged(bold(entry.name), entry.text);
        }
    }

    void options(const std::vector<const CLI::Option*>& options)
    {
        for (const CLI::Option* const option : options) {
            tagged(markedSign(*option), option->get_description());
        }
    }

    void synopsis(const CLI::App& command)
    {
        text_ << ".SY " << quoted(escaped(fullNameOf(command))) << "\n";
        for (const auto& options : {optionsOf(command), argumentsOf(command)}) {
            for (const CLI::Option* const option : options) {
                const std::string repeated = mayBeRepeated(*option) ? "...\\&" : "";
                const std::string sign = markedSign(*option);
                text_ << (option->get_required() ? sign : "[" + sign + "]") << repeated << "\n";
            }
        }
        text_ << (commandsOf(command).empty() ? "" : italic("COMMAND") + "\n") << ".YS\n";
    }

    void example(const CLI::App& command)
    {
        paragraphs(summaryOf(command) + ":");
        text_ << ".PP\n.RS 4\n.EX\n" << escaped(command.get_footer()) << "\n.EE\n.RE\n";
    }

    void references(const std::vector<std::string>& names)
    {
        section("SEE ALSO");
        text_ << joined(names, ",\n") << "\n";
    }

    void write(const std::string& path) const
    {
        std::ofstream file(path);
        file << text_.str();
        if (!file.flush()) {
            throw Refused(path + " cannot be written");
        }
    }

private:
    void begin(const char* request, const std::string& title)
    {
        text_ << request << " " << quoted(escaped(title)) << "\n";
        isBegun_ = false;
    }

    std::ostringstream text_;
    bool isBegun_ = false; // what stands below the title: another paragraph is parted from it
};

void writeProgramPage(const CLI::App& program, const std::string& directory)
{
    Page page(program);
    page.section("SYNOPSIS");
    page.synopsis(program);
    page.section("DESCRIPTION");
    page.paragraphs(detailsOf(program));
    page.paragraphs(output);
    page.section("COMMANDS");
    std::string subject;
    std::vector<std::string> names;
    for (const CLI::App* const command : commandsOf(program)) {
        if (command->get_group() != subject) {
            subject = command->get_group();
            page.subsection(subject);
        }
        page.tagged(reference(*command), summaryOf(*command));
        names.push_back(reference(*command));
    }
    page.section("OPTIONS");
    page.paragraphs("They may stand before the command or behind it.");
    page.options(optionsOf(program));
    page.list("EXIT STATUS", exitStatus);
    page.list("ENVIRONMENT", environment);
    page.list("FILES", files);
    page.section("EXAMPLES");
    for (const char* const name : {"demo", "init", "import", "batch", "doctor"}) {
        page.example(*commandNamed(program, name));
    }
    page.references(names);
    page.write(directory + "/" + pageName(program) + ".1");
}

/** A command right below the program, with those below it. */
void writeCommandPage(const CLI::App& command, const std::string& directory)
{
    std::vector<const CLI::App*> commands = commandsOf(command);
    const bool isGroup = !commands.empty();
    if (!isGroup) {
        commands.push_back(&command);
    }
    Page page(command);
    page.section("SYNOPSIS");
    for (const CLI::App* const each : commands) {
        page.synopsis(*each);
    }
    page.section("DESCRIPTION");
    page.paragraphs(isGroup && !detailsOf(command).empty() ? "" : summaryOf(command) + ".");
    page.paragraphs(detailsOf(command));
    page.section(isGroup ? "COMMANDS" : "OPTIONS");
    for (const CLI::App* const each : commands) {
        if (isGroup) {
            page.subsection(usageOf(*each));
            page.paragraphs(summaryOf(*each) + ".");
            page.paragraphs(detailsOf(*each));
        }
        page.options(argumentsOf(*each));
        page.options(optionsOf(*each));
    }
    if (isGroup) {
        page.section("OPTIONS");
    }
    const CLI::App& program = *command.get_parent();
    page.paragraphs("The shared options may stand here too; velrzm(1) explains them:");
    page.options(optionsOf(program));
    page.list("EXIT STATUS", exitStatus);
    page.section("ENVIRONMENT");
    page.paragraphs("velrzm(1) lists the environment variables.");
    page.section("EXAMPLES");
    for (const CLI::App* const each : commands) {
        page.example(*each);
    }
    std::vector<std::string> names = {reference(program)};
    for (const CLI::App* const sibling : commandsOf(program)) {
        if (sibling != &command && sibling->get_group() == command.get_group()) {
            names.push_back(reference(*sibling));
        }
    }
    page.references(names);
    page.write(directory + "/" + pageName(command) + ".1");
}

} // namespace

void writeManual(const CLI::App& program, const std::string& directory)
{
    writeProgramPage(program, directory);
    for (const CLI::App* const command : commandsOf(program)) {
        writeCommandPage(*command, directory);
    }
}

} // namespace tools
