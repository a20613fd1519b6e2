#include "Views/IndexStatusBadge.h"

#include "Fakes/TaskRunner.h"
#include "Views/IndexBench.h"

#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using Kind = IndexStatus::Kind;

const Clock::TimePoint now{FakeClock::usualTime};

QString textOf(Kind kind, std::optional<Clock::TimePoint> lastIndexUpdate = {},
               const QString& message = {})
{
    return IndexStatusBadge::statusText({kind, message}, lastIndexUpdate, now);
}

QString of(const char* text)
{
    return QString::fromLatin1(text);
}

class IndexStatusBadgeTest : public testing::Test {
protected:
    IndexStatusBadgeTest()
    {
        QObject::connect(&badge, &IndexStatusBadge::statusChanged, &badge,
                         [this] { shown.append(badge.statusColor() + u' ' + badge.statusText()); });
    }

    IndexBench bench;
    IndexStatusBadge& badge = bench.indexStatusBadge;
    QStringList shown;
};

} // namespace

TEST(IndexStatusBadgeTexts, OfEachState)
{
    EXPECT_EQ(textOf(Kind::notStarted), of("Index not built"));
    EXPECT_EQ(textOf(Kind::notStarted, now), of("Index not built"));
    EXPECT_EQ(textOf(Kind::building), of("Building index..."));
    EXPECT_EQ(textOf(Kind::updating, now), of("Updating index..."));
    EXPECT_EQ(textOf(Kind::ready, now - 5min), of("Indexed 5 minutes ago"));
    EXPECT_EQ(textOf(Kind::ready, now - 24h), of("Indexed 1 day ago"));
    EXPECT_EQ(textOf(Kind::error, now, of("Disk gone")), of("Error: Disk gone"));
}

TEST(IndexStatusBadgeTexts, ReadyWithoutADate)
{
    EXPECT_EQ(textOf(Kind::ready), of("Index ready"));
}

TEST(IndexStatusBadgeTexts, ErrorOfAnyLengthIsWhole)
{
    const QString message = QString(5000, u'x');
    EXPECT_EQ(textOf(Kind::error, {}, message), of("Error: ") + message);
}

TEST(IndexStatusBadgeTexts, ClockThatWentBack)
{
    EXPECT_EQ(textOf(Kind::ready, now + 2h), of("Indexed in 2 hours"));
}

TEST(IndexStatusBadgeColors, OfEachState)
{
    EXPECT_EQ(IndexStatusBadge::statusColor(Kind::notStarted), of("gray"));
    EXPECT_EQ(IndexStatusBadge::statusColor(Kind::building), of("orange"));
    EXPECT_EQ(IndexStatusBadge::statusColor(Kind::ready), of("green"));
    EXPECT_EQ(IndexStatusBadge::statusColor(Kind::updating), of("orange"));
    EXPECT_EQ(IndexStatusBadge::statusColor(Kind::error), of("red"));
}

TEST_F(IndexStatusBadgeTest, TellsAtFirstThatThereIsNoIndex)
{
    EXPECT_EQ(badge.statusColor(), of("gray"));
    EXPECT_EQ(badge.statusText(), of("Index not built"));
}

TEST_F(IndexStatusBadgeTest, FollowsABuildAndTellsOnlyOfChanges)
{
    bench.startBuild(30);
    bench.finish();
    EXPECT_THAT(shown, ElementsAre(of("orange Building index..."), of("green Index ready"),
                                   of("green Indexed 0 seconds ago")));
}

TEST_F(IndexStatusBadgeTest, TellsWhyABuildFailed)
{
    bench.buildMissingVault();
    EXPECT_EQ(badge.statusColor(), of("red"));
    EXPECT_EQ(badge.statusText(), of("Error: ") + bench.index.indexStatus().message);
    EXPECT_GT(badge.statusText().size(), 7);
}

TEST_F(IndexStatusBadgeTest, TellsOfAnUpdate)
{
    bench.startBuild(1);
    bench.finish();
    shown.clear();
    bench.fake.clock.advance(3min);
    finished(bench.index.updateFile(bench.vault.filePath(of("0.md"))));
    EXPECT_THAT(shown,
                ElementsAre(of("orange Updating index..."), of("green Indexed 3 minutes ago"),
                            of("green Indexed 0 seconds ago")));
}

TEST_F(IndexStatusBadgeTest, DateMovesOnOnlyWithTheNextPublication)
{
    bench.startBuild(1);
    bench.finish();
    shown.clear();
    bench.fake.clock.advance(2h);
    bench.advance(1000);
    EXPECT_EQ(badge.statusText(), of("Indexed 0 seconds ago"));
    bench.index.clearIndex();
    EXPECT_THAT(shown, ElementsAre(of("green Indexed 2 hours ago")));
}
