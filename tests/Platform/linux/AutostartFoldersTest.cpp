#include "Platform/linux/AutostartFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

/// Environment variables for the length of a test.
class AutostartFoldersTest : public testing::Test {
protected:
    void TearDown() override
    {
        for (const auto& [name, value] : m_before)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }

    void set(const char* name, const QByteArray& value)
    {
        m_before.emplace_back(name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray());
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }

    /// Sets the variables of an image whose contents lie in `folder`.
    void enterImage(const QString& image, const QString& folder)
    {
        set("APPIMAGE", image.toUtf8());
        set("APPDIR", folder.toUtf8());
    }

    const QString m_program = QCoreApplication::applicationFilePath();
    const QString m_folder = QFileInfo(m_program).path();

private:
    std::vector<std::pair<const char*, QByteArray>> m_before;
};

TEST_F(AutostartFoldersTest, FoldersComeFromTheEnvironment)
{
    set("XDG_CONFIG_HOME", "/a/config");
    set("XDG_CONFIG_DIRS", "/b:/c");
    set("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    const auto folders = AutostartFolders::ofEnvironment();
    EXPECT_EQ(folders.user, QStringLiteral("/a/config/autostart"));
    EXPECT_EQ(folders.system,
              QStringList({QStringLiteral("/b/autostart"), QStringLiteral("/c/autostart")}));
    EXPECT_EQ(folders.desktops, QByteArrayList({"ubuntu", "GNOME"}));
}

TEST_F(AutostartFoldersTest, WithoutVariablesTheyAreTheUsualOnes)
{
    set("HOME", "/home/ada");
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_CURRENT_DESKTOP"})
        set(name, {});
    const auto folders = AutostartFolders::ofEnvironment();
    EXPECT_EQ(folders.user, QStringLiteral("/home/ada/.config/autostart"));
    EXPECT_EQ(folders.system, QStringList(QStringLiteral("/etc/xdg/autostart")));
    EXPECT_FALSE(folders.concerns(DesktopEntry("[Desktop Entry]\nOnlyShowIn=GNOME\n")));
    EXPECT_TRUE(folders.concerns(DesktopEntry("[Desktop Entry]\nNotShowIn=GNOME\n")));
}

TEST_F(AutostartFoldersTest, ProgramIsThatOfTheProcess)
{
    set("APPIMAGE", {});
    set("APPDIR", {});
    EXPECT_EQ(startedProgram(), m_program);
    EXPECT_TRUE(m_program.startsWith(u'/'));
}

TEST_F(AutostartFoldersTest, ProgramOfAnImageIsTheImage)
{
    const QString image = QStringLiteral("/home/ada/My Tools/Jotwell %1.AppImage");
    enterImage(image, m_folder);
    EXPECT_EQ(startedProgram(), image);
    enterImage(image, m_folder + QStringLiteral("/../") + QFileInfo(m_folder).fileName());
    EXPECT_EQ(startedProgram(), image) << "by whatever name of the folder";
}

TEST_F(AutostartFoldersTest, ImageThatHasStartedThisProgramIsAnother)
{
    const QTemporaryDir other;
    enterImage(QStringLiteral("/home/ada/Other.AppImage"), other.path());
    EXPECT_EQ(startedProgram(), m_program);
    const QString namedAlike = m_folder.chopped(1);
    ASSERT_TRUE(QDir().mkdir(namedAlike));
    enterImage(QStringLiteral("/home/ada/Other.AppImage"), namedAlike);
    EXPECT_EQ(startedProgram(), m_program);
    ASSERT_TRUE(QDir().rmdir(namedAlike));
    enterImage(QStringLiteral("/home/ada/Other.AppImage"), QStringLiteral("/no/such"));
    EXPECT_EQ(startedProgram(), m_program);
    enterImage(QStringLiteral("Other.AppImage"), m_folder);
    EXPECT_EQ(startedProgram(), m_program);
}

} // namespace

} // namespace jotwell
