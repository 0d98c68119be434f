// SPDX-License-Identifier: Apache-2.0
//
// Product options and packages, translation tables.
#include <velrzm/product_configuration.h>
#include <velrzm/result.h>
#include <velrzm/translation_tables.h>

#include "tools/commands/operation_command.h"

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

constexpr Parameter product = {"product", "Product; all products unless one is named",
                               Parameter::Need::Optional, Parameter::Takes::SearchText};

} // namespace

CommandGroup optionCommands()
{
    return {"option",
            "List the options of products\n\n"
            "A product option is a variant of a feature, as RED is one of COLOUR. \"velrzm load options\" "
            "puts them into a store of the local server.",
            {{"list",
              "List the options of a product, or of all products",
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
            "List the option packages of products\n\n"
            "\"velrzm load packages\" puts them into a store of the local server.",
            {{"list",
              "List the option packages of a product, or of all products",
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
        "Show translation tables\n\n"
        "A translation table says which words of the server stand for the words of a site. The defaults "
        "files map the names of tables that a site uses to those of the server; \"velrzm load xlat\" puts "
        "tables into a store of the local server.",
        {{"show",
          "Show the entries of a translation table",
          "velrzm xlat show UNITS --table",
          {{"name", "Name of the table at the site, as the defaults files map it", Parameter::Need::Required},
           {"--table", "Take the name as the server's own, without the defaults files",
            Parameter::Need::Optional, Parameter::Takes::Nothing}},
          {},
          [](Call& call) {
              Lists lists(2);
              const auto read = call.has("--table") ? &XlatRead2 : &XlatRead;
              call.found(read(call.text("name"), lists[0], lists[1]));
              return recordsOf({"from", "to"}, lists);
          }}}};
}

} // namespace tools
