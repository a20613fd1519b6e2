#include "Services/Index/Content/Utf8Classes.h"

#include "QtPrinters.h"
#include "Support/CharacterClasses.h"

#include <QChar>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

constexpr char32_t lastCode = 0x10FFFF;

bool isSurrogate(char32_t code)
{
    return code >= 0xD800 && code <= 0xDFFF;
}

QByteArray utf8Of(char32_t code)
{
    const auto units = QChar::fromUcs4(code); // QString::fromUcs4 drops U+FEFF
    return QStringView(units).toUtf8();
}

// Calls `check` with every character that UTF-8 can hold.
template <typename Check>
void forEveryCharacter(Check check)
{
    for (char32_t code = 0; code <= lastCode; ++code) {
        if (!isSurrogate(code))
            check(code);
    }
}

TEST(Utf8Classes, CharactersAreReadFromBothSides)
{
    forEveryCharacter([](char32_t code) {
        const QByteArray text = "\u3042" + utf8Of(code) + "\U0001F600";
        const char* place = text.constData() + 3;
        const Utf8Character character = characterAt(place);
        ASSERT_EQ(character.code, code);
        ASSERT_EQ(character.length, text.size() - 7);
        ASSERT_EQ(characterBefore(place + character.length).code, code);
    });
}

TEST(Utf8Classes, KindsOfBytesMissNoSpace)
{
    forEveryCharacter([](char32_t code) {
        const ByteKind kind = kindOf(byteKinds(), utf8Of(code).front());
        ByteKind expected = ByteKind::text;
        if (code == 0)
            expected = ByteKind::zero;
        else if (isSpace(code) && code >= 0x80)
            expected = ByteKind::maybeSpace;
        else if (isSpace(code))
            expected = isNewline(code) ? ByteKind::newline : ByteKind::blank;
        const bool isAllowed = kind == expected || (code >= 0x80 && kind == ByteKind::maybeSpace);
        ASSERT_TRUE(isAllowed) << static_cast<unsigned>(code);
    });
}

TEST(Utf8Classes, RunsEndWhereTheirClassDoes)
{
    const auto lengthOf = [](auto after, const QByteArray& text) {
        return after(text.constData(), text.constData() + text.size()) - text.constData();
    };
    EXPECT_EQ(lengthOf(afterBlanks, " \t\u00A0\u3000\n "_qba), 7);
    EXPECT_EQ(lengthOf(afterBlanks, " \t\u3000"_qba), 5);
    EXPECT_EQ(lengthOf(afterBlanks, "a "_qba), 0);
    EXPECT_EQ(lengthOf(afterWord, "aZ_9\u00E9\u65E5\U00020000-a"_qba), 13);
    EXPECT_EQ(lengthOf(afterWord, "a@[`{"_qba), 1);
    EXPECT_EQ(lengthOf(afterDigits, "09\u0663\U0001D7D9a1"_qba), 8);
    EXPECT_EQ(lengthOf(lineEnd, "a \u3000\u2027b\u2028c"_qba), 9);
    EXPECT_EQ(lengthOf(lineEnd, "a\0b\r\n"_qba), 3);
    EXPECT_EQ(lengthOf(lineEnd, "ab"_qba), 2);
}

} // namespace

} // namespace jotwell
