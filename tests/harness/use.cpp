// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/use.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <utility>

namespace harness {

namespace {

constexpr std::size_t usualDefaults = 19;
constexpr std::size_t slotLength = 49;

/** Writes out the lines of a story one after another. */
class Expansion {
public:
    Expansion(const Use& use, const std::map<std::string, Lines>& stories) : use_(use), stories_(stories) {}

    void add(const Lines& lines)
    {
        for (auto line = lines.begin(); line != lines.end();) {
            const auto end =
                std::find_if(line + 1, lines.end(), [](const auto& each) { return each.front() != ' '; });
            addBlock(*line, {line + 1, end});
            line = end;
        }
    }
    const Lines& lines() const { return lines_; }

private:
    /** A line, or one that says for what the rest of it, or the lines below it, are told. */
    void addBlock(const std::string& head, Lines body)
    {
        const std::string verb = head.substr(0, head.find(' '));
        if (verb != "each" && verb != "listing" && verb != "if" && verb != "unless") {
            addLine(head);
            return;
        }
        const std::size_t colon = head.find(':');
        const std::string subject = head.substr(verb.size() + 1, colon - verb.size() - 1);
        if (body.empty()) {
            body = {head.substr(colon + 1)};
        }
        for (std::string& line : body) {
            line.erase(0, line.find_first_not_of(' '));
        }
        const std::vector<Named> told = elements(subject);
        if (verb ==
            "listing") { // a heading and a line for each, or nothing when there are no defaults or pairs
            const Lines parts = split(body.front(), " | ");
            if (!told.empty() || subject == "name") {
                addLine("2 " + parts[0]);
            }
            body = {"2 " + parts[1]};
        }
        if (verb == "each" || verb == "listing") {
            for (const Named& element : told) {
                addFor(element, body);
            }
        } else if ((verb == "if") != told.empty()) {
            add(body);
        }
    }
    void addFor(const Named& element, Lines body)
    {
        for (std::string& line : body) {
            replaceAll(line, "<>", element.name + '=' + element.text());
            replaceAll(line, "<name>", element.name);
            replaceAll(line, "<value>", element.text());
        }
        add(body);
    }
    /** Those of a kind; or the argument that is called so, or is "NAME=VALUE"; or the operation. */
    std::vector<Named> elements(const std::string& subject) const
    {
        std::vector<Named> found;
        const auto addThat = [&](const std::vector<Named>& all, const auto& fit) {
            std::copy_if(all.begin(), all.end(), std::back_inserter(found), fit);
        };
        const auto hasText = [](const Named& each) { return !each.text().empty(); };
        if (subject == "input") {
            return use_.arguments;
        }
        if (subject == "pair") {
            return use_.pairs;
        }
        if (subject == "given pair") {
            addThat(use_.pairs, hasText);
        } else if (subject == "default") {
            found = defaults().second;
            found.resize(isUsual_ ? std::min(found.size(), usualDefaults) : found.size());
        } else if (subject == "name") {
            for (const std::string& name : use_.selection->names) {
                found.push_back({name, {}});
            }
        } else {
            addThat(use_.arguments, [&](const Named& each) {
                return (each.name == subject && hasText(each)) || each.name + '=' + each.text() == subject;
            });
            found.resize(found.size() + (subject == use_.operation ? 1 : 0));
        }
        return found;
    }
    /** Those of the operation, or the first ones. */
    const std::pair<const std::string, std::vector<Named>>& defaults() const
    {
        const auto own = use_.defaults.find(use_.operation);
        return own != use_.defaults.end() ? *own : *use_.defaults.begin();
    }
    void addLine(std::string line)
    {
        for (const Named& argument : use_.arguments) {
            replaceAll(line, '<' + argument.name + '>', argument.text());
            replaceAll(line, "<=" + argument.name + '>', argument.value.value_or(""));
        }
        const std::string verb = line.substr(0, line.find(' '));
        const std::string text = line.substr(std::min(verb.size() + 1, line.size()));
        if (verb == "defaults" || verb == "usual") {
            addDefaults(verb, text);
        } else if (verb == "subscribe") {
            lines_.push_back("2 " + text);
            addBlock("each name: > QV_Subscribe_Object_Attr(obj, \"<name>\") = 0", {});
        } else if (verb == "select" || verb == "order") {
            for (const std::string& path : split(text, ", ")) {
                lines_.push_back(verb);
                lines_.back().append(" ").append(path);
            }
        } else if (verb == "tell") {
            addStory(Use::parse(text));
        } else {
            if (verb == "result" || verb == "new" || verb == "query") {
                capture();
            }
            lines_.push_back(line);
        }
    }
    void addDefaults(const std::string& verb, const std::string& text)
    {
        const auto& [operation, entries] = defaults();
        if (verb == "defaults") {
            const std::string dash = text == "without dash" ? "2 @" : "2 @-";
            lines_.push_back(dash + " Calling DefaultRead for " + operation + '.');
            lines_.emplace_back("2 DefaultRead-----Start------------------------------.");
            lines_.push_back(dash + " rc(DefaultRead)=" + std::to_string(entries.size()) + '.');
        }
        if (verb == "usual" || text == "usual") {
            isUsual_ = true;
            warn(std::max(entries.size(), usualDefaults) - usualDefaults,
                 " default attributes beyond the first 19 are left out");
        }
    }
    /** What another operation does in between. */
    void addStory(Use use)
    {
        use.defaults[use.operation] = use_.defaults.at(use.operation);
        lines_.push_back("calls " + use.operation);
        const Lines told = expand(stories_.at(use.operation), use, stories_);
        lines_.insert(lines_.end(), told.begin(), told.end());
        lines_.emplace_back("returns");
    }
    /** The names come into the table. */
    void capture()
    {
        if (!use_.selection || std::exchange(isCaptured_, true)) {
            return;
        }
        const auto& [names, endSlot, isList, slot0] = *use_.selection;
        const std::size_t captured = std::min(names.size(), endSlot - (isList ? 1 : 0));
        std::size_t cut = 0;
        std::string table = isList ? slot0 : "";
        for (std::size_t index = 0; index < captured; ++index) {
            table += (isList || index > 0 ? ", " : "") + names[index].substr(0, slotLength);
            cut += names[index].size() > slotLength ? 1U : 0U;
        }
        lines_.push_back("now SelectedAttribute=[" + table + ']');
        warn(cut, " names of selected attributes are cut to 49 characters");
    }
    void warn(std::size_t count, const std::string& text)
    {
        if (count > 0) {
            lines_.push_back("0 @- ****** WARNING ****** " + std::to_string(count) + text + '.');
            lines_.push_back("log @ ****** WARNING ****** " + std::to_string(count) + text);
        }
    }

    const Use& use_;
    const std::map<std::string, Lines>& stories_;
    Lines lines_;
    bool isUsual_ = false;
    bool isCaptured_ = false;
};

Named parseArgument(const std::string& text)
{
    const std::size_t name = text.find_first_not_of("^~!+");
    Named argument = parseNamed(text.substr(name));
    argument.upper = text.find('^') < name   ? Named::Letters::OfLocale
                     : text.find('~') < name ? Named::Letters::Ascii
                                             : Named::Letters::None;
    argument.isOwn = text.find('+') < name;
    argument.isFixed = argument.isOwn || text.find('!') < name;
    return argument;
}

} // namespace

std::string Named::text() const
{
    std::string text = value.value_or("");
    for (char& unit : text) {
        const bool isAscii = unit >= 'a' && unit <= 'z';
        if (upper == Letters::OfLocale || (upper == Letters::Ascii && isAscii)) {
            unit = static_cast<char>(std::toupper(static_cast<unsigned char>(unit)));
        }
    }
    return text;
}

Named parseNamed(const std::string& text)
{
    const std::size_t equals = std::min(text.find('='), text.size() - 1);
    const std::string value = text.substr(equals + 1);
    const bool isNull = text[equals] != '=' || value == "null";
    return {text.substr(0, text.find('=')), isNull ? std::nullopt : std::optional(value)};
}

Use Use::parse(const std::string& text)
{
    const std::size_t blank = std::min(text.find(' '), text.size());
    Use use{text.substr(0, blank), {}, {}, {}, {}};
    for (const std::string& part : split(text.substr(std::min(blank + 1, text.size())), " | ")) {
        const std::size_t end = part.find_last_of(")]}");
        const Lines inside = split(part.substr(1, std::min(end, part.size()) - 1), ", ");
        if (part.front() == '(') {
            std::transform(inside.begin(), inside.end(), std::back_inserter(use.pairs), parseNamed);
        } else if (part.front() == '[' || part.front() == '{') {
            use.selection = {inside, std::stoul(part.substr(end + 1)), part.front() == '{'};
        } else {
            use.arguments.push_back(parseArgument(part));
        }
    }
    return use;
}

Use Use::with(const std::string& changes) const
{
    Use changed = *this;
    for (const std::string& change : split(changes, " | ")) {
        const Named given = parseNamed(change);
        const auto found = std::find_if(changed.arguments.begin(), changed.arguments.end(),
                                        [&](const Named& each) { return each.name == given.name; });
        if (found != changed.arguments.end()) {
            found->value = given.value;
        } else if (auto entries = changed.defaults.extract(std::exchange(changed.operation, change))) {
            entries.key() = change;
            changed.defaults.insert(std::move(entries));
        }
    }
    return changed;
}

Lines expand(const Lines& lines, const Use& use, const std::map<std::string, Lines>& stories)
{
    Expansion expansion(use, stories);
    expansion.add(lines);
    return expansion.lines();
}

} // namespace harness
