#include "Platform/linux/XdgLoginItem.h"

#include "Fakes/FailingFileCalls.h"
#include "Services/ScratchFolder.h"
#include "Services/Unprivileged.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

#include <sys/stat.h>

namespace jotwell {

namespace {

using Status = LoginItem::Status;
using testing::HasSubstr;

const QString entryName = QStringLiteral("config/autostart/com.jotwell.Jotwell.desktop");
const QString systemName = QStringLiteral("system/autostart/com.jotwell.Jotwell.desktop");
const QString lesserName = QStringLiteral("lesser/autostart/com.jotwell.Jotwell.desktop");

constexpr char plainEntry[] = "[Desktop Entry]\nType=Application\nName=J\nExec=/bin/true\n";

class XdgLoginItemTest : public testing::Test {
protected:
    XdgLoginItemTest()
    {
        m_folder.put(u"bin/jotwell"_qs, "#!/bin/sh\n");
        QFile(m_program).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        m_folder.put(u"bin/text"_qs, "no program");
    }

    [[nodiscard]] XdgLoginItem item(const QByteArrayList& desktops = {})
    {
        return {{m_folder.pathOf(u"config/autostart"_qs),
                 {m_folder.pathOf(u"system/autostart"_qs), m_folder.pathOf(u"lesser/autostart"_qs)},
                 desktops},
                m_program,
                m_calls};
    }

    [[nodiscard]] bool isEnabled(const QByteArrayList& desktops = {})
    {
        const Status status = item(desktops).status();
        EXPECT_TRUE(status == Status::enabled || status == Status::notRegistered);
        return status == Status::enabled;
    }

    [[nodiscard]] DesktopEntry entry() const { return DesktopEntry(m_folder.bytesOf(entryName)); }

    /// What lies in the user's folder, hidden files too.
    [[nodiscard]] QStringList entries() const
    {
        return QDir(m_folder.pathOf(u"config/autostart"_qs))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    [[nodiscard]] static mode_t modeOf(const QString& path)
    {
        struct stat status = {};
        EXPECT_EQ(::stat(qPrintable(path), &status), 0);
        return status.st_mode & 0777;
    }

    ScratchFolder m_folder;
    QString m_program = m_folder.pathOf(u"bin/jotwell"_qs);
    FailingFileCalls m_calls;
};

struct EntryRow {
    const char* name;
    QByteArray lines; ///< behind the plain entry; "@" is the folder of programs
    bool isStarted;
};

class XdgLoginItemEntry : public XdgLoginItemTest, public testing::WithParamInterface<EntryRow> {
protected:
    [[nodiscard]] QByteArray text() const
    {
        QByteArray lines = GetParam().lines;
        lines.replace("@", m_folder.pathOf(u"bin"_qs).toUtf8());
        return plainEntry + lines;
    }
};

const EntryRow entryRows[] = {
    {"Plain", "", true},
    {"Hidden", "Hidden=true\n", false},
    {"NotHidden", "Hidden=false\n", true},
    {"SwitchedOff", "X-GNOME-Autostart-enabled=false\n", false},
    {"SwitchedOn", "X-GNOME-Autostart-enabled=true\n", true},
    {"ProgramThere", "TryExec=@/jotwell\n", true},
    {"ProgramMissing", "TryExec=@/gone\n", false},
    {"ProgramNotExecutable", "TryExec=@/text\n", false},
    {"ProgramIsAFolder", "TryExec=@\n", false},
    {"ProgramIsNothing", "TryExec=\n", false},
    {"ProgramOnThePath", "TryExec=sh\n", true},
    {"ProgramNotOnThePath", "TryExec=no-such-program\n", false},
    {"OnlyHere", "OnlyShowIn=KDE;GNOME;\n", true},
    {"OnlyElsewhere", "OnlyShowIn=KDE;\n", false},
    {"OnlyNowhere", "OnlyShowIn=\n", false},
    {"NotHere", "NotShowIn=KDE;GNOME\n", false},
    {"NotElsewhere", "NotShowIn=KDE;\n", true},
    {"MoreSpecialNameFirst", "NotShowIn=GNOME;\nOnlyShowIn=ubuntu;\n", true},
    {"MoreSpecialNameNot", "NotShowIn=ubuntu;\nOnlyShowIn=GNOME;\n", false},
    {"PartOfAName", "OnlyShowIn=GNOME-Classic;\n", false},
    {"NonsenseLine", "nonsense\n", false},
    {"NoCommand", "Exec=\n", false},
    {"OtherType", "Type=Link\n", false},
    {"OtherGroup", "[Desktop Action a]\nHidden=true\n", true},
    {"WindowsLineEnds", "Hidden=true\r\n", false},
};

TEST_P(XdgLoginItemEntry, IsReadAsADesktopReadsIt)
{
    m_folder.put(entryName, text());
    EXPECT_EQ(isEnabled({"ubuntu", "GNOME"}), GetParam().isStarted);
}

TEST_P(XdgLoginItemEntry, OfTheSystemIsReadAlike)
{
    m_folder.put(systemName, text());
    EXPECT_EQ(isEnabled({"ubuntu", "GNOME"}), GetParam().isStarted);
}

TEST_P(XdgLoginItemEntry, CanBeRegisteredAndUnregistered)
{
    m_folder.put(entryName, text());
    XdgLoginItem it = item({"ubuntu", "GNOME"});
    EXPECT_EQ(it.registerItem(), std::nullopt);
    EXPECT_EQ(it.status(), Status::enabled) << m_folder.bytesOf(entryName).toStdString();
    EXPECT_EQ(it.unregisterItem(), std::nullopt);
    EXPECT_EQ(it.status(), Status::notRegistered);
}

INSTANTIATE_TEST_SUITE_P(Rows, XdgLoginItemEntry, testing::ValuesIn(entryRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(XdgLoginItemTest, IsNotRegisteredWithoutAnyEntry)
{
    EXPECT_FALSE(isEnabled());
}

TEST_F(XdgLoginItemTest, IsNotRegisteredByWhatIsNoEntry)
{
    for (const char* bytes :
         {"", "\n", "Exec=/bin/true\n", "[Other]\nType=Application\n",
          "[Desktop Entry]\nType=Application\n", "[Desktop Entry]\nExec=/bin/true\n"}) {
        m_folder.put(entryName, bytes);
        EXPECT_FALSE(isEnabled()) << bytes;
    }
    m_folder.remove(entryName);
    m_folder.makeFifo(entryName);
    EXPECT_FALSE(isEnabled());
}

TEST_F(XdgLoginItemTest, UsersEntryHidesThatOfTheSystem)
{
    m_folder.put(systemName, plainEntry);
    EXPECT_TRUE(isEnabled());
    for (const QByteArray& own : {plainEntry + QByteArray("Hidden=true\n"), QByteArray("broken")}) {
        m_folder.put(entryName, own);
        EXPECT_FALSE(isEnabled());
    }
}

TEST_F(XdgLoginItemTest, MoreImportantFolderOfTheSystemHidesTheOther)
{
    m_folder.put(lesserName, plainEntry);
    EXPECT_TRUE(isEnabled());
    m_folder.put(systemName, plainEntry + QByteArray("Hidden=true\n"));
    EXPECT_FALSE(isEnabled());
}

TEST_F(XdgLoginItemTest, FolderOfThatNameHidesNothing)
{
    m_folder.put(systemName, plainEntry);
    m_folder.makeFolder(entryName);
    EXPECT_TRUE(isEnabled());
    EXPECT_THAT(item().unregisterItem().value_or(QString()).toStdString(),
                HasSubstr("Is a directory"));
}

TEST_F(XdgLoginItemTest, UnreadableEntryStaysAsItIs)
{
    m_folder.put(entryName, plainEntry);
    m_folder.put(systemName, plainEntry);
    const Unprivileged user(m_folder.pathOf(u"config/autostart"_qs));
    ASSERT_EQ(::geteuid() == 0, false);
    const QString path = m_folder.pathOf(entryName);
    {
        // Its owner, who is somebody else, has closed it.
        ASSERT_EQ(::seteuid(::getuid()), 0);
        ASSERT_EQ(::chmod(qPrintable(path), 0), 0);
        ASSERT_EQ(::chmod(qPrintable(m_folder.path()), 0755), 0);
        ASSERT_EQ(::seteuid(::getuid() == 0 ? 65534 : ::getuid()), 0);
    }
    EXPECT_FALSE(isEnabled());
    const QString words = path + u": Permission denied"_qs;
    EXPECT_EQ(item().registerItem(), words);
    EXPECT_EQ(item().unregisterItem(), words);
}

TEST_F(XdgLoginItemTest, RegisteringWritesTheWholeEntry)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(isEnabled());
    const QByteArray program = m_program.toUtf8();
    EXPECT_EQ(m_folder.bytesOf(entryName), "[Desktop Entry]\n"
                                           "Type=Application\n"
                                           "Name=Jotwell\n"
                                           "Comment=Capture a note for Obsidian\n"
                                           "Exec=" +
                                               program +
                                               "\n"
                                               "TryExec=" +
                                               program +
                                               "\n"
                                               "Icon=com.jotwell.Jotwell\n"
                                               "StartupNotify=false\n"
                                               "X-GNOME-Autostart-enabled=true\n");
}

TEST_F(XdgLoginItemTest, FoldersAreMadeForTheUserAlone)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(modeOf(m_folder.pathOf(u"config"_qs)), 0700U);
    EXPECT_EQ(modeOf(m_folder.pathOf(u"config/autostart"_qs)), 0700U);
}

TEST_F(XdgLoginItemTest, RegisteringTwiceChangesNothing)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);
    const QByteArray first = m_folder.bytesOf(entryName);
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(m_folder.bytesOf(entryName), first);
}

TEST_F(XdgLoginItemTest, RegisteringKeepsWhatTheUserHasAdded)
{
    const QByteArray program = m_program.toUtf8();
    m_folder.put(entryName,
                 "# mine\n[Desktop Entry]\nType=Application\nName=Notes\nName[de]=Zettel\n"
                 "Exec=env QT_SCALE_FACTOR=2 " +
                     program +
                     "\nIcon=other\nHidden=true\n"
                     "OnlyShowIn=GNOME;\nX-GNOME-Autostart-Delay=5\nnonsense\n\n"
                     "[Desktop Action a]\nName=A\n");
    EXPECT_EQ(item({"GNOME"}).registerItem(), std::nullopt);
    EXPECT_EQ(
        m_folder.bytesOf(entryName),
        "# mine\n[Desktop Entry]\nType=Application\nName=Notes\nName[de]=Zettel\n"
        "Exec=env QT_SCALE_FACTOR=2 " +
            program +
            "\nIcon=other\n"
            "OnlyShowIn=GNOME;\nX-GNOME-Autostart-Delay=5\nComment=Capture a note for Obsidian\n"
            "TryExec=" +
            program +
            "\nStartupNotify=false\nX-GNOME-Autostart-enabled=true\n"
            "# nonsense\n\n[Desktop Action a]\nName=A\n");
}

TEST_F(XdgLoginItemTest, RegisteringReplacesAnotherProgram)
{
    for (const QByteArray& other :
         {QByteArray("/old/jotwell"), m_program.toUtf8() + ".old", "/old" + m_program.toUtf8()}) {
        m_folder.put(entryName, "[Desktop Entry]\nExec=" + other + "\nTryExec=" + other + '\n');
        EXPECT_EQ(item().registerItem(), std::nullopt);
        EXPECT_EQ(entry().value("Exec"), m_program.toUtf8());
        EXPECT_EQ(entry().value("TryExec"), m_program.toUtf8());
    }
}

TEST_F(XdgLoginItemTest, RegisteringLiftsTheLimitToOtherDesktops)
{
    m_folder.put(entryName, plainEntry + QByteArray("OnlyShowIn=KDE;\n"));
    EXPECT_EQ(item({"GNOME"}).registerItem(), std::nullopt);
    EXPECT_EQ(entry().value("OnlyShowIn"), std::nullopt);
}

TEST_F(XdgLoginItemTest, ProgramThatIsGoneIsNotRegistered)
{
    m_folder.remove(u"bin/jotwell"_qs);
    EXPECT_EQ(item().registerItem(), m_program + u": there is no such program"_qs);
    EXPECT_FALSE(QFileInfo::exists(m_folder.pathOf(u"config"_qs)));
}

TEST_F(XdgLoginItemTest, UnregisteringRemovesTheEntry)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(m_folder.pathOf(entryName)));
    EXPECT_FALSE(isEnabled());
    EXPECT_EQ(item().unregisterItem(), std::nullopt) << "it is gone already";
}

TEST_F(XdgLoginItemTest, UnregisteringHidesAnEntryThatTheUserHasAddedTo)
{
    m_folder.put(entryName, plainEntry + QByteArray("X-GNOME-Autostart-Delay=5\n"));
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_EQ(entry().value("X-GNOME-Autostart-Delay"), "5");
    EXPECT_EQ(entry().value("Hidden"), "true");
    EXPECT_FALSE(isEnabled());
}

TEST_F(XdgLoginItemTest, UnregisteringHidesThatOfTheSystem)
{
    m_folder.put(systemName, plainEntry);
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_EQ(m_folder.bytesOf(entryName),
              "[Desktop Entry]\nType=Application\nName=Jotwell\nHidden=true\n");
    EXPECT_FALSE(isEnabled());
    EXPECT_EQ(m_folder.bytesOf(systemName), plainEntry);

    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(isEnabled());
    EXPECT_EQ(entry().value("Hidden"), std::nullopt);
}

TEST_F(XdgLoginItemTest, LinkIsReplacedAndItsTargetUntouched)
{
    const QByteArray disabled = plainEntry + QByteArray("Hidden=true\n");
    m_folder.put(u"menu.desktop"_qs, disabled);
    m_folder.makeFolder(u"config/autostart"_qs);
    m_folder.makeLink(entryName, m_folder.pathOf(u"menu.desktop"_qs));
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(isEnabled());
    EXPECT_FALSE(QFileInfo(m_folder.pathOf(entryName)).isSymLink());
    EXPECT_EQ(m_folder.bytesOf(u"menu.desktop"_qs), disabled);
    EXPECT_FALSE(QFileInfo::exists(m_folder.pathOf(entryName) + u".new"_qs));
}

TEST_F(XdgLoginItemTest, UnregisteringRemovesTheLinkAlone)
{
    m_folder.put(u"menu.desktop"_qs, plainEntry);
    m_folder.makeFolder(u"config/autostart"_qs);
    m_folder.makeLink(entryName, m_folder.pathOf(u"menu.desktop"_qs));
    EXPECT_TRUE(isEnabled());
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(isEnabled());
    EXPECT_EQ(m_folder.bytesOf(u"menu.desktop"_qs), plainEntry);
}

TEST_F(XdgLoginItemTest, FileInThePlaceOfAFolderIsTold)
{
    m_folder.put(u"config/autostart"_qs, "mine");
    const QString words = m_folder.pathOf(u"config/autostart"_qs) + u": Not a directory"_qs;
    EXPECT_EQ(item().registerItem(), words);
    EXPECT_FALSE(isEnabled());
    EXPECT_EQ(m_folder.bytesOf(u"config/autostart"_qs), "mine");
}

TEST_F(XdgLoginItemTest, FolderThatCannotBeMadeIsTold)
{
    m_folder.put(u"config"_qs, "mine");
    EXPECT_EQ(item().registerItem(), m_folder.pathOf(u"config"_qs) + u": Not a directory"_qs);
    EXPECT_EQ(m_folder.bytesOf(u"config"_qs), "mine");
}

TEST_F(XdgLoginItemTest, ReadOnlyHomeIsTold)
{
    m_folder.makeFolder(u"home"_qs);
    ASSERT_EQ(::chmod(qPrintable(m_folder.path()), 0755), 0);
    const QString folder = m_folder.pathOf(u"home/config/autostart"_qs);
    ASSERT_EQ(::chmod(qPrintable(m_folder.pathOf(u"bin/jotwell"_qs)), 0755), 0);
    const Unprivileged user(m_folder.pathOf(u"home"_qs));
    ASSERT_EQ(::chmod(qPrintable(m_folder.pathOf(u"home"_qs)), 0555), 0);
    XdgLoginItem it({folder, {}, {}}, m_program, m_calls);
    EXPECT_EQ(it.registerItem(), m_folder.pathOf(u"home/config"_qs) + u": Permission denied"_qs);
}

TEST_F(XdgLoginItemTest, FailedWriteLeavesEverythingAsItWas)
{
    m_folder.put(u"menu.desktop"_qs, plainEntry);
    m_folder.makeFolder(u"config/autostart"_qs);
    const auto prepare = [&](int kind) {
        m_calls.failAt({}, 0);
        for (const QString& left : entries())
            QFile::remove(m_folder.pathOf(u"config/autostart/"_qs + left));
        if (kind == 1)
            m_folder.put(entryName, plainEntry);
        if (kind == 2)
            m_folder.makeLink(entryName, m_folder.pathOf(u"menu.desktop"_qs));
    };
    for (const int kind : {0, 1, 2}) { // no entry, a file, a link
        int failed = 0;
        for (int call = 0; call < 30; ++call) {
            prepare(kind);
            const QStringList before = entries();
            m_calls.failAt(call, EIO);
            const auto reason = item().registerItem();
            if (!reason)
                continue; // it got by without that call
            ++failed;
            EXPECT_TRUE(reason->endsWith(u": Input/output error")) << qPrintable(*reason);
            EXPECT_EQ(entries(), before) << kind << call;
            if (kind > 0) {
                EXPECT_EQ(m_folder.bytesOf(entryName), plainEntry);
            }
            EXPECT_EQ(m_folder.bytesOf(u"menu.desktop"_qs), plainEntry);
        }
        EXPECT_GT(failed, 3) << kind;
    }
}

TEST_F(XdgLoginItemTest, FailedRemovalIsTold)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);
    m_calls.failAt(0, EROFS);
    EXPECT_EQ(item().unregisterItem(), m_folder.pathOf(entryName) + u": Read-only file system"_qs);
    EXPECT_TRUE(isEnabled());
}

} // namespace

} // namespace jotwell
