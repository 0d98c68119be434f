// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/manual.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "tools/command_line/command_tree.h"
#include "tools/command_line/topics.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"

namespace tools {

namespace {

constexpr const char* output = "Results go to standard output, everything else to standard error. A "
                               "terminal is shown a table that may cut long values to its width; json and "
                               "csv hold every value whole, and so does printlist, the form that the "
                               "library reads back as a print list.";

/** A text in which the formatter of the pages takes every character as it is. */
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

/** Words to type are bold, placeholders italic. */
std::string markedSyntax(const CLI::Option& option)
{
    const std::string sign = syntaxOf(option);
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
        text_ << ".\\\" SPDX-License-Identifier: Apache-2.0\n.TH "
              << quoted(escaped(inUpperCase(pageName(command))))
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

    void list(const char* title, const std::vector<Topic>& topics)
    {
        section(title);
        for (const Topic& entry : topics) {
            tagged(bold(entry.name), entry.text);
        }
    }

    void options(const std::vector<const CLI::Option*>& options)
    {
        for (const CLI::Option* const option : options) {
            tagged(markedSyntax(*option), option->get_description());
        }
    }

    void synopsis(const CLI::App& command)
    {
        text_ << ".SY " << quoted(escaped(fullNameOf(command))) << "\n";
        for (const auto& options : {optionsOf(command), argumentsOf(command)}) {
            for (const CLI::Option* const option : options) {
                const std::string repeated = mayBeRepeated(*option) ? "...\\&" : "";
                const std::string sign = markedSyntax(*option);
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
    bool isBegun_ = false; // whether the section has text, from which another paragraph must be separated
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
    page.list("EXIT STATUS", exitStatuses());
    page.list("ENVIRONMENT", environmentVariables());
    page.list("FILES", files());
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
    page.list("EXIT STATUS", exitStatuses());
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
