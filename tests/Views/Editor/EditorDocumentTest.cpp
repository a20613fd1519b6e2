#include "Views/Editor/EditorDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QStringList>
#include <QTextCursor>
#include <QTextDocument>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

class EditorDocumentTest : public testing::Test {
protected:
    EditorDocumentTest()
    {
        QObject::connect(&text, &EditorDocument::aboutToLayOut, &text,
                         [this] { events.append(QStringLiteral("layout")); });
        QObject::connect(&text, &EditorDocument::edited, &text,
                         [this] { events.append(QStringLiteral("edited")); });
    }

    void type(int position, const char16_t* characters)
    {
        QTextCursor cursor(&document);
        cursor.setPosition(position);
        cursor.insertText(of(characters));
    }

    void remove(int position, int length)
    {
        QTextCursor cursor(&document);
        cursor.setPosition(position);
        cursor.setPosition(position + length, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }

    QTextDocument document;
    EditorDocument text{document};
    QStringList events;
};

TEST_F(EditorDocumentTest, HoldsWhatTheDocumentHoldsAlready)
{
    QTextDocument other;
    other.setPlainText(of(u"one\ntwo"));
    EXPECT_EQ(EditorDocument(other).string(), of(u"one\ntwo"));
}

TEST_F(EditorDocumentTest, KeepsWhatTheUserWrote)
{
    type(0, u"one\ntwo\u00A0three\n\n\U0001F600\u2028\uFFFC");
    EXPECT_EQ(text.string(), of(u"one\ntwo\u00A0three\n\n\U0001F600\u2028\uFFFC"));
}

TEST_F(EditorDocumentTest, FollowsEdits)
{
    type(0, u"abc");
    type(1, u"1\n2");
    remove(2, 1);
    EXPECT_EQ(text.string(), of(u"a12bc"));
    remove(0, 5);
    EXPECT_EQ(text.string(), QString());
    document.undo();
    EXPECT_EQ(text.string(), of(u"a12bc"));
    document.redo();
    EXPECT_EQ(text.string(), QString());
}

TEST_F(EditorDocumentTest, LoneSurrogatesStay)
{
    const char16_t lone[] = {u'a', 0xD83D, u'b', 0};
    type(0, lone);
    EXPECT_EQ(text.string(), of(lone));
}

TEST_F(EditorDocumentTest, EachEditIsToldOnceAfterTheLayout)
{
    type(0, u"a");
    EXPECT_THAT(events, ElementsAre(QStringLiteral("layout"), QStringLiteral("edited")));
}

TEST_F(EditorDocumentTest, StylesAreNoEdit)
{
    type(0, u"ab\r\ncd");
    text.setString(of(u"ab\r\ncd"), EditorDocument::UndoStep::own);
    events.clear();
    QTextBlockFormat indented;
    indented.setIndent(1);
    QTextCursor(&document).setBlockFormat(indented);
    EXPECT_THAT(events, ElementsAre(QStringLiteral("layout")));
    EXPECT_EQ(text.string(), of(u"ab\r\ncd"));
}

TEST_F(EditorDocumentTest, TextFromOutsideIsNoEdit)
{
    text.setString(of(u"from outside"), EditorDocument::UndoStep::own);
    EXPECT_EQ(text.string(), of(u"from outside"));
    EXPECT_EQ(document.toPlainText(), of(u"from outside"));
    EXPECT_THAT(events, ElementsAre(QStringLiteral("layout")));
}

TEST_F(EditorDocumentTest, TheSameTextChangesNothing)
{
    type(0, u"same");
    events.clear();
    text.setString(of(u"same"), EditorDocument::UndoStep::own);
    EXPECT_THAT(events, IsEmpty());
    document.undo();
    EXPECT_EQ(text.string(), QString());
}

TEST_F(EditorDocumentTest, LineEndsStayAsTheyWereGiven)
{
    const QString given = of(u"a\r\nb\u2029c\rd\n\u2028e\r\n");
    text.setString(given, EditorDocument::UndoStep::own);
    EXPECT_EQ(text.string(), given);
    type(0, u"x");
    EXPECT_EQ(text.string(), u'x' + given);
    remove(0, 1);
    type(document.characterCount() - 1, u"y");
    EXPECT_EQ(text.string(), given + u'y');
}

TEST_F(EditorDocumentTest, PositionsPassOverLineEndsOfTwoUnits)
{
    text.setString(of(u"a\r\nb\r\nc"), EditorDocument::UndoStep::own);
    const int shown[] = {0, 1, 1, 2, 3, 3, 4, 5};
    for (qsizetype at = 0; at < 8; ++at)
        EXPECT_EQ(text.toDocument(at), shown[at]) << at;
    const qsizetype given[] = {0, 1, 3, 4, 6, 7};
    for (int at = 0; at < 6; ++at)
        EXPECT_EQ(text.toString(at), given[at]) << at;
}

TEST_F(EditorDocumentTest, RemovingALineEndOfTwoUnitsRemovesBoth)
{
    text.setString(of(u"a\r\nb\r\nc"), EditorDocument::UndoStep::own);
    remove(1, 1);
    EXPECT_EQ(text.string(), of(u"ab\r\nc"));
}

TEST_F(EditorDocumentTest, OwnStepIsUndoneByItself)
{
    type(0, u"/re");
    text.setString(of(u"/recent"), EditorDocument::UndoStep::own);
    document.undo();
    EXPECT_EQ(text.string(), of(u"/re"));
    document.undo();
    EXPECT_EQ(text.string(), QString());
}

TEST_F(EditorDocumentTest, JoinedStepIsUndoneWithTheEditBefore)
{
    type(0, u"words ");
    remove(0, 1);
    text.setString(of(u"ords and more"), EditorDocument::UndoStep::joined);
    document.undo();
    EXPECT_EQ(text.string(), of(u"words "));
    document.redo();
    EXPECT_EQ(text.string(), of(u"ords and more"));
}

TEST_F(EditorDocumentTest, JoinedStepIsUndoneWithWhatWasTyped)
{
    type(0, u"first");
    text.setString(of(u"second"), EditorDocument::UndoStep::own);
    for (const char16_t character : std::u16string(u" /recent"))
        type(document.characterCount() - 1, std::u16string(1, character).c_str());
    events.clear();
    text.setString(of(u"second /recent  $All"), EditorDocument::UndoStep::joined);
    EXPECT_FALSE(events.contains(QStringLiteral("edited")));
    document.undo();
    EXPECT_EQ(text.string(), of(u"second"));
    document.undo();
    EXPECT_EQ(text.string(), of(u"first"));
    document.redo();
    document.redo();
    EXPECT_EQ(text.string(), of(u"second /recent  $All"));
}

TEST_F(EditorDocumentTest, WhatIsTypedBehindAReplacementIsAStepOfItsOwn)
{
    type(0, u"/ne");
    text.setString(of(u"/new_note"), EditorDocument::UndoStep::own);
    type(9, u" ");
    type(10, u"x");
    document.undo();
    EXPECT_EQ(text.string(), of(u"/new_note"));
    document.undo();
    EXPECT_EQ(text.string(), of(u"/ne"));
}

TEST_F(EditorDocumentTest, ReplacementsNeverPartACharacter)
{
    // The two faces share their first unit.
    text.setString(of(u"a\U0001F600b"), EditorDocument::UndoStep::own);
    text.setString(of(u"a\U0001F601b"), EditorDocument::UndoStep::own);
    EXPECT_EQ(document.toPlainText(), of(u"a\U0001F601b"));
    document.undo();
    EXPECT_EQ(text.string(), of(u"a\U0001F600b"));
}

TEST_F(EditorDocumentTest, ReplacementsNeverPartALineEndOfTwoUnits)
{
    text.setString(of(u"a\r\nb"), EditorDocument::UndoStep::own);
    text.setString(of(u"a\rxb"), EditorDocument::UndoStep::own);
    EXPECT_EQ(text.string(), of(u"a\rxb"));
    EXPECT_EQ(document.toPlainText(), of(u"a\nxb"));
    text.setString(of(u"a\nb"), EditorDocument::UndoStep::own);
    text.setString(of(u"a\r\nb"), EditorDocument::UndoStep::own);
    EXPECT_EQ(text.string(), of(u"a\r\nb"));
    EXPECT_EQ(document.toPlainText(), of(u"a\nb"));
}

TEST_F(EditorDocumentTest, ReplacesTheRangeThatItIsToldOf)
{
    text.setString(of(u"/x/x"), EditorDocument::UndoStep::own);
    QTextCursor behindFirst(&document);
    behindFirst.setPosition(2);
    text.replaceCharacters({0, 2}, QString());
    EXPECT_EQ(text.string(), of(u"/x"));
    EXPECT_EQ(behindFirst.position(), 0);
}

TEST_F(EditorDocumentTest, EachParagraphRunsTheWayOfItsText)
{
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(Qt::LeftToRight); // as a text area sets it
    document.setDefaultTextOption(option);
    type(0, u"one\n\u05E9\u05DC /recent\n123 \u05D0\n456");
    const auto direction = [this](int block) {
        return document.findBlockByNumber(block).textDirection();
    };
    EXPECT_EQ(direction(0), Qt::LeftToRight);
    EXPECT_EQ(direction(1), Qt::RightToLeft);
    EXPECT_EQ(direction(2), Qt::RightToLeft);
    text.setString(of(u"\u05D0\none"), EditorDocument::UndoStep::own);
    EXPECT_EQ(direction(0), Qt::RightToLeft);
    EXPECT_EQ(direction(1), Qt::LeftToRight);
}

TEST_F(EditorDocumentTest, ParagraphsOfAFirstTextFromOutsideRunTheirWayToo)
{
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    document.setDefaultTextOption(option);
    text.setString(of(u"one\n\u05E9\u05DC"), EditorDocument::UndoStep::own);
    EXPECT_EQ(document.lastBlock().textDirection(), Qt::RightToLeft);
}

TEST_F(EditorDocumentTest, TurningAParagraphIsNoStepOfItsOwn)
{
    type(0, u"one\n");
    for (int at = 4; at < 7; ++at)
        type(at, u"\u05E9");
    EXPECT_EQ(document.lastBlock().textDirection(), Qt::RightToLeft);
    EXPECT_EQ(events.count(QStringLiteral("edited")), 4);
    while (document.isUndoAvailable()) {
        const QString before = text.string();
        document.undo();
        EXPECT_NE(text.string(), before);
    }
    EXPECT_EQ(text.string(), QString());
    while (document.isRedoAvailable())
        document.redo();
    EXPECT_EQ(text.string(), of(u"one\n\u05E9\u05E9\u05E9"));
    EXPECT_EQ(document.lastBlock().textDirection(), Qt::RightToLeft);
}

TEST_F(EditorDocumentTest, TextFromLeftToRightIsLeftAlone)
{
    type(0, u"one\ntwo");
    EXPECT_EQ(document.begin().blockFormat().layoutDirection(), Qt::LayoutDirectionAuto);
}

TEST_F(EditorDocumentTest, FindsEndlessWords)
{
    text.setString(QString(3999, u'a'), EditorDocument::UndoStep::own);
    EXPECT_FALSE(text.hasEndlessWord());
    type(10, u"a");
    EXPECT_TRUE(text.hasEndlessWord());
    type(10, u" ");
    EXPECT_FALSE(text.hasEndlessWord());
}

TEST_F(EditorDocumentTest, OutlivesTheDocument)
{
    auto gone = std::make_unique<QTextDocument>();
    EditorDocument orphan(*gone);
    gone.reset();
    orphan.setString(of(u"x"), EditorDocument::UndoStep::own);
    EXPECT_EQ(orphan.string(), QString());
    EXPECT_FALSE(orphan.isComposing());
}

} // namespace

} // namespace jotwell
