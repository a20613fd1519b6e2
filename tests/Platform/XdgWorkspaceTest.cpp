#include "Platform/linux/XdgWorkspace.h"

#include "Support/FileText.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

class XdgWorkspaceTest : public testing::Test {
protected:
    void SetUp() override { qputenv("PATH", m_folder.path().toLocal8Bit()); }
    void TearDown() override { qputenv("PATH", m_path); }

    void install(const QByteArray& script) const
    {
        QFile opener(m_folder.filePath(QStringLiteral("xdg-open")));
        ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
        opener.write("#!/bin/sh\n" + script);
        opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QTemporaryDir m_folder;
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(XdgWorkspaceTest, HandsTheUrlOverAsOneArgumentCharacterForCharacter)
{
    const QString seen = m_folder.filePath(QStringLiteral("seen"));
    install("printf '%s|' \"$#\" \"$@\" > \"" + seen.toLocal8Bit() +
            ".part\"; PATH=/bin:/usr/bin mv \"" + seen.toLocal8Bit() + ".part\" \"" +
            seen.toLocal8Bit() + "\"\n");
    const QString url =
        QStringLiteral("obsidian://open?path=/v/a%20b&c+d'e$(touch%20x);f,%C3%A4/../g.md");
    XdgWorkspace().openUrl(url);
    const QDeadlineTimer deadline(5s);
    while (!QFile::exists(seen) && !deadline.hasExpired())
        QThread::msleep(5);
    const auto arguments = readTextFile(seen);
    ASSERT_TRUE(arguments);
    EXPECT_EQ(*arguments, QStringLiteral("1|") + url + u'|');
}

TEST_F(XdgWorkspaceTest, ADesktopWithoutAnOpenerIsSilent)
{
    testing::internal::CaptureStderr();
    XdgWorkspace().openUrl(QStringLiteral("obsidian://open?path=/v/a.md"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace

} // namespace jotwell
