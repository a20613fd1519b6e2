#include "Models/Uuid.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

const QUuid uuid(0xe621e1f8, 0xc36c, 0x495a, 0x93, 0xfc, 0x0c, 0x24, 0x7a, 0x3e, 0x6e, 0x5f);

TEST(Uuid, IsWrittenInUpperCaseWithoutBraces)
{
    EXPECT_EQ(uuidString(uuid), u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs);
}

TEST(Uuid, IsReadInEitherCase)
{
    EXPECT_EQ(uuidFromString(u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs), uuid);
    EXPECT_EQ(uuidFromString(u"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"_qs), uuid);
}

TEST(Uuid, NilIsOneToo)
{
    EXPECT_EQ(uuidFromString(u"00000000-0000-0000-0000-000000000000"_qs), QUuid());
}

struct NoUuidRow {
    const char* name;
    QString text;
};

class NoUuid : public testing::TestWithParam<NoUuidRow> {};

const NoUuidRow noUuidRows[] = {
    {"Empty", QString()},
    {"Word", u"Meeting"_qs},
    {"Braces", u"{E621E1F8-C36C-495A-93FC-0C247A3E6E5F}"_qs},
    {"Urn", u"urn:uuid:E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs},
    {"NoDashes", u"E621E1F8C36C495A93FC0C247A3E6E5F"_qs},
    {"OneDigitShort", u"E621E1F8-C36C-495A-93FC-0C247A3E6E5"_qs},
    {"OneDigitLong", u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F0"_qs},
    {"NoHexDigit", u"G621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs},
    {"LeadingBlank", u" E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs},
    {"TrailingLineEnd", u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F\n"_qs},
};

TEST_P(NoUuid, ReadsAsNothing)
{
    EXPECT_EQ(uuidFromString(GetParam().text), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Rows, NoUuid, testing::ValuesIn(noUuidRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace jotwell
