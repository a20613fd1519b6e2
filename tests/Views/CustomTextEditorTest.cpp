#include "Views/CustomTextEditor.h"

#include <QTextCursor>
#include <QTextDocument>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

} // namespace

TEST(CustomTextEditor, CursorStandsAsFarInAsTheTextHasCharacters)
{
    EXPECT_EQ(cursorAfterUpdate(QString()), 0);
    EXPECT_EQ(cursorAfterUpdate(of(u"plain text")), 10);
    EXPECT_EQ(cursorAfterUpdate(of(u"/recent  $All Folders ")), 22);
    // Three characters in four units: the third unit is inside the last character's way.
    EXPECT_EQ(cursorAfterUpdate(of(u"a\U0001F600b")), 3);
}

TEST(CustomTextEditor, CursorNeverStandsInsideACharacter)
{
    // One character of two units, and one of eight.
    EXPECT_EQ(cursorAfterUpdate(of(u"\U0001F600")), 2);
    EXPECT_EQ(cursorAfterUpdate(of(u"\U0001F468\u200D\U0001F469\u200D\U0001F467")), 8);
}

TEST(CustomTextEditor, PlainTextKeepsWhatTheUserWrote)
{
    QTextDocument document;
    document.setPlainText(of(u"one\ntwo\u00A0three\n\n\U0001F600"));
    EXPECT_EQ(plainText(document), of(u"one\ntwo\u00A0three\n\n\U0001F600"));
}

TEST(CustomTextEditor, EveryLineEndIsANewline)
{
    QTextDocument document;
    QTextCursor(&document).insertText(of(u"a\r\nb\u2029c\u2028d"));
    EXPECT_EQ(plainText(document), of(u"a\nb\nc\nd"));
}
