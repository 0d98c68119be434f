// SPDX-License-Identifier: Apache-2.0
//
// The life of a document.
#include <array>

#include "tests/flows/flow_test.h"

namespace flowtest {
namespace {

const std::string numberPath = "doc_revision@doc_number";
const std::string revisionPath = "doc_revision@doc_rev_num";
const std::string titlePath = "doc_revision@doc_title";
const std::string systemPath = "doc_primary_fmt@user_data3";

class Documents : public FlowTest {
protected:
    void SetUp() override
    {
        FlowTest::SetUp();
        ASSERT_EQ(DocumentCreateCheckIn(Text("ec-1"), Text("bracket"), Text("OID-1"), Names({numberPath})),
                  1);
        number = value(numberPath);
    }

    /** What an operation on the newest version of revision 1 gives. */
    int vault(int (*operation)(char*, char*, char*, char**), const std::vector<std::string>& names = {}) const
    {
        return operation(Text(""), Text(number), Text("1"), Names(names));
    }
    /** What the newest version of a revision has. */
    Row stored(const std::string& revision, const std::vector<std::string>& names) const
    {
        auto wanted = textList(names);
        EXPECT_EQ(DocumentOpen(Text(number), Text(revision), wanted), 1) << revision;
        return result(names).at(0);
    }
    /** Change control flag and number of a revision. */
    std::string control(const std::string& revision) const
    {
        const Row row = stored(revision, {"doc_revision@chg_ctrl", "doc_revision@doc_ctrl_num"});
        return row.at(0) + row.at(1);
    }
    /** Revises `base` under a change; the result is the number of the new revision, "" when refused. */
    std::string revise(char* change, const std::string& base, const std::string& title = "next")
    {
        std::array<char, 100> revision = {};
        std::array<char, 100> identifier = {};
        const int done = DocumentMakeNewRevision(change, Text(number), Text(base), Text(title), Text("OID-2"),
                                                 Names({revisionPath}), revision.data(), identifier.data());
        EXPECT_EQ(done == 1, revision[0] != '\0');
        newId = identifier.data();
        return revision.data();
    }

    std::string number;
    std::string newId;
};

TEST_F(Documents, AreCheckedOutAndInAndRevised)
{
    harness::writeFile("QVL_RZM_DEFAULT", "DocumentCheckIn site_reason released\n");
    EXPECT_EQ(stored("1", {titlePath, systemPath, "doc_ver_num"}), (Row{"BRACKET", "OID-1", "1"}));
    ASSERT_EQ(vault(DocumentCheckOut, {"ckout_user"}), 1);
    EXPECT_EQ(value("ckout_user"), "jdoe");
    EXPECT_NE(refusal([&] { return vault(DocumentCheckOut); }).find("is checked out by 'jdoe'"),
              std::string::npos);
    EXPECT_NE(refusal([&] { return revise(Text("EC-1"), "1").empty() ? 0 : 1; }).find("by 'jdoe'"),
              std::string::npos);

    ASSERT_EQ(vault(DocumentCheckIn, {"doc_ver_num", "ckout_user", "site_reason"}), 1);
    EXPECT_EQ(value("doc_ver_num") + value("ckout_user") + value("site_reason"), "2released");
    EXPECT_EQ(vault(DocumentCheckIn), 0);
    ASSERT_EQ(vault(DocumentCheckOut), 1);
    ASSERT_EQ(vault(DocumentCancelCheckOut, {"doc_ver_num"}), 1);
    EXPECT_EQ(value("doc_ver_num"), "2");

    ASSERT_EQ(MultiSaveStart(), 1);
    EXPECT_EQ(revise(Text("EC-1"), "1", "dropped"), "2");
    ASSERT_EQ(MultiSaveDiscard(), 1);
    EXPECT_EQ(revise(Text("EC-1"), "1", "second"), "2");
    EXPECT_EQ(value(revisionPath), "1") << "the base revision is the current result";
    EXPECT_EQ(stored("2", {titlePath, systemPath, "doc_ver_num", "db_object_id", "site_reason"}),
              (Row{"second", "OID-2", "1", newId, "released"}));
    ASSERT_EQ(DocumentGetLastRevision(number.c_str()), 3);
    EXPECT_EQ(result({revisionPath}), (Table{{"1"}, {"1"}, {"2"}}));
}

TEST_F(Documents, ANewRevisionMovesTheChangeControl)
{
    EXPECT_EQ(control("1"), "1EC-1");
    EXPECT_EQ(revise(Text("EC-1"), "1"), "2"); // the change that controls the base
    EXPECT_EQ(control("1") + ' ' + control("2"), "0EC-1 1EC-1");
    EXPECT_EQ(revise(Text("EC-2"), "2"), "3"); // another one
    EXPECT_EQ(control("2") + ' ' + control("3"), "1EC-1 1EC-2");
    EXPECT_EQ(revise(Text(""), "3"), "4"); // none
    EXPECT_EQ(control("3") + ' ' + control("4"), "1EC-2 0");
    EXPECT_EQ(revise(Text("EC-1"), "4"), "5"); // from a base without one
    EXPECT_EQ(control("4") + ' ' + control("5"), "0 1EC-1");
    EXPECT_EQ(revise(nullptr, "1"), "6"); // from an old revision
    EXPECT_EQ(control("6"), "0");
    ASSERT_EQ(DocumentMakeECControlled(Text("ec-2"), Text(number), Text("6"), "unused", Names({})), 1);
    EXPECT_EQ(control("6"), "1EC-2");
    for (int revision = 7; revision <= 10; ++revision) {
        EXPECT_EQ(revise(nullptr, "1"), std::to_string(revision));
    }
    ASSERT_EQ(DocumentGetLastRevision(number.c_str()), 10);
    EXPECT_EQ(value(revisionPath, entries - 1), "10");
}

} // namespace
} // namespace flowtest
