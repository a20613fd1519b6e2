#include "Views/IndexStatusView.h"

#include "Views/IndexBench.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

class IndexStatusViewTest : public testing::Test {
protected:
    IndexBench bench;
    IndexStatusView& view = bench.indexStatusView;
    QSignalSpy shown{&view, &IndexStatusView::isIndexingChanged};
    QSignalSpy progress{&view, &IndexStatusView::indexingProgressChanged};
    QSignalSpy counts{&view, &IndexStatusView::fileCountTextChanged};
    QSignalSpy published{&bench.index, &TagIndexService::indexedFileCountChanged};
};

} // namespace

TEST_F(IndexStatusViewTest, IsNothingAtFirst)
{
    EXPECT_FALSE(view.isIndexing());
    EXPECT_EQ(view.indexingProgress(), 0);
    EXPECT_EQ(view.fileCountText(), QStringLiteral("0 of 0 files"));
}

TEST_F(IndexStatusViewTest, CountsAreWholeNumbersWithoutGroups)
{
    EXPECT_EQ(IndexStatusView::fileCountText(3, 10), QStringLiteral("3 of 10 files"));
    EXPECT_EQ(IndexStatusView::fileCountText(1, 1), QStringLiteral("1 of 1 files"));
    EXPECT_EQ(IndexStatusView::fileCountText(12345, 1000000),
              QStringLiteral("12345 of 1000000 files"));
}

TEST_F(IndexStatusViewTest, FollowsABuild)
{
    bench.startBuild(700);
    bench.advance(16);
    EXPECT_TRUE(view.isIndexing());
    EXPECT_EQ(view.fileCountText(), QStringLiteral("0 of 0 files"));
    EXPECT_EQ(view.indexingProgress(), 0);
    bench.list();
    bench.advance(16);
    EXPECT_EQ(view.fileCountText(), QStringLiteral("0 of 700 files"));
    EXPECT_EQ(view.indexingProgress(), 0);
    bench.read();
    bench.advance(16);
    EXPECT_EQ(view.fileCountText(), QStringLiteral("650 of 700 files"));
    EXPECT_DOUBLE_EQ(view.indexingProgress(), 650.0 / 700);
    bench.finish();
    bench.advance(16);
    EXPECT_FALSE(view.isIndexing());
    EXPECT_EQ(view.fileCountText(), QStringLiteral("700 of 700 files"));
    EXPECT_EQ(view.indexingProgress(), 1);
    EXPECT_EQ(shown.size(), 2);
}

TEST_F(IndexStatusViewTest, FullBarStaysUntilTheBuildIsOver)
{
    bench.startBuild(3);
    bench.list();
    bench.read();
    bench.advance(16);
    EXPECT_TRUE(view.isIndexing());
    EXPECT_EQ(view.indexingProgress(), 1);
    EXPECT_EQ(view.fileCountText(), QStringLiteral("3 of 3 files"));
}

TEST_F(IndexStatusViewTest, TellsOfTheLastValueOnceAFrame)
{
    bench.startBuild(700);
    bench.list();
    bench.read();
    EXPECT_GE(published.size(), 64);
    EXPECT_EQ(counts.size(), 0);
    bench.advance(15);
    EXPECT_EQ(counts.size(), 0);
    bench.advance(1);
    EXPECT_EQ(counts.size(), 1);
    EXPECT_EQ(progress.size(), 1);
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(view.fileCountText(), QStringLiteral("650 of 700 files"));
}

TEST_F(IndexStatusViewTest, EmptyVaultHasNoFilesAndNoProgress)
{
    QStringList seen;
    QObject::connect(&bench.index, &TagIndexService::totalFileCountChanged, &view, [&] {
        bench.advance(16);
        seen.append(view.fileCountText() + QString::number(view.indexingProgress()));
    });
    bench.startBuild(0);
    bench.finish();
    bench.advance(16);
    EXPECT_FALSE(view.isIndexing());
    EXPECT_EQ(view.fileCountText(), QStringLiteral("0 of 0 files"));
    EXPECT_EQ(view.indexingProgress(), 0);
    ASSERT_GE(seen.size(), 1);
    EXPECT_EQ(seen.last(), QStringLiteral("0 of 0 files0"));
}

TEST_F(IndexStatusViewTest, ValuesAreThoseOfTheBuildWhenTheStripAppears)
{
    bench.startBuild(3);
    bench.finish();
    bench.advance(16);
    QString text;
    QObject::connect(&view, &IndexStatusView::isIndexingChanged, &view,
                     [&] { text = view.fileCountText(); });
    bench.startBuild(3);
    bench.advance(16);
    EXPECT_EQ(text, QStringLiteral("0 of 0 files"));
}

TEST_F(IndexStatusViewTest, LeavesWhenABuildFails)
{
    bench.buildMissingVault();
    bench.advance(16);
    EXPECT_FALSE(view.isIndexing());
    EXPECT_EQ(bench.index.indexStatus().kind, IndexStatus::Kind::error);
}

TEST_F(IndexStatusViewTest, GoesBeforeWhatItHasAskedFor)
{
    {
        const IndexStatusView shortLived(bench.index, bench.fake.scheduler);
        bench.startBuild(1);
    }
    bench.advance(16);
    EXPECT_TRUE(view.isIndexing());
}
