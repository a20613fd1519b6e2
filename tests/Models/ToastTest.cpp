#include "Models/Toast.h"

#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

struct ToastTypeRow {
    const char* name;
    ToastType type;
    QString color;
    QString icon;
};

class ToastTypeTable : public testing::TestWithParam<ToastTypeRow> {};

const ToastTypeRow toastTypeRows[] = {
    {"Success", ToastType::success, u"green"_qs, u"checkmark.circle.fill"_qs},
    {"WarningIsAsRedAsAnError", ToastType::warning, u"red"_qs, u"exclamationmark.triangle.fill"_qs},
    {"Error", ToastType::error, u"red"_qs, u"xmark.circle.fill"_qs},
};

TEST_P(ToastTypeTable, HasItsLooks)
{
    EXPECT_EQ(color(GetParam().type), GetParam().color);
    EXPECT_EQ(icon(GetParam().type), GetParam().icon);
    EXPECT_EQ(iconColor(GetParam().type), u"white"_qs);
}

INSTANTIATE_TEST_SUITE_P(Rows, ToastTypeTable, testing::ValuesIn(toastTypeRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ToastType, OrderIsSuccessWarningError)
{
    EXPECT_THAT(allToastTypes,
                testing::ElementsAre(ToastType::success, ToastType::warning, ToastType::error));
}

TEST(Toast, MakingGivesAFreshIdentifier)
{
    const Toast first = Toast::make(ToastType::warning, u"a"_qs, 1.5s);
    const Toast second = Toast::make(ToastType::warning, u"a"_qs, 1.5s);
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, second.id);
    EXPECT_EQ(first.message, u"a"_qs);
    EXPECT_EQ(first.type, ToastType::warning);
    EXPECT_EQ(first.duration, 1.5s);
}

struct DifferenceRow {
    const char* name;
    void (*change)(Toast&);
};

class ToastsThatDifferIn : public testing::TestWithParam<DifferenceRow> {};

const DifferenceRow differenceRows[] = {
    {"Id", [](Toast& it) { it.id = QUuid(); }},
    {"Message", [](Toast& it) { it.message = u"b"_qs; }},
    {"Type", [](Toast& it) { it.type = ToastType::error; }},
    {"Duration", [](Toast& it) { it.duration = 3s; }},
};

TEST_P(ToastsThatDifferIn, AreNotEqual)
{
    const Toast before = Toast::make(ToastType::warning, u"a"_qs, 2s);
    Toast after = before;
    EXPECT_EQ(after, before);
    GetParam().change(after);
    EXPECT_NE(after, before);
}

INSTANTIATE_TEST_SUITE_P(Rows, ToastsThatDifferIn, testing::ValuesIn(differenceRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace jotwell
