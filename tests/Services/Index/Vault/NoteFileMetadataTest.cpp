#include "Services/Index/Vault/NoteFile.h"

#include "Fakes/FakeClock.h"
#include "Fakes/FakeFileSystems.h"
#include "QtPrinters.h"
#include "Services/ContentProcessor.h"
#include "Services/Index/Vault/FileReadings.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::ElementsAre;

const QDateTime noon = QDateTime::fromString(u"2024-03-05T12:00:00Z"_qs, Qt::ISODate);

class ExtractMetadata : public testing::Test {
protected:
    [[nodiscard]] QByteArray pathOf(const QString& name) const
    {
        return vault.pathOf(name).toUtf8();
    }
    [[nodiscard]] FileMetadataPtr extracted(const QString& name)
    {
        return extractMetadata(pathOf(name), clock, readings);
    }

    ScratchFolder vault;
    FakeClock clock;
    FakeFileSystems fileSystems;
    FileReadings readings{clock, fileSystems};
    LogCapture log;
};

TEST_F(ExtractMetadata, TellsAllOfANote)
{
    const QByteArray text = "---\ntags: [Plan]\n---\n# Caf\xc3\xa9 #My_tag\n";
    vault.put(u"a/b.c.md"_qs, text);
    vault.setChanged(u"a/b.c.md"_qs, noon);
    const auto record = extracted(u"a/b.c.md"_qs);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->path, pathOf(u"a/b.c.md"_qs));
    EXPECT_EQ(record->title(), QByteArrayView("b.c"));
    EXPECT_EQ(record->modificationDate.time_since_epoch(),
              std::chrono::milliseconds(noon.toMSecsSinceEpoch()));
    EXPECT_EQ(record->fileSize, text.size());
    EXPECT_EQ(record->contentHash, calculateHash(text));
    EXPECT_EQ(record->frontmatterTags, TagSet{u"plan"_qs});
    EXPECT_EQ(record->indexedDate, clock.now());
    EXPECT_EQ(record->fullContent, text);
    EXPECT_EQ(record->cleanedContent, ContentProcessor::cleanedContent(text).text);
    EXPECT_EQ(record->wordCount, ContentProcessor::cleanedContent(text).wordCount);
    EXPECT_TRUE(log.errors().isEmpty());
}

TEST_F(ExtractMetadata, ContentTagsAreThoseOfTheRawAndOfTheCleanedText)
{
    vault.put(u"x.md"_qs, "Some #my_tag and #Tag and #tag\n");
    EXPECT_THAT(extracted(u"x.md"_qs)->contentTags,
                ElementsAre(u"my_tag"_qs, u"mytag"_qs, u"tag"_qs));
}

TEST_F(ExtractMetadata, AnEmptyNoteHasARecord)
{
    vault.put(u"x.md"_qs);
    const auto record = extracted(u"x.md"_qs);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->fileSize, 0);
    EXPECT_TRUE(record->fullContent.isEmpty());
    EXPECT_TRUE(record->cleanedContent.isEmpty());
    EXPECT_EQ(record->wordCount, 0);
}

// As the attributes are those of the entry, and the text that of what it leads to.
TEST_F(ExtractMetadata, ALinkHasItsOwnDateAndSizeAndTheTextOfItsTarget)
{
    vault.put(u"real"_qs, "some text");
    vault.makeLink(u"x.md"_qs, u"real"_qs);
    vault.setChanged(u"x.md"_qs, noon);
    const auto record = extracted(u"x.md"_qs);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->modificationDate.time_since_epoch(),
              std::chrono::milliseconds(noon.toMSecsSinceEpoch()));
    EXPECT_EQ(record->fileSize, 4);
    EXPECT_EQ(record->fullContent, QByteArray("some text"));
}

TEST_F(ExtractMetadata, SharesThePathThatItIsGiven)
{
    vault.put(u"x.md"_qs);
    const QByteArray path = pathOf(u"x.md"_qs);
    EXPECT_EQ(extractMetadata(path, clock, readings)->path.constData(), path.constData());
}

TEST_F(ExtractMetadata, TheReadingIsRemembered)
{
    vault.put(u"x.md"_qs, "text");
    const QByteArray path = pathOf(u"x.md"_qs);
    clock.set(std::chrono::system_clock::now() + 2 * FileReadings::settlingTime);
    ASSERT_TRUE(extractMetadata(path, clock, readings));
    EXPECT_EQ(readings.known(path, *fileStatus(path)), calculateHash("text"));
}

TEST_F(ExtractMetadata, FailuresAreLoggedWithTheirReason)
{
    vault.put(u"a/latin.md"_qs, "caf\xe9 ");
    vault.makeFolder(u"folder.md"_qs);
    vault.makeFifo(u"fifo.md"_qs);
    QStringList expected;
    for (const auto& [name, reason] :
         {std::pair(u"a/latin.md"_qs, u"The file isn't valid UTF-8 text"_qs),
          std::pair(u"folder.md"_qs, u"Is a directory"_qs),
          std::pair(u"fifo.md"_qs, u"Not a regular file"_qs),
          std::pair(u"gone.md"_qs, u"No such file or directory"_qs)}) {
        EXPECT_EQ(extracted(name), nullptr) << name.toStdString();
        expected.append(u"Failed to extract metadata from "_qs + vault.pathOf(name) + u": "_qs +
                        reason);
    }
    EXPECT_EQ(log.errors(), expected);
    EXPECT_TRUE(log.infos().isEmpty());
}

TEST_F(ExtractMetadata, AFailureIsLoggedByTheIndex)
{
    QString category;
    setLogSink([&](const LogRecord& record) { category = record.category; });
    EXPECT_EQ(extracted(u"gone.md"_qs), nullptr);
    setLogSink({});
    EXPECT_EQ(category, u"TagIndex"_qs);
}

} // namespace

} // namespace jotwell
