#include "Platform/linux/KeyboardSettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

/// A desktop whose settings write down which of their panels they were started for.
class KeyboardSettingsTest : public testing::Test {
protected:
    KeyboardSettingsTest()
    {
        QFile program(m_folder.filePath(QStringLiteral("gnome-control-center")));
        EXPECT_TRUE(program.open(QFile::WriteOnly));
        program.write("#!/bin/sh\nprintf %s \"$*\" > \"$0.new\" && mv \"$0.new\" \"$0.panel\"\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8() + ':' + m_path);
    }
    ~KeyboardSettingsTest() override
    {
        qputenv("PATH", m_path);
        qunsetenv("XDG_CURRENT_DESKTOP");
    }

    /// What the settings show on `desktop`; nothing if they don't come.
    [[nodiscard]] QByteArray panelOn(const char* desktop, int patience)
    {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        testing::internal::CaptureStderr();
        openKeyboardSettings();
        m_advice = testing::internal::GetCapturedStderr();
        QFile panel(m_folder.filePath(QStringLiteral("gnome-control-center.panel")));
        if (!QTest::qWaitFor([&] { return panel.exists(); }, patience))
            return {};
        EXPECT_TRUE(panel.open(QFile::ReadOnly));
        return panel.readAll();
    }

    QTemporaryDir m_folder;
    const QByteArray m_path = qgetenv("PATH");
    std::string m_advice;
};

constexpr int longEnough = 3000;
constexpr int aMoment = 300;

} // namespace

TEST_F(KeyboardSettingsTest, AreThoseOfGnomeOnTheirKeyboardPanel)
{
    EXPECT_EQ(panelOn("GNOME", longEnough), "keyboard");
}

TEST_F(KeyboardSettingsTest, AreFoundUnderADistributionsName)
{
    EXPECT_EQ(panelOn("ubuntu:GNOME", longEnough), "keyboard");
}

TEST_F(KeyboardSettingsTest, AreNotOpenedOnAnotherDesktop)
{
    EXPECT_EQ(panelOn("sway", aMoment), "");
    EXPECT_NE(m_advice.find("bind a key to the command \"jotwell\""), std::string::npos);
}
