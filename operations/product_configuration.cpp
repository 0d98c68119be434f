// SPDX-License-Identifier: Apache-2.0
//
// The queries for options and packages: one operation, with a table of what differs.
#include <velrzm/product_configuration.h>

#include <array>

#include "frame/list_request.h"

using namespace velrzm;

namespace {

/** One of the queries: what it lists, and its columns, which it also sorts by. */
struct ConfigurationQuery {
    const char* name;
    const char* className;
    std::array<const char*, 4> columns; // closed by a null pointer
};

constexpr ConfigurationQuery optionQuery{
    "ProductOptionQuery", "ProductOption", {"product", "feature", "variant"}};
constexpr ConfigurationQuery packageQuery{
    "ProductPackageQuery", "ProductOptionPkg", {"product", "package_id"}};

/** Appends the columns of every record to the lists. */
void readRecords(const AttributeNames& columns, const std::array<VELListValVELUnicodeString*, 3>& lists)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> value{};
    for (int record = 0; record < entries; ++record) {
        for (int column = 0; column < columns.size(); ++column) {
            GetValue(record, columns[column], value.data(), value.size());
            lists[static_cast<std::size_t>(column)]->Append(value.data());
        }
    }
}

int run(const ConfigurationQuery& query, const VELUnicodeString& product,
        const std::array<VELListValVELUnicodeString*, 3>& lists)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const VELUnicodeString productNumber = product; // the caller may have it in one of the lists
    const AttributeNames columns(query.columns.data());
    const auto emptyLists = [&lists] {
        for (VELListValVELUnicodeString* const list : lists) {
            list->RemoveAll(VELCollec::ReleaseElements);
        }
    };
    const int count = listOperation(query.name, [&](Operation& op, CurrentList& list) {
        op.start();
        op.trace("\tProductNumber=", productNumber);
        emptyLists();
        list.reset();
        op.capture(columns, 50);
        list.renew(query.className);
        list.select(columns);
        if (given(productNumber)) {
            list.where({"&=(product,'", productNumber, "')", "productNumber"});
        }
        for (const char* const column : columns) {
            list.orderBy({column});
        }
        list.open();
        list.count();
        if (!op.stopped()) {
            readRecords(columns, lists);
        }
        list.exit();
    });
    if (count == 0) { // a query that broke off may have filled them in part
        emptyLists();
    }
    return count;
}

} // namespace

int ProductOptionQuery(const VELUnicodeString& productNumber, VELListValVELUnicodeString& products,
                       VELListValVELUnicodeString& features, VELListValVELUnicodeString& variants)
{
    return run(optionQuery, productNumber, {&products, &features, &variants});
}

int ProductPackageQuery(const VELUnicodeString& productNumber, VELListValVELUnicodeString& products,
                        VELListValVELUnicodeString& packages, VELListValVELUnicodeString& thirdList)
{
    return run(packageQuery, productNumber, {&products, &packages, &thirdList});
}
