#include "Services/Index/Vault/NoteExtraction.h"

#include "Fakes/TaskRunner.h"
#include "QtPrinters.h"
#include "Services/Index/Records.h"

#include <QThreadPool>

#include <gtest/gtest.h>

#include <atomic>

namespace jotwell {

namespace {

std::vector<QByteArray> pathsUpTo(int count)
{
    std::vector<QByteArray> paths;
    for (int each = 0; each < count; ++each)
        paths.push_back("/v/" + QByteArray::number(each) + ".md");
    return paths;
}

class NoteExtractionTest : public testing::Test {
protected:
    static std::vector<QByteArray> pathsOf(const NoteExtraction::Records& records)
    {
        std::vector<QByteArray> paths;
        for (const FileMetadataPtr& record : records)
            paths.push_back(record->path);
        return paths;
    }

    QThreadPool m_pool;
};

TEST_F(NoteExtractionTest, HandsOutTensInTheOrderOfTheList)
{
    const auto paths = pathsUpTo(25);
    NoteExtraction extraction(
        paths, [](const QByteArray& path) { return recordOf(path); }, m_pool);
    EXPECT_EQ(pathsOf(finished(extraction.nextBatch())),
              std::vector(paths.begin(), paths.begin() + 10));
    EXPECT_EQ(pathsOf(finished(extraction.nextBatch())),
              std::vector(paths.begin() + 10, paths.begin() + 20));
    EXPECT_EQ(pathsOf(finished(extraction.nextBatch())),
              std::vector(paths.begin() + 20, paths.end()));
}

TEST_F(NoteExtractionTest, LeavesOutWhatGaveNoRecord)
{
    NoteExtraction extraction(
        pathsUpTo(3),
        [](const QByteArray& path) { return path == "/v/1.md" ? nullptr : recordOf(path); },
        m_pool);
    EXPECT_EQ(pathsOf(finished(extraction.nextBatch())),
              (std::vector<QByteArray>{"/v/0.md", "/v/2.md"}));
}

TEST_F(NoteExtractionTest, ReadsAllOfALongListOnce)
{
    std::atomic<int> count = 0;
    NoteExtraction extraction(
        pathsUpTo(3000),
        [&count](const QByteArray& path) {
            ++count;
            return recordOf(path);
        },
        m_pool);
    std::size_t total = 0;
    for (int batch = 0; batch < 300; ++batch)
        total += finished(extraction.nextBatch()).size();
    EXPECT_EQ(total, 3000U);
    EXPECT_EQ(count, 3000);
}

TEST_F(NoteExtractionTest, StopsReadingWhenNobodyTakesTheRest)
{
    m_pool.setMaxThreadCount(1);
    std::atomic<int> count = 0;
    std::atomic<bool> mayGoOn = false;
    {
        const NoteExtraction extraction(
            pathsUpTo(500),
            [&](const QByteArray& path) {
                ++count;
                while (!mayGoOn)
                    QThread::yieldCurrentThread();
                return recordOf(path);
            },
            m_pool);
        while (count == 0)
            QThread::yieldCurrentThread();
    }
    mayGoOn = true;
    m_pool.waitForDone();
    EXPECT_EQ(count, 1);
}

} // namespace

} // namespace jotwell
