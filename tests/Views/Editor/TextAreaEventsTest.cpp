#include "Views/Editor/TextAreaEvents.h"

#include "Views/Editor/EditorBench.h"

#include <QTextBlock>
#include <QTextLayout>

#include <gtest/gtest.h>

#include <ostream>

namespace jotwell {

namespace {

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

/// Without a text area, which has its own tests.
class TextAreaEventsTest : public testing::Test {
protected:
    TextAreaEventsTest()
    {
        bench.make(of(u"/recent"));
        events.setProperty("editor", QVariant::fromValue(&bench.editor()));
    }
    void setColors(const QColor& command, const QColor& parameter)
    {
        events.setProperty("commandColor", command);
        events.setProperty("parameterColor", parameter);
    }
    QColor shownColor() const
    {
        const auto formats = bench.document.firstBlock().layout()->formats();
        return formats.value(0).format.foreground().color();
    }

    EditorBench bench;
    TextAreaEvents events;
};

struct KeyPressRow {
    const char* name;
    int key;
    Qt::KeyboardModifiers modifiers;
    const char16_t* call; ///< that it makes
    friend void PrintTo(const KeyPressRow& row, std::ostream* out) { *out << row.name; }
};

// clang-format off
const KeyPressRow keyPressRows[] = {
    {"return_key", Qt::Key_Return, Qt::NoModifier, u"onEnterKey"},
    {"keypad_enter", Qt::Key_Enter, Qt::KeypadModifier, u"onEnterKey"},
    {"shift_return", Qt::Key_Return, Qt::ShiftModifier, u"onEnterKey"},
    {"alt_return", Qt::Key_Return, Qt::AltModifier, u""},
    {"ctrl_return", Qt::Key_Return, Qt::ControlModifier, u"onCommandEnter"},
    {"ctrl_shift_return", Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier, u"onCommandEnter"},
    {"ctrl_alt_return", Qt::Key_Return, Qt::ControlModifier | Qt::AltModifier, u"onCommandEnter"},
    {"ctrl_keypad_enter", Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier, u"onCommandEnter"},
    {"up", Qt::Key_Up, Qt::NoModifier, u"onArrowKey up"},
    {"keypad_up", Qt::Key_Up, Qt::KeypadModifier, u"onArrowKey up"},
    {"shift_up", Qt::Key_Up, Qt::ShiftModifier, u""},
    {"ctrl_up", Qt::Key_Up, Qt::ControlModifier, u""},
    {"down", Qt::Key_Down, Qt::NoModifier, u"onArrowKey down"},
    {"shift_down", Qt::Key_Down, Qt::ShiftModifier, u""},
    {"tab", Qt::Key_Tab, Qt::NoModifier, u"onTabKey"},
    {"ctrl_tab", Qt::Key_Tab, Qt::ControlModifier, u""},
    {"backspace", Qt::Key_Backspace, Qt::NoModifier, u"onTextChange "},
    {"shift_backspace", Qt::Key_Backspace, Qt::ShiftModifier, u"onTextChange "},
    {"ctrl_backspace", Qt::Key_Backspace, Qt::ControlModifier, u""},
    {"left", Qt::Key_Left, Qt::NoModifier, u""},
};
// clang-format on

class KeyPressTest : public TextAreaEventsTest, public testing::WithParamInterface<KeyPressRow> {};

TEST_P(KeyPressTest, IsACommandOrLeftToTheTextArea)
{
    bench.usesKeys = true;
    const QString call = of(GetParam().call);
    EXPECT_EQ(events.keyPressed(GetParam().key, GetParam().modifiers.toInt(), false),
              !call.isEmpty());
    EXPECT_EQ(bench.takeCalls().join(u'\n'), call);
}

INSTANTIATE_TEST_SUITE_P(Keys, KeyPressTest, testing::ValuesIn(keyPressRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(TextAreaEventsTest, AKeyHeldDownRunsTheCommandOnce)
{
    EXPECT_TRUE(events.keyPressed(Qt::Key_Return, Qt::ControlModifier, true));
    EXPECT_EQ(bench.takeCalls(), QStringList());
    bench.usesKeys = true;
    EXPECT_TRUE(events.keyPressed(Qt::Key_Down, Qt::NoModifier, true));
    EXPECT_EQ(bench.takeCalls(), QStringList(QStringLiteral("onArrowKey down")));
}

TEST_F(TextAreaEventsTest, OtherColoursAreShownAtOnce)
{
    setColors(Qt::blue, Qt::green);
    EXPECT_EQ(shownColor(), QColor(Qt::blue));
    setColors(Qt::cyan, Qt::green);
    EXPECT_EQ(shownColor(), QColor(Qt::cyan));
}

TEST_F(TextAreaEventsTest, HalfOfTheColoursAreNotShown)
{
    events.setProperty("commandColor", QColor(Qt::blue));
    EXPECT_TRUE(bench.document.firstBlock().layout()->formats().isEmpty());
}

TEST(UnattachedTextAreaEvents, LeaveEverythingToTheTextArea)
{
    TextAreaEvents events;
    EXPECT_FALSE(events.keyPressed(Qt::Key_Return, Qt::ControlModifier, false));
    EXPECT_FALSE(events.mousePressed({}));
    events.mouseMoved({});
    events.mouseExited();
    events.editingEnded();
    EXPECT_FALSE(events.isOverChip());
}

} // namespace

} // namespace jotwell
