#include "Views/FloatingWindow.h"

#include "Fakes/FakeWindowSystem.h"
#include "Views/ViewBench.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

namespace {

class FloatingWindowTest : public testing::Test {
protected:
    void show()
    {
        window.makeKeyAndOrderFront();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QQuickItem* item(const char* name)
    {
        return window.rootObject()->findChild<QQuickItem*>(QString::fromLatin1(name));
    }

    ViewBench bench;
    FakeWindowSystem windowSystem;
    FloatingWindow window{bench.floatingWindowView, windowSystem};
    QSignalSpy escapes{&window, &FloatingWindow::escapePressed};
};

} // namespace

TEST_F(FloatingWindowTest, IsABareHiddenWindowInTheMiddle)
{
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.size(), QSize(860, 600));
    EXPECT_EQ(window.title(), QStringLiteral("Jotwell"));
    EXPECT_TRUE(window.flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
    const QRect frame = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.x(), frame.x() + (frame.width() - 860) / 2);
    EXPECT_EQ(window.y(), frame.y() + (frame.height() - 600) / 2);
}

TEST_F(FloatingWindowTest, StaysWhereItIsWithoutAScreen)
{
    window.setPosition(7, 8);
    windowSystem.hasScreen = false;
    window.centre();
    EXPECT_EQ(window.position(), QPoint(7, 8));
}

TEST_F(FloatingWindowTest, BelongsInNoListAtEachShowing)
{
    show();
    window.hide();
    show();
    EXPECT_EQ(windowSystem.accessories, 2);
}

TEST_F(FloatingWindowTest, KeysReachTheEditorAtOnce)
{
    show();
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_EQ(bench.text(), QStringLiteral("a"));
    EXPECT_FALSE(bench.floatingWindowView.isFocused());
    bench.advance(100);
    EXPECT_TRUE(bench.floatingWindowView.isFocused());
}

TEST_F(FloatingWindowTest, EscapeIsReportedAndGoesNoFurther)
{
    show();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(escapes.size(), 1);
}

TEST_F(FloatingWindowTest, EscapeBelongsToTheInputMethodWhileItComposes)
{
    show();
    bench.compose(QStringLiteral("ni"));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(escapes.size(), 0);
    bench.compose({}, QStringLiteral("\u4f60"));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(escapes.size(), 1);
}

TEST_F(FloatingWindowTest, ClosingOnlyHides)
{
    show();
    bench.setText(QStringLiteral("kept"));
    window.close();
    EXPECT_FALSE(window.isVisible());
    show();
    EXPECT_EQ(item("textArea")->property("text").toString(), QStringLiteral("kept"));
}

TEST_F(FloatingWindowTest, TakesInputOnlyAroundTheCard)
{
    show();
    EXPECT_EQ(window.mask(), QRegion(0, 218 - 30, 860, 164 + 60));
    EXPECT_EQ(window.color(), QColor(Qt::transparent));
}

TEST_F(FloatingWindowTest, IsCutToTheCardWithoutACompositor)
{
    windowSystem.compositing = false;
    show();
    EXPECT_EQ(window.mask().boundingRect(), QRect(30, 218, 800, 164));
    EXPECT_FALSE(window.mask().contains(QPoint(31, 219))) << "the corners are round";
    EXPECT_TRUE(window.mask().contains(QPoint(30 + 400, 219)));
    EXPECT_EQ(window.color().alpha(), 255);
    item("card")->setHeight(264);
    EXPECT_EQ(window.mask().boundingRect().height(), 264);
}

TEST_F(FloatingWindowTest, MaskFollowsACompositorThatCame)
{
    windowSystem.compositing = false;
    show();
    window.hide();
    windowSystem.compositing = true;
    show();
    EXPECT_EQ(window.mask().boundingRect().width(), 860);
}

// Looking for places to wrap it would take minutes.
TEST_F(FloatingWindowTest, LargePasteWithoutABlankComesThroughWhole)
{
    const QString text(3'000'000, u'x');
    QGuiApplication::clipboard()->setText(text);
    show();
    QTest::keySequence(&window, QKeySequence::Paste);
    EXPECT_TRUE(bench.text() == text);
    EXPECT_TRUE(bench.floatingWindowView.editor()->hasEndlessWord());
    QTest::keySequence(&window, QKeySequence::SelectAll);
    QTest::keyClick(&window, Qt::Key_Backspace);
    EXPECT_FALSE(bench.floatingWindowView.editor()->hasEndlessWord());
}

TEST_F(FloatingWindowTest, LargePasteComesThroughWhole)
{
    QString text;
    while (text.size() < 1'000'000)
        text += QStringLiteral("A line of a long text that somebody pastes into the field.\n");
    QGuiApplication::clipboard()->setText(text);
    show();
    QTest::keySequence(&window, QKeySequence::Paste);
    EXPECT_EQ(bench.text(), text);
}
