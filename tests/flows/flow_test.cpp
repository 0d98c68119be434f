// SPDX-License-Identifier: Apache-2.0
#include "tests/flows/flow_test.h"

#include <array>

#include <velrzm/qvlocal.h>

namespace flowtest {

std::string value(const std::string& name, int record)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> text = {};
    EXPECT_EQ(GetValue(record, name.c_str(), text.data(), text.size()), 1) << record << ' ' << name;
    return text.data();
}

Table result(const std::vector<std::string>& names)
{
    Table rows;
    for (int record = 0; record < entries; ++record) {
        rows.emplace_back();
        for (const std::string& name : names) {
            rows.back().push_back(value(name, record));
        }
    }
    return rows;
}

std::vector<std::string> texts(VELListValVELUnicodeString& list)
{
    std::vector<std::string> all;
    for (int position = 1; position <= list.Size(); ++position) {
        all.emplace_back(list[position].CastToCharPtr());
    }
    return all;
}

std::string refusal(const std::function<int()>& use)
{
    return harness::captureOutput([&] { EXPECT_EQ(use(), 0); });
}

int createItem(const std::string& change, const std::string& number, const std::string& name)
{
    auto names = textList({"mass", "colour"});
    auto values = textList({"12.5"}); // a missing value counts as none
    auto selected = textList({"db_object_id"});
    return ItemCreate(Text(change), Text(number), Text(name), Text("P"), names, values, selected);
}

void FlowTest::SetUp()
{
    for (const char* const name : {"RZM_DEFAULT_DIRECTORY", "QV_MULTI_SAVE", "QVL_BOM_HEADER_CREATE"}) {
        environment.set(name, std::nullopt);
    }
    environment.set("QV_STORE", store);
    environment.set("QVL_TRACE_LEVEL", "0");
    environment.set("QVL_LOG_ERROR", "error.log");
    environment.set("QVL_LAST_ERROR", "last-error");
    QVL_ErrLog_FirstTime = 1; // as in a process of its own, whatever ran before
    qvlocal::initializeStore(store, "jdoe", "secret");
    ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
    for (const char* const change : {"EC-1", "EC-2"}) {
        ASSERT_EQ(EngineeringChangeCreate(change, "Stronger bracket", "", "", "ada"), 1);
    }
}

} // namespace flowtest
