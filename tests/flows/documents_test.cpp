// SPDX-License-Identifier: Apache-2.0
//
// The life of a document through the operations of the library, with the local server behind them.
#include <array>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <velrzm/qvlocal.h>
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"

namespace {

using harness::Names;
using harness::Text;

const std::string numberPath = "doc_revision@doc_number";
const std::string revisionPath = "doc_revision@doc_rev_num";
const std::string titlePath = "doc_revision@doc_title";
const std::string controlPath = "doc_revision@chg_ctrl";
const std::string controlNumberPath = "doc_revision@doc_ctrl_num";
const std::string systemPath = "doc_primary_fmt@user_data3";

std::string value(const std::string& name, int record = 0)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> text = {};
    EXPECT_EQ(GetValue(record, name.c_str(), text.data()), 1) << name;
    return text.data();
}

/** A user at work in an empty directory with a store of its own. */
class DocumentFlow : public testing::Test {
protected:
    void SetUp() override
    {
        environment.set("QV_STORE", "sqlite:store.db");
        environment.set("RZM_DEFAULT_DIRECTORY", std::nullopt);
        environment.set("QV_MULTI_SAVE", std::nullopt);
        environment.set("QVL_TRACE_LEVEL", "0");
        qvlocal::initializeStore("sqlite:store.db", "jdoe", "secret");
        ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
        for (const char* const change : {"EC-1", "EC-2"}) {
            ASSERT_EQ(EngineeringChangeCreate(change, "Stronger bracket", "", "", "jdoe"), 1);
        }
        ASSERT_EQ(DocumentCreateCheckIn(Text("ec-1"), Text("bracket"), Text("OID-1"), Names({numberPath})),
                  1);
        number = value(numberPath);
    }
    void TearDown() override { QvExit(); }

    /** What an operation on the newest version of revision 1 gives. */
    int vault(int (*operation)(char*, char*, char*, char**), const std::vector<std::string>& names = {}) const
    {
        return operation(Text(""), Text(number), Text("1"), Names(names));
    }
    /** What the newest version of a revision has. */
    std::vector<std::string> stored(const std::string& revision, const std::vector<std::string>& names) const
    {
        VELListValVELUnicodeString wanted;
        for (const std::string& name : names) {
            wanted.Append(name.c_str());
        }
        std::vector<std::string> values;
        values.reserve(names.size());
        EXPECT_EQ(DocumentOpen(Text(number), Text(revision), wanted), 1) << revision;
        for (const std::string& name : names) {
            values.push_back(value(name));
        }
        return values;
    }
    /** Change control flag and number of a revision. */
    std::vector<std::string> control(const std::string& revision) const
    {
        return stored(revision, {controlPath, controlNumberPath});
    }
    /** Revises `base` under a change; the result is the number of the new revision, "" when refused. */
    std::string revise(char* change, const std::string& base, const std::string& title = "next")
    {
        std::array<char, 100> revision = {};
        std::array<char, 100> identifier = {};
        const int result =
            DocumentMakeNewRevision(change, Text(number), Text(base), Text(title), Text("OID-2"),
                                    Names({revisionPath}), revision.data(), identifier.data());
        EXPECT_EQ(result == 1, revision[0] != '\0');
        newId = identifier.data();
        return revision.data();
    }

    harness::TemporaryDirectory directory;
    harness::Environment environment;
    std::string number;
    std::string newId;
};

TEST_F(DocumentFlow, ADocumentIsCheckedOutAndInAndRevised)
{
    harness::writeFile("QVL_RZM_DEFAULT", "DocumentCheckIn site_reason released\n");
    EXPECT_EQ(stored("1", {titlePath, systemPath, controlPath, controlNumberPath, "doc_ver_num"}),
              (std::vector<std::string>{"BRACKET", "OID-1", "1", "EC-1", "1"}));
    ASSERT_EQ(vault(DocumentCheckOut, {"ckout_user"}), 1);
    EXPECT_EQ(value("ckout_user"), "jdoe");

    const std::string refusal = harness::captureOutput([&] {
        EXPECT_EQ(vault(DocumentCheckOut), 0);
        EXPECT_EQ(revise(Text("EC-1"), "1"), "");
    });
    const std::string reason = "is checked out by 'jdoe'";
    const auto first = refusal.find(reason);
    ASSERT_NE(first, std::string::npos) << refusal;
    EXPECT_NE(refusal.find(reason, first + 1), std::string::npos) << "once for each call: " << refusal;

    ASSERT_EQ(vault(DocumentCheckIn, {"doc_ver_num", "ckout_user", "site_reason"}), 1);
    EXPECT_EQ(value("doc_ver_num") + value("ckout_user") + value("site_reason"), "2released");
    EXPECT_EQ(vault(DocumentCheckIn), 0);
    ASSERT_EQ(vault(DocumentCheckOut), 1);
    ASSERT_EQ(vault(DocumentCancelCheckOut, {"doc_ver_num"}), 1);
    EXPECT_EQ(value("doc_ver_num"), "2");

    EXPECT_EQ(revise(Text("EC-1"), "1", "second"), "2");
    EXPECT_EQ(value(revisionPath), "1") << "the base revision is the current result";
    EXPECT_EQ(stored("2", {titlePath, systemPath, "doc_ver_num", "db_object_id", "site_reason"}),
              (std::vector<std::string>{"second", "OID-2", "1", newId, "released"}));
    ASSERT_EQ(DocumentGetLastRevision(number.c_str()), 3);
    EXPECT_EQ(value(revisionPath, 0) + value(revisionPath, 1) + value(revisionPath, 2), "112");
}

TEST_F(DocumentFlow, ANewRevisionMovesTheChangeControl)
{
    using Control = std::vector<std::string>;
    EXPECT_EQ(revise(Text("EC-1"), "1"), "2"); // the change that controls the base
    EXPECT_EQ(control("1"), (Control{"0", "EC-1"}));
    EXPECT_EQ(control("2"), (Control{"1", "EC-1"}));
    EXPECT_EQ(revise(Text("EC-2"), "2"), "3"); // another one
    EXPECT_EQ(control("2"), (Control{"1", "EC-1"}));
    EXPECT_EQ(control("3"), (Control{"1", "EC-2"}));
    EXPECT_EQ(revise(Text(""), "3"), "4"); // none
    EXPECT_EQ(control("3"), (Control{"1", "EC-2"}));
    EXPECT_EQ(control("4"), (Control{"0", ""}));
    EXPECT_EQ(revise(Text("EC-1"), "4"), "5"); // from a base without one
    EXPECT_EQ(control("4"), (Control{"0", ""}));
    EXPECT_EQ(control("5"), (Control{"1", "EC-1"}));
    EXPECT_EQ(revise(nullptr, "1"), "6"); // from an old revision
    EXPECT_EQ(control("6"), (Control{"0", ""}));
    ASSERT_EQ(DocumentMakeECControlled(Text("ec-2"), Text(number), Text("6"), "unused", Names({})), 1);
    EXPECT_EQ(control("6"), (Control{"1", "EC-2"}));
    for (int revision = 7; revision <= 10; ++revision) {
        EXPECT_EQ(revise(nullptr, "1"), std::to_string(revision));
    }
    ASSERT_EQ(DocumentGetLastRevision(number.c_str()), 10);
    EXPECT_EQ(value(revisionPath, entries - 1), "10");
}

TEST_F(DocumentFlow, ADiscardTakesTheDocumentsWorkBack)
{
    ASSERT_EQ(MultiSaveStart(), 1);
    ASSERT_EQ(vault(DocumentCheckOut), 1);
    ASSERT_EQ(vault(DocumentCheckIn), 1);
    EXPECT_EQ(revise(Text("EC-1"), "1"), "2");
    EXPECT_EQ(DocumentGetLastRevision(number.c_str()), 3);
    ASSERT_EQ(MultiSaveDiscard(), 1);
    EXPECT_EQ(DocumentGetLastRevision(number.c_str()), 1);
    EXPECT_EQ(control("1"), (std::vector<std::string>{"1", "EC-1"}));
}

} // namespace
