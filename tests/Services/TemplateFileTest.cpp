#include "Services/TemplateFile.h"

#include "Fakes/FailingFileCalls.h"
#include "QtPrinters.h"
#include "Services/ScratchFolder.h"
#include "Support/FileText.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <cerrno>

namespace jotwell {

namespace {

class TemplateFileTest : public testing::Test {
protected:
    TemplateFileTest() { put(u"x.md"_qs, "known"); }

    void put(const QString& name, const QByteArray& bytes) { folder.put(name, bytes); }
    /// "absent" if it can't be read.
    [[nodiscard]] QByteArray in(const QString& name) const
    {
        const auto bytes = readFile(folder.pathOf(name));
        return bytes ? *bytes : QByteArray("absent");
    }
    /// The name of the other version; nothing if there was none.
    QString written(const QString& text)
    {
        const auto outcome = file.write(text);
        EXPECT_TRUE(outcome.ok());
        return outcome && *outcome ? QFileInfo(**outcome).fileName() : QString();
    }

    ScratchFolder folder;
    FailingFileCalls calls;
    TemplateFile file{folder.pathOf(u"x.md"_qs), u"known"_qs, AtomicFile(calls)};
};

} // namespace

TEST_F(TemplateFileTest, TakesThePlaceOfWhatIsKnown)
{
    EXPECT_EQ(written(u"one"_qs), QString());
    EXPECT_EQ(written(u"two"_qs), QString());
    EXPECT_EQ(in(u"x.md"_qs), "two");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList(u"x.md"_qs));
}

TEST_F(TemplateFileTest, KeepsAnotherVersion)
{
    put(u"x.md"_qs, "theirs\xff");
    EXPECT_EQ(written(u"ours"_qs), u"x (conflict).md"_qs);
    EXPECT_EQ(in(u"x.md"_qs), "ours");
    EXPECT_EQ(in(u"x (conflict).md"_qs), "theirs\xff");
    put(u"x.md"_qs, "theirs again");
    EXPECT_EQ(written(u"ours again"_qs), u"x (conflict 2).md"_qs);
    EXPECT_EQ(in(u"x (conflict).md"_qs), "theirs\xff");
    EXPECT_EQ(in(u"x (conflict 2).md"_qs), "theirs again");
}

TEST_F(TemplateFileTest, NothingIsWrittenThroughALinkToNowhere)
{
    QFile::link(folder.pathOf(u"nowhere"_qs), folder.pathOf(u"x (conflict).md"_qs));
    put(u"x.md"_qs, "theirs");
    EXPECT_EQ(written(u"ours"_qs), u"x (conflict 2).md"_qs);
    EXPECT_EQ(in(u"nowhere"_qs), "absent");
}

TEST_F(TemplateFileTest, SameTextIsNoConflict)
{
    put(u"x.md"_qs, "ours");
    calls.failAt(std::nullopt, 0);
    EXPECT_EQ(written(u"ours"_qs), QString());
    EXPECT_TRUE(calls.calls().isEmpty()) << "nothing to write";
    EXPECT_EQ(written(u"ours, longer"_qs), QString());
}

TEST_F(TemplateFileTest, IsMadeAnewWhereItHasGone)
{
    QFile::remove(folder.pathOf(u"x.md"_qs));
    EXPECT_EQ(written(u"ours"_qs), QString());
    EXPECT_EQ(in(u"x.md"_qs), "ours");
}

TEST_F(TemplateFileTest, UnreadableIsNotWrittenOver)
{
    QFile::remove(folder.pathOf(u"x.md"_qs));
    QDir(folder.path()).mkdir(u"x.md"_qs);
    const auto outcome = file.write(u"ours"_qs);
    ASSERT_FALSE(outcome.ok());
    EXPECT_EQ(outcome.error().code, EISDIR);
}

TEST_F(TemplateFileTest, FailureAtAnyCallLosesNeitherText)
{
    for (int call = 0;; ++call) {
        QDir(folder.path()).removeRecursively();
        QDir().mkpath(folder.path());
        put(u"x.md"_qs, "theirs");
        TemplateFile each(folder.pathOf(u"x.md"_qs), u"known"_qs, AtomicFile(calls));
        calls.failAt(call, ENOSPC);
        const bool succeeded = each.write(u"ours"_qs).ok();
        if (!calls.hasFailed())
            break;
        if (!succeeded) {
            EXPECT_EQ(in(u"x.md"_qs), "theirs") << call;
            calls.failAt(std::nullopt, 0);
            const auto again = each.write(u"ours"_qs);
            ASSERT_TRUE(again.ok());
            EXPECT_EQ(*again, folder.pathOf(u"x (conflict).md"_qs)) << "it hasn't been told yet";
        }
        EXPECT_EQ(in(u"x.md"_qs), "ours") << call;
        EXPECT_EQ(in(u"x (conflict).md"_qs), "theirs") << call;
        EXPECT_EQ(in(u"x (conflict 2).md"_qs), "absent") << call;
    }
}

} // namespace jotwell
