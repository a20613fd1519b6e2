#include "Views/Editor/ReadyNames.h"

#include "Support/TextUnits.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

TEST(ReadyNames, AreThoseOfTheListThatHoldsNow)
{
    QStringList templates{u"ab"_qs, u"a"_qs};
    QStringList folders{u"abc"_qs};
    ReadyNames names({[&] { return templates; }, [&] { return folders; }});
    EXPECT_EQ(names.templates().lengthAtStart(u"abc"), 2);
    EXPECT_EQ(names.folders().lengthAtStart(u"abc"), 3);
    EXPECT_EQ(names.templates().lengthAtStart(u"abc"), 2);
    templates.first() = u"x"_qs; // in the same place of the memory, as far as that is free
    EXPECT_EQ(names.templates().lengthAtStart(u"abc"), 1);
    EXPECT_EQ(names.folders().lengthAtStart(u"abc"), 3);
    templates.clear();
    EXPECT_EQ(names.templates().lengthAtStart(u"abc"), std::nullopt);
    templates.append(u"abc"_qs);
    EXPECT_EQ(names.templates().lengthAtStart(u"abc"), 3);
}

} // namespace

} // namespace jotwell
