// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/teller.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <stdexcept>

#include "tests/harness/texts.h"

namespace harness {

namespace {

/** The lines that stand for others; "%" is what follows the verb. */
const std::map<std::string, Lines> shortForms = {
    {"start", {"2 @-----Start------------------------------."}},
    {"exit Object", {"end 2 @-----Exit------------entries/rc=#--------------------."}},
    {"exit List", {"end 2 @-----Exit------Nb of entries=#------------."}},
    {"new", {"result Object", "- QV_Destroy_Object(obj) = 0", R"(> QV_Create_Object(+obj, "%") = 0)"}},
    {"query", {"result List", "- QV_Destroy_List(list) = 0", R"(> QV_Create_List(+list, "%") = 0)"}},
    {"select", {R"(2 @ AppendSelect - %. > QV_Set_Clause(list, "Select", "%") = 0)"}},
    {"where", {R"(2 @ AppendWhere - %. > QV_Set_Clause(list, "Where", "%") = 0)"}},
    {"order", {R"(> QV_Set_Clause(list, "OrderBy", "%") = 0)"}},
    {"count", {R"(> QV_SizeOf_List(list, +%) = 0 as QV_SizeOf_List "nb_of_entries" "+%")", "now entries=%"}}};

Lines quotedTexts(const std::string& text)
{
    const Lines parts = split(text, "\"");
    Lines found;
    for (std::size_t part = 1; part + 1 < parts.size(); part += 2) {
        found.push_back(parts[part]);
    }
    return found;
}

/** `49 ARGUMENT=VALUE CLAUSE`: the clause with the value in place of its "...", or the refusal of a longer value. */
Lines condition(std::string text, bool isAdded)
{
    const std::string limit = cutHead(text, " ");
    const std::string argument = cutHead(text, "=");
    std::string clause = text.substr(text.rfind(" &") + 1);
    const std::string value = text.substr(0, text.rfind(" &"));
    if (value.size() > std::stoul(limit)) {
        return {"5 @ AppendWhere- QV_Set_Clause-Where  : QV_RC=-1.",
                "log @- rc(AppendWhere- QV_Set_Clause-Where) = -1",
                "! -1 - " + argument + " has " + std::to_string(value.size()) + " characters; at most " +
                    limit + " fit the clause " + clause,
                "now QV_RC=-1", "stop"};
    }
    replaceAll(clause, "...", value);
    return isAdded ? Lines{"where " + clause} : Lines();
}

} // namespace

void Teller::tell(const std::string& line)
{
    std::string text = line;
    std::string verb = cutHead(text, " ");
    const Scope& scope = scopes_.back();
    const bool isEnd = verb == "end" || verb == "exit" || (verb == "failed" && scope.isStopped);
    if (verb == "calls") {
        scopes_.push_back({text, scope.isLeftOut || scope.isStopped});
        return;
    }
    if (verb == "returns") {
        returned_ = result();
        scopes_.pop_back();
        return;
    }
    if (scope.isLeftOut || (!isEnd && (scope.isStopped || verb == "failed"))) {
        return;
    }
    replaceAll(text, "#", result());
    replaceAll(text, "$", returned_);
    replaceAll(text, "<QV_RC>", state_["QV_RC"]);
    const auto form = shortForms.find(verb == "exit" ? "exit " + state_["FromList"] : verb);
    if ((verb == "where" || verb == "fit") && text.front() != '&') {
        tellAll(condition(text, verb == "where"), "%");
    } else if (form != shortForms.end()) {
        tellAll(form->second, text);
    } else if (verb == "set" || verb == "set?") {
        tellSetting(verb.substr(3), text);
    } else if (isEnd) {
        verb = cutHead(text, " ");
        std::string handle = text.substr(text.find('(') + 1);
        if (verb != "-" || handedOver_.count(cutHead(handle, ")")) > 0) {
            tellEvent(verb, text);
        }
    } else {
        tellEvent(verb, text);
    }
}

void Teller::tellAll(Lines lines, const std::string& text)
{
    for (std::string& line : lines) {
        replaceAll(line, "%", text);
        tell(line);
    }
}

void Teller::tellSetting(const std::string& mark, const std::string& text)
{
    const std::size_t name = text.find_first_not_of("@- ");
    const std::size_t equals = text.find('=');
    const std::size_t dash = text.back() == '-' ? 1 : 0;
    tell("2 " + text + ". >" + mark + " QV_Set_Object_Attr(obj, \"" + text.substr(name, equals - name) +
         "\", \"" + text.substr(equals + 1, text.size() - equals - 1 - dash) + "\") = 0");
}

void Teller::tellEvent(const std::string& verb, const std::string& text)
{
    if (verb == "log" || verb == "err") {
        add(verb + ' ', text);
    } else if (verb == "joined") { // cut behind the writer's name
        add("log ", text.substr(0, text.find(' ') + 1 + 255));
    } else if (verb == "*" || (verb.size() == 1 && std::isdigit(verb.front()) != 0)) {
        if (text.compare(0, 4, "log ") == 0) {
            if (std::stoi(verb) <= level_) {
                add("log ", text.substr(4));
            }
            return;
        }
        const std::size_t call =
            std::min(text.find(" > QV_"), std::min(text.find(" >? QV_"), text.find(" >! QV_")));
        show(verb == "*" ? level_ : std::stoi(verb), text.substr(0, call));
        if (call < text.size()) {
            std::string checked = text.substr(call + 1);
            const std::string mark = cutHead(checked, " ");
            tellCall(mark, checked);
        }
    } else if (verb.front() == '-' || verb.front() == '>') {
        tellCall(verb, text);
    } else if (verb == "!") {
        tellFailure(text);
    } else if (verb == "now") {
        state_[text.substr(0, text.find('='))] = text.substr(text.find('=') + 1);
    } else if (verb == "result") {
        setKind(text);
    } else if (verb == "stop") {
        scopes_.back().isStopped = true;
    } else if (verb == "=") {
        story_ += std::exchange(errors_, "") + "= " + text + '\n';
    } else if (const std::string name = verb + ' ' + text; name.find(':') != std::string::npos) {
        scopes_.back().writer = name.substr(0, name.find(':'));
    } else {
        throw std::invalid_argument("no line of a story: " + verb + ' ' + text);
    }
}

void Teller::setKind(const std::string& kind)
{
    if (std::exchange(kind_, kind) != kind) {
        state_["FromList"] = kind;
        state_["LastRecNo"] = "-1";
        state_["entries"] = kind == "List" ? "0" : "";
    }
}

void Teller::nameHandles(std::string& text, int code)
{
    for (const std::string kind : {"obj", "list", "report"}) {
        replaceAll(text, '(' + kind + ')', '(' + state_[kind] + ')');
        replaceAll(text, '(' + kind + ',', '(' + state_[kind] + ',');
    }
    for (std::size_t plus = text.find('+'); plus != std::string::npos; plus = text.find('+', plus)) {
        const std::size_t end = text.find_first_of(",)\"", plus);
        std::string name = text.substr(plus + 1, end - plus - 1);
        if (state_.count(name) > 0) {
            std::string& held = state_[name];
            const int number = held == "null" ? 1 : std::stoi(held.substr(name.size())) + 1;
            held = name + std::to_string(number);
            name = held;
        }
        if (code < 0) {
            name = std::isdigit(name.front()) != 0 ? state_["entries"] : "null";
        }
        handedOver_.insert(name);
        text.replace(plus, end - plus, name);
    }
}

void Teller::tellCall(const std::string& mark, std::string text)
{
    const std::size_t codeBegin = text.find(") = ") + 4;
    int code = std::stoi(text.substr(codeBegin));
    calls_.push_back({code, mark.back() == '!'});
    const bool isOther = answer_ && (answer_->call == calls_.size() || (answer_->call == 0 && code == 0));
    code = isOther ? answer_->code : code;
    nameHandles(text, code);
    std::string call = cutHead(text, ") = ") + ") = " + std::to_string(code);
    add("call", call);
    if (mark.front() == '-') {
        return;
    }
    state_["QV_RC"] = std::to_string(code);
    std::string name = call.substr(0, call.find('('));
    Lines details = quotedTexts(call);
    if (name == "QV_Set_Clause") {
        name = (details[0] == "OrderBy" ? "" : "Append" + details[0] + "- ") + "QV_Set_Clause-" + details[0];
        details.erase(details.begin());
    } else if (const std::size_t as = text.find(" as "); as != std::string::npos) {
        const std::string report = text.substr(as + 4);
        name = report.substr(0, report.find('"'));
        if (name.size() < report.size()) {
            details = quotedTexts(report);
            name.erase(name.find_last_not_of(' ') + 1);
        }
    }
    details.resize(2);
    show(5, "@ " + name + ' ' + details[0] + ' ' + details[1] + ": QV_RC=" + std::to_string(code) + '.');
    name += details[0].empty() ? "" : "::" + details[0] + (details[1].empty() ? "" : '=' + details[1]);
    add("log ", (scopes_.back().writer + "- rc(" + name + ") = " + std::to_string(code)).substr(0, 511));
    if (isOther && code < 0) {
        tellFailure("E7 - refused");
        scopes_.back().isStopped = mark != ">?";
    }
}

void Teller::tellFailure(const std::string& message)
{
    const std::string text = message.substr(message.find(" - ") + 3) + ' ';
    state_["lastError"] = text + '\n';
    add("log ", message);
    show(0, "****** " + text + '.');
    Lines block = split(errorBlock(scopes_.back().writer, text), "\n");
    block.pop_back(); // what stands behind the last line feed
    for (const std::string& line : block) {
        add("err ", line);
    }
}

void Teller::show(int level, const std::string& text)
{
    if (level <= level_) {
        add("out ", text);
    }
}

void Teller::add(const std::string& channel, std::string text)
{
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1)) {
        if (at == 0 || text[at - 1] == ' ') {
            text.replace(at, 1, scopes_.back().writer);
        }
    }
    text = channel + ' ' + text + '\n';
    if (channel == "err ") {
        errors_ += text;
    } else {
        story_ += channel == "log " ? text : std::exchange(errors_, "") + text;
    }
}

std::string Teller::result() const
{
    const auto told = state_.find("result");
    return told != state_.end()       ? told->second
           : kind_ == "List"          ? state_.at("entries")
           : scopes_.back().isStopped ? "0"
                                      : "1";
}

void Teller::tellEnd()
{
    state_.try_emplace("result", result());
    if (state_["entries"].empty()) {
        state_["entries"] = result();
    }
    story_ += std::exchange(errors_, "") + lineOf(state_);
}

} // namespace harness
