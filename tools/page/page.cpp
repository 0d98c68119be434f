// SPDX-License-Identifier: Apache-2.0
#include "tools/page/page.h"

#include <cstdint>
#include <ctime>
#include <iomanip>
#include <map>
#include <sstream>

#include <nlohmann/json.hpp>

#include "tools/output/text.h"
#include "tools/page/page_text.h"
#include "tools/structure/occurrences.h"

namespace tools {

namespace {

using Json = nlohmann::ordered_json;

std::string now()
{
    const std::time_t time = std::time(nullptr);
    std::tm parts = {};
    std::ostringstream text;
    text << std::put_time(::gmtime_r(&time, &parts), "%Y-%m-%d %H:%M UTC");
    return text.str();
}

template <typename Item>
Json itemData(const Item& item)
{
    return {{"number", item.number}, {"values", item.values}, {"parts", Json::array()}};
}

/** Puts the items into the page. A "<" in them could end their element. */
template <typename Structure>
std::string page(const std::string& title, std::vector<std::string> summary, const Structure& structure,
                 bool isComparison, Json items)
{
    if (structure.levels != 0) {
        summary.push_back("down to level " + std::to_string(structure.levels));
    }
    summary.push_back("written " + now());
    const Json data = {{"title", title},
                       {"summary", joined(summary, "; ")},
                       {"isComparison", isComparison},
                       {"levels", structure.levels},
                       {"columns", structure.attributes},
                       {"items", std::move(items)}};
    std::string text(pageHead);
    for (const char unit : data.dump(-1, ' ', false, Json::error_handler_t::replace)) {
        unit == '<' ? text.append("\\u003c") : text.append(1, unit);
    }
    return text.append(pageTail);
}

} // namespace

std::string structurePage(const ProductStructure& structure, const std::string& scope)
{
    const std::vector<std::int64_t> totals = occurrences(structure, PartCount::Lines);
    std::size_t lines = 0;
    Json items = Json::array();
    for (const StructureItem& item : structure.items) {
        Json data = itemData(item);
        // As a text, since a script's numbers are exact up to 2^53 only.
        data["total"] = std::to_string(items.empty() ? 1 : totals[items.size()]);
        for (const StructurePart& part : item.parts) {
            data["parts"].push_back({part.item, part.quantity, part.changes});
            lines += static_cast<std::size_t>(part.quantity);
        }
        items.push_back(std::move(data));
    }
    std::vector<std::string> summary = {counted(items.size(), "item") + ", " + counted(lines, "line")};
    if (!scope.empty()) {
        summary.push_back(scope);
    }
    return page(structure.items.front().number, std::move(summary), structure, false, std::move(items));
}

std::string comparisonPage(const Comparison& comparison, const std::string& title)
{
    std::map<std::string, std::size_t> differing;
    Json items = Json::array();
    for (const ComparedItem& item : comparison.items) {
        Json data = itemData(item);
        for (const ComparedPart& part : item.parts) {
            data["parts"].push_back({part.item, part.after, part.changes, part.before});
            ++differing[differenceOf(part)];
        }
        items.push_back(std::move(data));
    }
    std::vector<std::string> summary;
    for (const char* const difference : {"added", "removed", "changed"}) {
        if (differing[difference] != 0) {
            summary.push_back(std::to_string(differing[difference]) + " " + difference);
        }
    }
    if (summary.empty()) {
        summary.emplace_back("no difference");
    }
    return page(title, std::move(summary), comparison, true, std::move(items));
}

} // namespace tools
