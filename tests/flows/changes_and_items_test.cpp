// SPDX-License-Identifier: Apache-2.0
//
// Engineering changes and items through the operations of the library, with the local server and a store on disk behind
// them; also by two processes at once.
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <velrzm/qvlocal.h>
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"

namespace {

using harness::Names;
using harness::Text;

using Row = std::vector<std::string>;

std::string value(int record, const std::string& name)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> text = {};
    EXPECT_EQ(GetValue(record, name.c_str(), text.data(), text.size()), 1) << record << ' ' << name;
    return text.data();
}

std::vector<Row> rows(const std::vector<std::string>& names)
{
    std::vector<Row> all;
    for (int record = 0; record < entries; ++record) {
        Row row;
        for (const std::string& name : names) {
            row.push_back(value(record, name));
        }
        all.push_back(row);
    }
    return all;
}

VELListValVELUnicodeString list(const std::vector<std::string>& texts)
{
    VELListValVELUnicodeString made;
    for (const std::string& text : texts) {
        made.Append(text.c_str());
    }
    return made;
}

class Flow : public testing::Test {
protected:
    void SetUp() override
    {
        environment.set("QV_STORE", "sqlite:store.db");
        environment.set("RZM_DEFAULT_DIRECTORY", std::nullopt);
        environment.set("QVL_TRACE_LEVEL", "0");
        environment.set("QVL_LOG_FILE", "access.log");
        environment.set("QVL_LOG_ERROR", "error.log");
        environment.set("QVL_LAST_ERROR", "last-error");
        environment.set("QVL_BOM_HEADER_CREATE", std::nullopt);
        QVL_Log_FirstTime = 1; // as in a process of its own, whatever ran before
        QVL_ErrLog_FirstTime = 1;
        qvlocal::initializeStore("sqlite:store.db", "jdoe", "secret");
    }
    void TearDown() override { QvExit(); }

    static int createItem(const std::string& change, const std::string& number, const std::string& name)
    {
        auto names = list({"mass", "colour"});
        auto values = list({"12.5"}); // a missing value counts as none
        auto selected = list({"db_object_id"});
        return ItemCreate(Text(change), Text(number), Text(name), Text("P"), names, values, selected);
    }
    static std::vector<Row> query(const std::string& number, const std::string& change,
                                  const std::string& type)
    {
        const std::vector<std::string> names = {"logical_key@item_number", "name"};
        ItemQuery(Text(number), Text(change), Text("P"), Text(""), Text(""), Text(""), Text("1"), Text(type),
                  Names(names));
        return rows(names);
    }

    harness::TemporaryDirectory directory;
    harness::Environment environment;
};

TEST_F(Flow, AChangeIsReadBackWithTheDefaultsOfTheSite)
{
    harness::writeFile("QVL_RZM_DEFAULT", "EngineeringChangeCreate reason SAFETY # of the site\n");
    ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
    ASSERT_EQ(EngineeringChangeCreate("ec-12a", "Stronger bracket", "3", "", "ada"), 1);
    const std::string id = value(0, "db_object_id");

    const std::vector<std::string> names = {
        "id", "desc", "initiator@person_identifier", "reason", "update_count", "status", "x_sec_level_code"};
    ASSERT_EQ(EngineeringChangeOpen(Text(""), Text("EC-12A"), Names(names)), 1);
    EXPECT_EQ(rows(names),
              (std::vector<Row>{{"EC-12A", "Stronger bracket", "ada", "SAFETY", "1", "OPEN", "3"}}));
    ASSERT_EQ(EngineeringChangeOpen(Text(id), Text(""), Names(names)), 1);
    EXPECT_EQ(value(0, "id"), "EC-12A");

    EXPECT_EQ(EngineeringChangeCreate("EC-12A", "Again", "", "", ""), 0);
    EXPECT_EQ(QV_RC, QV_ALREADY_STORED);
    EXPECT_NE(harness::readFile("last-error").find("EC-12A"), std::string::npos);
    EXPECT_EQ(EngineeringChangeOpen(Text(""), Text("ec-12a"), Names({})),
              0); // stored in upper case, opened as given
    EXPECT_NE(harness::readFile("error.log").find("Function EngineeringChangeOpen generated"),
              std::string::npos);
}

TEST_F(Flow, AnItemUnderAChangeIsFoundAndOneWithoutOnlyInDevelopment)
{
    ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
    ASSERT_EQ(EngineeringChangeCreate("EC-1", "Release", "", "", "ada"), 1);
    const std::string change = value(0, "db_object_id");
    ASSERT_EQ(createItem("ec-1", "a-100", "bolt"), 1);
    ASSERT_EQ(createItem("", "A-200", "NUT"), 1);
    ASSERT_EQ(AffectedItemCreate(Text("EC-1"), Text("A-100"), Text("rel"), Names({"item_status"})), 1);

    EXPECT_EQ(query("a-", "", "STD"), (std::vector<Row>{{"A-100", "BOLT"}}));
    EXPECT_EQ(query("", "EC%", "STD"), (std::vector<Row>{{"A-100", "BOLT"}}));
    EXPECT_EQ(query("", "EC-2", "STD"), (std::vector<Row>{}));
    EXPECT_EQ(query("A", "", "DEV"), (std::vector<Row>{{"A-100", "BOLT"}, {"A-200", "NUT"}}));
    EXPECT_EQ(query("=A-200", "", "DEV"), (std::vector<Row>{{"A-200", "NUT"}}));

    ASSERT_EQ(AffectedItemQuery(Text(change), Names({"item_number", "change_action@curr_key"})), 1);
    EXPECT_EQ(rows({"item_number", "change_action@curr_key"}), (std::vector<Row>{{"A-100", "REL"}}));

    auto names = list({"mass", "colour", "item_type", "name"});
    ASSERT_EQ(ItemOpen(Text("a-200"), Text(""), names), 1);
    EXPECT_EQ(rows({"mass", "colour", "item_type", "name"}), (std::vector<Row>{{"12.5", "", "P", "NUT"}}));
    EXPECT_EQ(ItemOpen(Text("a-300"), Text(""), names), 0);
}

TEST_F(Flow, AnItemIsChangedHeadedTiedAndMadeEffective)
{
    ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
    ASSERT_EQ(EngineeringChangeCreate("EC-1", "Release", "", "", "ada"), 1);
    ASSERT_EQ(createItem("EC-1", "A-100", "BOLT"), 1);

    auto names = list({"mass"});
    auto values = list({"13"});
    auto selected = list({"update_count", "mass"});
    ASSERT_EQ(ItemSave(Text("EC-1"), Text("A-100"), Text("long bolt"), nullptr, names, values, selected), 1);
    EXPECT_EQ(rows({"update_count", "mass"}), (std::vector<Row>{{"2", "13"}}));

    ASSERT_EQ(ItemHeaderCreate("EC-1", "a-300", "plate", "A plate", "P", "1", "A"), 1);
    EXPECT_EQ(query("A-300", "EC-1", "STD"),
              (std::vector<Row>{{"A-300", "PLATE"}})); // released under the change

    auto none = list({});
    ASSERT_EQ(
        ItemPUEffectivityCreate(Text("EC-1"), Text("A-100"), Text("bike"), Text("17"), none, none, none), 1);
    auto flag = list({"net_pu_flg"});
    ASSERT_EQ(ItemOpen(Text("A-100"), Text("EC-1"), flag), 1);
    EXPECT_EQ(value(0, "net_pu_flg"), "Y");

    ASSERT_EQ(ItemAssociationSave(Text("EC-1"), Text("A-100"), Text("OID-7"), Names({})), 1);
    ASSERT_EQ(ItemAssociationOpen(Text(""), Text("A-100"), Text("EC-1"), Names({"alias_xref"})), 1);
    EXPECT_EQ(value(0, "alias_xref"), "OID-7");
}

/** Runs `work` in a process of its own; the result is its process number. */
pid_t inProcess(const std::function<bool()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(work() && !testing::Test::HasFailure() ? 0 : 1);
    }
    return child;
}

TEST_F(Flow, TwoProcessesWorkOnOneStoreAtOnce)
{
    constexpr int changes = 25;
    const auto work = [&](const std::string& name) {
        environment.set("QVL_LOG_FILE", name + ".log");
        if (QvConnect("jdoe", "secret") != 1) {
            return false;
        }
        for (int i = 0; i < changes; ++i) {
            const std::string number = name + std::to_string(i);
            if (EngineeringChangeCreate(number.c_str(), "At once", "", "", name.c_str()) != 1 ||
                EngineeringChangeOpen(Text(""), Text(number), Names({"initiator@person_identifier"})) != 1 ||
                value(0, "initiator@person_identifier") != name) {
                return false;
            }
        }
        return QvExit() == 1;
    };
    const std::array<pid_t, 2> children = {inProcess([&] { return work("A"); }),
                                           inProcess([&] { return work("B"); })};
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
    for (const std::string name : {"A", "B"}) {
        for (int i = 0; i < changes; ++i) {
            EXPECT_EQ(EngineeringChangeOpen(Text(""), Text(name + std::to_string(i)), Names({})), 1);
        }
        EXPECT_NE(harness::readFile(name + ".log").find("QvExit- rc(QV_Close_Env) = 0"), std::string::npos);
    }
}

} // namespace
