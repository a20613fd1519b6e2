#include "Platform/qt/Updates/Appcast.h"

#include "Platform/Updates/SignedFeeds.h"
#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

Result<Appcast, QString> parsed(const QByteArray& feed)
{
    return parseAppcast(feed, u"linux"_qs);
}

/// What a program of version 1.0 is told.
std::optional<AppcastItem> found(const QByteArray& items)
{
    const auto appcast = parsed(feedOf(items));
    EXPECT_TRUE(appcast) << appcast.error().toStdString();
    return appcast ? newestUpdate(*appcast, QVersionNumber(1, 0)) : std::nullopt;
}

/// The version that it is told, empty for none.
QString foundVersion(const QByteArray& items)
{
    return found(items).value_or(AppcastItem{}).displayVersionString;
}

QByteArray element(const QByteArray& name, const QByteArray& text)
{
    return '<' + name + '>' + text + "</" + name + '>';
}

TEST(Appcast, HighestVersionIsTheUpdateWhereverItStands)
{
    EXPECT_EQ(foundVersion(feedItem("1.9") + feedItem("1.10") + feedItem("1.2")), u"1.10"_qs);
    EXPECT_EQ(foundVersion(feedItem("10") + feedItem("9.9.9")), u"10"_qs);
    EXPECT_EQ(foundVersion(feedItem("1.0.1")), u"1.0.1"_qs);
}

TEST(Appcast, NeitherTheSameNorAnOlderVersionIsAnUpdate)
{
    for (const char* version : {"1.0", "1", "1.0.0", "01.00", "0.9.9", "0", "0.0"})
        EXPECT_EQ(foundVersion(feedItem(version)), QString()) << version;
}

TEST(Appcast, VersionIsComparedAndItsShortFormShown)
{
    EXPECT_EQ(foundVersion(feedItem("2041", element("sparkle:shortVersionString", "2.0 β"))),
              u"2.0 β"_qs);
    EXPECT_EQ(foundVersion(feedItem("0.5", element("sparkle:shortVersionString", "9.0"))),
              QString());
}

TEST(Appcast, ShortFormAloneIsTheVersion)
{
    EXPECT_EQ(foundVersion(element("item", element("sparkle:shortVersionString", "2.5"))),
              u"2.5"_qs);
}

TEST(Appcast, EnclosureMayBearTheVersion)
{
    EXPECT_EQ(foundVersion("<item><enclosure url='https://a/' sparkle:version='3' "
                           "sparkle:shortVersionString='3.0'/></item>"),
              u"3.0"_qs);
    EXPECT_EQ(foundVersion("<item><enclosure sparkle:version='3' sparkle:os='windows'/></item>"),
              QString());
}

TEST(Appcast, ShortFormThatCannotBeShownIsPassedOver)
{
    for (const QByteArray& text : {QByteArray(41, '2'), QByteArray("2&#10;0"), QByteArray()})
        EXPECT_EQ(foundVersion(feedItem("2.0", element("sparkle:shortVersionString", text))),
                  u"2"_qs);
}

TEST(Appcast, WhatIsNoVersionOfNumbersIsPassedOver)
{
    for (const char* version :
         {"2.0-beta", "2.0b", "v2.0", "2..0", "2.", ".2", "-2", "+2", "2,0", "2 0", "", "two",
          "99999999999", "2.99999999999", "٢.٠", "2.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0.0"})
        EXPECT_EQ(foundVersion(feedItem(version) + feedItem("1.5")), u"1.5"_qs) << version;
}

TEST(Appcast, ItemsForOthersArePassedOver)
{
    const auto with = [](const QByteArray& more) { return feedItem("1.5") + feedItem("2", more); };
    EXPECT_EQ(foundVersion(with(element("sparkle:os", "macos"))), u"1.5"_qs);
    EXPECT_EQ(foundVersion(with(element("sparkle:os", "windows"))), u"1.5"_qs);
    EXPECT_EQ(foundVersion(with(element("sparkle:channel", "beta"))), u"1.5"_qs);
    EXPECT_EQ(foundVersion(with(element("sparkle:os", " linux\n"))), u"2"_qs);
    EXPECT_EQ(foundVersion(with(element("sparkle:minimumSystemVersion", "14.0"))), u"2"_qs);
}

TEST(Appcast, FeedForOthersAloneIsNoUpdateAndNoFault)
{
    const auto appcast = parsed(feedOf(feedItem("2", element("sparkle:os", "macos"))));
    ASSERT_TRUE(appcast);
    EXPECT_EQ(appcast->itemCount, 1);
    EXPECT_TRUE(appcast->versions.empty());
    EXPECT_EQ(newestUpdate(*appcast, QVersionNumber(1)), std::nullopt);
}

TEST(Appcast, LinkIsThePageAndReleaseNotesWhereThereIsNone)
{
    const QByteArray link = element("link", " https://a/link\n");
    const QByteArray notes = element("sparkle:releaseNotesLink", "https://a/notes");
    EXPECT_EQ(found(feedItem("2", link + notes))->infoUrl, u"https://a/link"_qs);
    EXPECT_EQ(found(feedItem("2", notes + link))->infoUrl, u"https://a/link"_qs);
    EXPECT_EQ(found(feedItem("2", notes))->infoUrl, u"https://a/notes"_qs);
    EXPECT_EQ(found(feedItem("2"))->infoUrl, std::nullopt);
    EXPECT_EQ(found(feedItem("2", "<link/>"))->infoUrl, std::nullopt);
}

TEST(Appcast, FirstOfTwoCounts)
{
    EXPECT_EQ(foundVersion(feedItem("2", element("sparkle:version", "3"))), u"2"_qs);
}

TEST(Appcast, NamesOfOtherNamespacesSayNothing)
{
    EXPECT_EQ(foundVersion(feedItem("1.5") +
                           "<item xmlns:a='urn:a'><version>3</version><a:version>4</a:version>"
                           "</item><a:item xmlns:a='urn:a'><sparkle:version>5</sparkle:version>"
                           "</a:item>"),
              u"1.5"_qs);
}

TEST(Appcast, AllItemsAreCounted)
{
    const auto appcast = parsed(feedOf(feedItem("2") + feedItem("beta") + feedItem("1")));
    ASSERT_TRUE(appcast);
    EXPECT_EQ(appcast->itemCount, 3);
}

TEST(Appcast, MostItemsThatMayBeAreRead)
{
    QByteArray items;
    for (int version = 1; version <= Appcast::mostItems; ++version)
        items += feedItem(QByteArray::number(version));
    EXPECT_EQ(foundVersion(items), QString::number(Appcast::mostItems));
    EXPECT_FALSE(parsed(feedOf(items + feedItem("5000"))));
}

QByteArray entityBomb()
{
    QByteArray types = "<!DOCTYPE rss [<!ENTITY e0 \"ha\">";
    for (int level = 1; level <= 30; ++level) {
        const QByteArray below = "&e" + QByteArray::number(level - 1) + ';';
        types += "<!ENTITY e" + QByteArray::number(level) + " \"" + below + below + "\">";
    }
    return types + "]><rss><channel><item><title>&e30;</title></item></channel></rss>";
}

struct RefusedRow {
    const char* name;
    QByteArray feed;
    const char* reason; ///< the beginning of it
};

void PrintTo(const RefusedRow& row, std::ostream* out)
{
    *out << row.name;
}

class RefusedAppcast : public testing::TestWithParam<RefusedRow> {};

TEST_P(RefusedAppcast, IsNamed)
{
    const auto appcast = parsed(GetParam().feed);
    ASSERT_FALSE(appcast);
    EXPECT_TRUE(appcast.error().startsWith(QString::fromUtf8(GetParam().reason)))
        << appcast.error().toStdString();
}

const char* const noFeed = "it is no feed: ";

INSTANTIATE_TEST_SUITE_P(
    Rows, RefusedAppcast,
    testing::Values(
        RefusedRow{"Nothing", QByteArray(), noFeed},
        RefusedRow{"NoXml", "version 2.0 is out", noFeed},
        RefusedRow{"Html", "<html><body/></html>", "it is no feed: another root"},
        RefusedRow{"NoItems", feedOf({}), "it holds no items"},
        RefusedRow{"NoChannel", "<rss/>", "it holds no items"},
        RefusedRow{"VersionTwice", feedOf(feedItem("2.0") + feedItem("1") + feedItem("2")),
                   "it holds a version twice"},
        RefusedRow{"NeverClosed", feedOf(feedItem("2")).chopped(10), noFeed},
        RefusedRow{"CrossedElements", feedOf("<item><a></item></a>"), noFeed},
        RefusedRow{"ElementsInAVersion", feedOf(feedItem("<b>2</b>")), noFeed},
        RefusedRow{"TextBehind", feedOf(feedItem("2")) + "more", noFeed},
        RefusedRow{"FeedTwice", feedOf(feedItem("2")) + feedOf(feedItem("3")), noFeed},
        RefusedRow{"NoUtf8", feedOf(feedItem("2", "<title>\xFF\xFE</title>")), noFeed},
        RefusedRow{"ZeroByte", feedOf(feedItem(QByteArray("2\0", 2))), noFeed},
        RefusedRow{"UnknownEntity", feedOf(feedItem("2", "<title>&a;</title>")), noFeed},
        RefusedRow{"DocumentType", "<!DOCTYPE rss>" + feedOf(feedItem("2")).sliced(39),
                   "it is no feed: a document type"},
        RefusedRow{"EntityBomb", entityBomb(), "it is no feed: a document type"},
        RefusedRow{"FileEntity",
                   "<!DOCTYPE rss [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>"
                   "<rss><channel><item><title>&a;</title></item></channel></rss>",
                   "it is no feed: a document type"},
        RefusedRow{"Depth", QByteArray("<rss>") + QByteArray("<a>").repeated(300'000), noFeed},
        RefusedRow{"TooManyItems", feedOf(feedItem("x").repeated(Appcast::mostItems + 1)),
                   "it is no feed: more than 1000 items"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(VersionNumber, NumbersAndDotsAloneAreOne)
{
    EXPECT_EQ(versionNumber(u"1.2.3"_qs), QVersionNumber(1, 2, 3));
    EXPECT_EQ(versionNumber(u"1.0.0"_qs), QVersionNumber(1));
    EXPECT_EQ(versionNumber(u"0.0"_qs), QVersionNumber(0));
    EXPECT_TRUE(versionNumber(u"1.2-3"_qs).isNull());
    EXPECT_TRUE(versionNumber(QString()).isNull());
}

} // namespace

} // namespace jotwell
