// SPDX-License-Identifier: Apache-2.0
#include "tests/sweep/operations.h"

#include <cstdlib>
#include <ostream>

#include "tests/harness/files.h"
#include "tests/standin/standin.h"

namespace sweep {

Inputs::Inputs(std::optional<std::string> text, const std::vector<std::string>& names)
    : text_(std::move(text)), names_(names), nameList_(harness::textList(names)),
      pair_(harness::textList({text_ ? text_->c_str() : nullptr}))
{}

Operation onObject(const std::string& name, std::function<int(Inputs&)> run, const std::string& prefix)
{
    return {name,
            std::move(run),
            "Object",
            {{"QV_Destroy_Object"}},
            "2 @-----Exit------------entries/rc=0--------------------.\n",
            prefix};
}

Operation onList(const std::string& name, std::function<int(Inputs&)> run, const std::string& prefix)
{
    return {name,
            std::move(run),
            "List",
            {{"QV_Destroy_List"}},
            "2 @-----Exit------Nb of entries=0------------.\n",
            prefix};
}

void PrintTo(const Operation& operation, std::ostream* stream)
{
    *stream << operation.name;
}

std::vector<Operation> allOperations()
{
    std::vector<Operation> all;
    for (const auto& family : {changesAndItems(), documents(), productStructure()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

void prepare(const Operation& operation)
{
    if (!operation.defaults.empty()) {
        harness::writeFile("QVL_RZM_DEFAULT",
                           operation.defaults + " unit EA\n" + operation.defaults + " site A\n");
    }
    setenv("QVL_BOM_HEADER_CREATE", "YES", 1); // the fixture takes it back
    standin::script().values["doc_revision@doc_ctrl_num"] = "EC-1";
    standin::script().records = {{}, {{"doc_revision@doc_rev_num", "2"}, {"db_object_id", "4711"}}};
}

} // namespace sweep
