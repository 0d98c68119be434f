// SPDX-License-Identifier: Apache-2.0
#include "server/objects/revision_number.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "server/base/errors.h"

namespace qvserver {
namespace {

/** The order of a column of blank-padded texts. */
bool sortsBefore(const std::string& left, const std::string& right)
{
    return revisionSortValue(left) < revisionSortValue(right);
}

TEST(RevisionNumber, TheLastRunCountsOn)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"1", "2"},    {"9", "10"},   {"99", "100"}, {"01", "02"},         {"099", "100"},
        {"A", "B"},    {"Z", "AA"},   {"AZ", "BA"},  {"ZZ", "AAA"},        {"z", "aa"},
        {"aZ", "bA"},  {"A9", "A10"}, {"1Z", "1AA"}, {"A.9", "A.10"},      {"9.Z", "9.AA"},
        {"A-", "A-1"}, {"", "1"},     {"A  ", "B"},  {"\u00C4", "\u00C41"}};
    for (const auto& [number, next] : cases) {
        EXPECT_EQ(nextRevisionNumber(number), next) << "after '" << number << "'";
    }
}

TEST(RevisionNumber, SortValuesCompareAsTheNumbersDo)
{
    const std::vector<std::string> ascending = {"",  "-", "-1", "1",  "1.9", "1.10", "1A", "1Z", "1AA",
                                                "2", "9", "10", "99", "100", "A",    "A1", "A9", "A10",
                                                "B", "Z", "a",  "AA", "AZ",  "BA",   "ZZ", "AAA"};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(sortsBefore(ascending[i], ascending[j]), i < j)
                << "'" << ascending[i] << "' and '" << ascending[j] << "'";
        }
    }
    EXPECT_NE(revisionSortValue("01"), revisionSortValue("1"));
    EXPECT_EQ(revisionSortValue("A  "), revisionSortValue("A")) << "trailing blanks never count";
    EXPECT_LE(revisionSortValue(std::string(1900, 'A')).size(), std::size_t(QV_MAX_VALUE_LENGTH));
    EXPECT_THROW(revisionSortValue(std::string(QV_MAX_VALUE_LENGTH, 'A')), ServerError);
}

TEST(RevisionNumber, TheNextNumberAlwaysSortsBehind)
{
    constexpr std::string_view alphabet = "019AZaz-. ";
    std::mt19937 random(4711); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers at each run
    for (int round = 0; round < 5000; ++round) {
        std::string number;
        for (auto length = random() % 8; length > 0; --length) {
            number += alphabet[random() % alphabet.size()];
        }
        EXPECT_TRUE(sortsBefore(number, nextRevisionNumber(number))) << "'" << number << "'";
    }
}

} // namespace
} // namespace qvserver
