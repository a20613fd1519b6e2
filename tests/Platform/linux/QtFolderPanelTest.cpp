#include "Platform/qt/QtFolderPanel.h"

#include "Platform/qt/BeginningFolder.h"
#include "Services/ScratchFolder.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTest>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

class QtFolderPanelTest : public testing::Test {
protected:
    void choose(const QString& folder = {})
    {
        m_panel.choose({QStringLiteral("Select"), {}, folder}, nullptr, m_context.get(),
                       [this](const QString& path) { m_chosen.append(path); });
    }

    [[nodiscard]] static QList<QFileDialog*> dialogs()
    {
        QList<QFileDialog*> open;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QFileDialog*>(widget);
            if (dialog && dialog->isVisible())
                open.append(dialog);
        }
        return open;
    }

    ScratchFolder m_folder;
    std::unique_ptr<QObject> m_context = std::make_unique<QObject>();
    QtFolderPanel m_panel;
    QStringList m_chosen;
};

TEST_F(QtFolderPanelTest, BeginsAtHome)
{
    choose();
    ASSERT_EQ(dialogs().size(), 1);
    EXPECT_EQ(dialogs().first()->directory().path(), QDir::homePath());
    EXPECT_TRUE(dialogs().first()->testOption(QFileDialog::ShowDirsOnly));
}

TEST_F(QtFolderPanelTest, BeginsAtTheFolderThatWasChosen)
{
    choose(m_folder.path());
    ASSERT_EQ(dialogs().size(), 1);
    EXPECT_EQ(dialogs().first()->directory().path(), m_folder.path());
}

TEST_F(QtFolderPanelTest, SecondDialogIsNotOpened)
{
    choose();
    choose();
    ASSERT_EQ(dialogs().size(), 1);
    dialogs().first()->close();
    EXPECT_EQ(dialogs().size(), 0);
    choose();
    EXPECT_EQ(dialogs().size(), 1);
}

TEST_F(QtFolderPanelTest, DialogGoesWithWhoeverAsked)
{
    choose();
    m_context.reset();
    EXPECT_EQ(dialogs().size(), 0);
    EXPECT_EQ(m_chosen, QStringList());
}

TEST(BeginningFolderTest, IsTheNearestThatIsThere)
{
    const ScratchFolder folder;
    const QString path = folder.path();
    const QString file = folder.pathOf(QStringLiteral("file"));
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    EXPECT_EQ(beginningFolder(path), path);
    EXPECT_EQ(beginningFolder(path + QStringLiteral("/gone/long ago/")), path);
    EXPECT_EQ(beginningFolder(file), path);
    EXPECT_EQ(beginningFolder(file + QStringLiteral("/below")), path);
    EXPECT_EQ(beginningFolder(QStringLiteral("/gone/long ago")), QStringLiteral("/"));
    EXPECT_EQ(beginningFolder(QStringLiteral("relative")), QDir::homePath());
    EXPECT_EQ(beginningFolder(QStringLiteral("/gone/..") + path), path);
    EXPECT_EQ(beginningFolder({}), QDir::homePath());
    EXPECT_EQ(beginningFolder(QStringLiteral(":/qt-project.org")), QDir::homePath())
        << "is in the program";
}

} // namespace

} // namespace jotwell
