// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include "tests/standin/standin.h"
#include "tests/sweep/operations.h"

namespace sweep {

namespace {

/** The operation's list is swept; what is read from it goes through GetValue. */
template <class Function>
Operation query(const std::string& name, const Function& function)
{
    return {name,
            [=] {
                VELListValVELUnicodeString first;
                VELListValVELUnicodeString second;
                VELListValVELUnicodeString third;
                return function("CAR", first, second, third);
            },
            [] {
                standin::setRecords({{}, {}});
            },
            "List",
            {},
            {{"QV_Destroy_List", ""}},
            "",
            {{"QV_Destroy_Object", ""}, {"QV_Read_List", ""}, {"QV_Get_Object_Attr", ""}}};
}

} // namespace

std::vector<Operation> productConfiguration()
{
    return {query("ProductOptionQuery", ProductOptionQuery),
            query("ProductPackageQuery", ProductPackageQuery)};
}

} // namespace sweep
