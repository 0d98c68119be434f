// SPDX-License-Identifier: Apache-2.0
//
// Product options and packages, translation tables.
#include <velrzm/product_configuration.h>
#include <velrzm/result.h>
#include <velrzm/translation_tables.h>

#include "tools/operation_command.h"

namespace tools {

namespace {

using Lists = std::vector<VELListValVELUnicodeString>;

/** Parallel lists as records. */
Outcome recordsOf(const std::vector<std::string>& columns, const Lists& lists)
{
    Outcome outcome{{columns, {}}, Shape::List};
    for (int position = 1; position <= lists.front().Size(); ++position) {
        std::vector<std::string>& row = outcome.records.rows.emplace_back();
        for (std::size_t column = 0; column < columns.size(); ++column) {
            row.emplace_back(lists[column][position].CastToCharPtr());
        }
    }
    return outcome;
}

constexpr Parameter product = {"product", "Product; without it those of every product"};

} // namespace

CommandGroup optionCommands()
{
    return {"option",
            "Options of products",
            {{"list",
              "List the options of a product",
              "velrzm option list BICYCLE",
              {product},
              {},
              [](Call& call) {
                  Lists lists(3);
                  call.found(ProductOptionQuery(call.text("product"), lists[0], lists[1], lists[2]));
                  return recordsOf({"product", "feature", "variant"}, lists);
              }}}};
}

CommandGroup packageCommands()
{
    return {"package",
            "Option packages of products",
            {{"list",
              "List the option packages of a product",
              "velrzm package list BICYCLE",
              {product},
              {},
              [](Call& call) {
                  Lists lists(3);
                  call.found(ProductPackageQuery(call.text("product"), lists[0], lists[1], lists[2]));
                  return recordsOf({"product", "package_id"}, lists);
              }}}};
}

CommandGroup translationCommands()
{
    return {
        "xlat",
        "Translation tables",
        {{"show",
          "Show the entries of a translation table",
          "velrzm xlat show UNITS --table",
          {{"name", "Name of the table at the site, as the defaults files map it", Parameter::Need::Required},
           {"--table", "The name is the server's own", Parameter::Need::Optional, Parameter::Takes::Nothing}},
          {},
          [](Call& call) {
              Lists lists(2);
              const auto read = call.has("--table") ? &XlatRead2 : &XlatRead;
              call.found(read(call.text("name"), lists[0], lists[1]));
              return recordsOf({"from", "to"}, lists);
          }}}};
}

} // namespace tools
