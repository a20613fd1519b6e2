#include "Services/TemplateChange.h"

#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using Kind = TemplateChange::Kind;

const ObsidianTemplate a{QUuid::createUuid(), u"a"_qs, u"text"_qs, true, {}};
const ObsidianTemplate b{QUuid::createUuid(), u"b"_qs, u"text"_qs, true, {}};
const ObsidianTemplate edited{a.id, u"A"_qs, u"other"_qs, false, {}};

} // namespace

TEST(TemplateChange, EditsWhatWasEditedAlone)
{
    EXPECT_THAT(applied({Kind::edited, edited, TemplateChange::name}, {a, b}),
                ElementsAre(ObsidianTemplate{a.id, u"A"_qs, u"text"_qs, true, {}}, b));
    EXPECT_THAT(applied({Kind::edited, edited, TemplateChange::content}, {a, b}),
                ElementsAre(ObsidianTemplate{a.id, u"a"_qs, u"other"_qs, true, {}}, b));
    EXPECT_THAT(applied({Kind::edited, edited, TemplateChange::showInDropdown}, {a, b}),
                ElementsAre(ObsidianTemplate{a.id, u"a"_qs, u"text"_qs, false, {}}, b));
}

TEST(TemplateChange, BringsBackWhatWasEdited)
{
    EXPECT_THAT(applied({Kind::edited, edited, TemplateChange::name}, {b}), ElementsAre(b, edited));
}

TEST(TemplateChange, AddsAtTheEndAndOnlyOnce)
{
    EXPECT_THAT(applied({Kind::added, a, 0}, {b}), ElementsAre(b, a));
    EXPECT_THAT(applied({Kind::added, a, 0}, {a, b}), ElementsAre(a, b));
}

TEST(TemplateChange, RemovesWhatIsThere)
{
    EXPECT_THAT(applied({Kind::removed, edited, 0}, {a, b}), ElementsAre(b));
    EXPECT_THAT(applied({Kind::removed, a, 0}, {b}), ElementsAre(b));
}

TEST(TemplateChange, EditsOfOneTemplateAreOne)
{
    QList<TemplateChange> changes;
    append(changes, {Kind::edited, a, TemplateChange::name});
    append(changes, {Kind::edited, edited, TemplateChange::content});
    EXPECT_THAT(changes,
                ElementsAre(TemplateChange{Kind::edited, edited,
                                           TemplateChange::name | TemplateChange::content}));
    append(changes, {Kind::edited, b, TemplateChange::name});
    append(changes, {Kind::removed, b, 0});
    append(changes, {Kind::edited, b, TemplateChange::name});
    EXPECT_EQ(changes.size(), 4);
}

} // namespace jotwell
