#include "Views/Settings/TemplateText.h"

#include "QtPrinters.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTextCursor>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

/// A text area and the text that it is kept in step with.
class TemplateTextTest : public testing::Test {
protected:
    TemplateTextTest()
    {
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nTextEdit { textFormat: TextEdit.PlainText }", {});
        area.reset(qobject_cast<QQuickItem*>(component.create()));
        text.setDocument(area->property("textDocument").value<QQuickTextDocument*>());
        QObject::connect(&text, &TemplateText::edited, &text,
                         [this](const QString& newText) { text.setText(newText); });
    }

    [[nodiscard]] QString shown() const { return area->property("text").toString(); }
    [[nodiscard]] int cursor() const { return area->property("cursorPosition").toInt(); }
    void setCursor(int position) { area->setProperty("cursorPosition", position); }
    void type(int position, const QString& typed)
    {
        QMetaObject::invokeMethod(area.get(), "insert", Q_ARG(int, position),
                                  Q_ARG(QString, typed));
    }
    void compose(const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(area.get(), &event);
    }

    QQmlEngine engine;
    std::unique_ptr<QQuickItem> area;
    TemplateText text;
    QSignalSpy edits{&text, &TemplateText::edited};
};

} // namespace

TEST_F(TemplateTextTest, ShowingIsNoEdit)
{
    for (const QString& each : {u"a\r\nb\rc\n"_qs, u"a\u00a0b\u2028\u2029c"_qs, u"\ufeffx"_qs,
                                u"\U0001F4A1"_qs, QString()}) {
        text.setText(each);
        EXPECT_EQ(text.text(), each);
    }
    EXPECT_EQ(edits.size(), 0);
}

TEST_F(TemplateTextTest, WhatTheUserHasNotTouchedStays)
{
    text.setText(u"a\r\nb\u00a0c\r\nd"_qs);
    type(0, u"X"_qs);
    EXPECT_EQ(text.text(), u"Xa\r\nb\u00a0c\r\nd"_qs);
    type(static_cast<int>(shown().size()), u"Y"_qs);
    EXPECT_EQ(text.text(), u"Xa\r\nb\u00a0c\r\ndY"_qs);
}

TEST_F(TemplateTextTest, EqualTextLeavesTheCursorAlone)
{
    text.setText(u"abc"_qs);
    setCursor(2);
    text.setText(u"abc"_qs);
    EXPECT_EQ(cursor(), 2);
    text.setText(u"abcdef"_qs);
    EXPECT_EQ(cursor(), 2);
}

TEST_F(TemplateTextTest, NobodyUndoesIntoAnothersText)
{
    text.setOwner(u"one"_qs);
    text.setText(u"first"_qs);
    type(0, u"my "_qs);
    text.setText(u"second"_qs);
    text.setOwner(u"two"_qs);
    QMetaObject::invokeMethod(area.get(), "undo");
    EXPECT_EQ(text.text(), u"second"_qs);
    text.setOwner(u"three"_qs); // with an equal text
    QMetaObject::invokeMethod(area.get(), "undo");
    EXPECT_EQ(text.text(), u"second"_qs);
}

TEST_F(TemplateTextTest, CompositionIsNotInterrupted)
{
    text.setText(u"abc"_qs);
    setCursor(3);
    compose(u"あ"_qs);
    EXPECT_TRUE(text.isComposing());
    EXPECT_EQ(edits.size(), 0);
    text.setText(u"theirs"_qs);
    EXPECT_TRUE(text.isComposing());
    EXPECT_EQ(shown(), u"abc"_qs);
    compose(QString());
    EXPECT_FALSE(text.isComposing());
    EXPECT_EQ(shown(), u"theirs"_qs);
    EXPECT_EQ(edits.size(), 0);
}

TEST_F(TemplateTextTest, AnothersTextComesInDuringAComposition)
{
    text.setText(u"abc"_qs);
    setCursor(3);
    compose(u"あ"_qs);
    text.setText(u"another"_qs);
    text.setOwner(u"another"_qs);
    EXPECT_EQ(shown(), u"another"_qs);
}

TEST_F(TemplateTextTest, CommittedTextIsAnEdit)
{
    text.setText(u"abc"_qs);
    setCursor(3);
    compose(u"あ"_qs);
    compose(QString(), u"亜"_qs);
    EXPECT_EQ(text.text(), u"abc亜"_qs);
    EXPECT_FALSE(text.isComposing());
}

} // namespace jotwell
