#include "Platform/linux/PosixFileCalls.h"
#include "Platform/linux/XdgLoginItem.h"
#include "Services/ScratchFolder.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

const QString generator =
    QStringLiteral("/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator");

/// An entry for a program of a difficult name, handed to those who start such entries.
class XdgLoginItemStart : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        m_folder.put(m_name, "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$0\" >\"$JOTWELL_SEEN.part\"\n"
                             "mv \"$JOTWELL_SEEN.part\" \"$JOTWELL_SEEN\"\n");
        QFile(m_program).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        PosixFileCalls calls;
        XdgLoginItem item({m_folder.pathOf(QStringLiteral("config/autostart")), {}, {}}, m_program,
                          calls);
        ASSERT_EQ(item.registerItem(), std::nullopt);
        ASSERT_EQ(item.status(), LoginItem::Status::enabled);
    }

    int run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("JOTWELL_SEEN"), m_seen);
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                           m_folder.pathOf(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_CONFIG_DIRS"), QStringLiteral("/nowhere"));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished());
        m_output = process.readAll();
        return process.exitCode();
    }

    void waitForStart() const
    {
        const QDeadlineTimer deadline(5s);
        while (!QFileInfo::exists(m_seen) && !deadline.hasExpired())
            QThread::msleep(5);
    }

    ScratchFolder m_folder;
    QString m_name = QStringLiteral("bin/") + QString::fromUtf8(GetParam());
    QString m_program = m_folder.pathOf(m_name);
    QString m_entry =
        m_folder.pathOf(QStringLiteral("config/autostart/com.jotwell.Jotwell.desktop"));
    QString m_seen = m_folder.pathOf(QStringLiteral("seen"));
    QByteArray m_output;
};

TEST_P(XdgLoginItemStart, IsAValidEntry)
{
    if (QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate")).isEmpty())
        GTEST_SKIP() << "no desktop-file-validate";
    EXPECT_EQ(run(QStringLiteral("desktop-file-validate"), {m_entry}), 0) << m_output.toStdString();
    EXPECT_EQ(m_output, QByteArray());
}

TEST_P(XdgLoginItemStart, StartsTheProgramWithoutArguments)
{
    if (QStandardPaths::findExecutable(QStringLiteral("gio")).isEmpty())
        GTEST_SKIP() << "no gio";
    EXPECT_EQ(run(QStringLiteral("gio"), {QStringLiteral("launch"), m_entry}), 0)
        << m_output.toStdString();
    waitForStart();
    EXPECT_EQ(QString::fromUtf8(m_folder.bytesOf(QStringLiteral("seen"))),
              QStringLiteral("0|") + m_program);
}

class XdgLoginItemSession : public XdgLoginItemStart {};

TEST_P(XdgLoginItemSession, IsTakenOverByTheSessionManager)
{
    if (!QFileInfo::exists(generator))
        GTEST_SKIP() << "no systemd";
    const QString units = m_folder.pathOf(QStringLiteral("units"));
    m_folder.makeFolder(QStringLiteral("units"));
    EXPECT_EQ(run(generator, {units, units, units}), 0) << m_output.toStdString();
    const QDir folder(units);
    const QStringList made = folder.entryList({QStringLiteral("*.service")}, QDir::Files);
    ASSERT_EQ(made.size(), 1) << m_output.toStdString();
    EXPECT_TRUE(m_folder.bytesOf(QStringLiteral("units/") + made.first()).contains("\nExecStart="));
}

std::string testName(const testing::TestParamInfo<const char*>& row)
{
    return "Name" + std::to_string(row.index);
}

INSTANTIATE_TEST_SUITE_P(Names, XdgLoginItemStart,
                         testing::Values("jotwell", "my jotwell", "a\"b", "a'b", "a$HOME b",
                                         "a`id`b", "a\\b", "a\\nb", "100%f", "%% f", "a=b c",
                                         "ä ノ", "(a)&<b>|c;*?#~"),
                         testName);

// Not backslashes, which this one resolves twice.
INSTANTIATE_TEST_SUITE_P(Names, XdgLoginItemSession,
                         testing::Values("jotwell", "my jotwell", "a\"b", "a'b", "a$HOME b",
                                         "a`id`b", "100%f", "%% f", "a=b c", "ä ノ",
                                         "(a)&<b>|c;*?#~"),
                         testName);

} // namespace

} // namespace jotwell
