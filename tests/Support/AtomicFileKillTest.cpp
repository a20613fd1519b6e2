#include "Fakes/FailingFileCalls.h"
#include "Support/AtomicFile.h"
#include "Support/FileText.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace jotwell {

namespace {

constexpr qsizetype noteSize = 200'000;

QStringList namesIn(const QTemporaryDir& folder)
{
    return QDir(folder.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

bool isWhole(const QString& path)
{
    const auto bytes = readFile(path);
    return bytes && bytes->size() == noteSize && bytes->count(bytes->front()) == noteSize;
}

TEST(AtomicFileKill, TwoHundredKillsLeaveEveryNoteWholeOrAbsent)
{
    auto& random = *QRandomGenerator::global();
    int written = 0;
    for (int kill = 0; kill < 200; ++kill) {
        const QTemporaryDir folder;
        QProcess writer;
        writer.start(QStringLiteral(SAVE_LOOP), {folder.path(), QString::number(noteSize)});
        ASSERT_TRUE(writer.waitForStarted());
        std::this_thread::sleep_for(std::chrono::microseconds(random.bounded(5'000, 40'000)));
        ASSERT_EQ(writer.state(), QProcess::Running);
        writer.kill();
        writer.waitForFinished();

        FailingFileCalls calls; // the first write clears what a kill within a replacement left
        ASSERT_TRUE(AtomicFile(calls).write(folder.filePath(QStringLiteral("next.md")),
                                            QByteArray(noteSize, 'z')));
        for (const QString& name : namesIn(folder)) {
            ASSERT_TRUE(name.endsWith(u".md")) << kill << qPrintable(name);
            ASSERT_TRUE(isWhole(folder.filePath(name))) << kill << qPrintable(name);
            ++written;
        }
    }
    EXPECT_GT(written, 400) << "the kills came before anything was written";
}

} // namespace

} // namespace jotwell
