// SPDX-License-Identifier: Apache-2.0
#include "tools/output/format.h"

#include <algorithm>
#include <cstddef>

#include <nlohmann/json.hpp>

#include "csv/csv_file.h"
#include "tools/output/results.h"
#include "tools/output/table.h"

namespace tools {

namespace {

/** An object as a list of its attributes, which reads better than one long row. */
Records attributesOf(const Records& object)
{
    Records attributes{{"attribute", "value"}, {}};
    for (std::size_t column = 0; column < object.columns.size() && !object.rows.empty(); ++column) {
        attributes.rows.push_back({object.columns[column], object.rows.front()[column]});
    }
    return attributes;
}

std::string jsonText(const Records& records, Shape shape)
{
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const auto& row : records.rows) {
        Json object = Json::object();
        for (std::size_t column = 0; column < row.size(); ++column) {
            object[records.columns[column]] = row[column];
        }
        list.push_back(std::move(object));
    }
    const Json& document = shape == Shape::Object && !list.empty() ? list.front() : list;
    constexpr int indentation = 2;
    return document.dump(indentation, ' ', false, Json::error_handler_t::replace) + "\n";
}

void appendCsvLine(std::string& text, const std::vector<std::string>& fields)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        text.append(i == 0 ? "" : ",").append(csv::field(fields[i]));
    }
    text += '\n';
}

std::string csvText(const Records& records)
{
    std::string text;
    appendCsvLine(text, records.columns);
    for (const auto& row : records.rows) {
        appendCsvLine(text, row);
    }
    return text;
}

/** A value on one line, as a print list needs it. */
std::string oneLine(std::string value)
{
    std::replace_if(
        value.begin(), value.end(), [](char unit) { return unit == '\n' || unit == '\r'; }, ' ');
    return value;
}

/** In the form that PrintList reads, which takes the first word of a value. */
std::string printListText(const Records& records)
{
    std::string text = "Print list of velrzm\nObjects printed: " + std::to_string(records.rows.size()) + "\n";
    for (std::size_t row = 0; row < records.rows.size(); ++row) {
        text += "QV_Object[" + std::to_string(row + 1) + "]\n{\n";
        for (std::size_t column = 0; column < records.columns.size(); ++column) {
            text += "  Attribute [" + records.columns[column] + "] = [" + oneLine(records.rows[row][column]) +
                    "]\n";
        }
        text += "}\n";
    }
    return text;
}

} // namespace

void writeRecords(const Records& records, Shape shape, Format format)
{
    switch (format) {
    case Format::Table:
        return writeStyledResult(tableText(shape == Shape::Object ? attributesOf(records) : records));
    case Format::Json:
        return writeResult(jsonText(records, shape));
    case Format::Csv:
        return writeResult(csvText(records));
    case Format::PrintList:
        return writeResult(printListText(records));
    case Format::Dot:
    case Format::Svg:
    case Format::Html:
        return; // records are not drawn
    }
}

} // namespace tools
