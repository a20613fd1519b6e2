#include "Services/Index/Content/Utf8Classes.h"

#include "QtPrinters.h"
#include "Services/ContentReference.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

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

// What ICU itself says, one character at a time.
void expectClass(const char16_t* pattern, bool (*isMember)(char32_t))
{
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(icu::UnicodeString(pattern), 0, status);
    forEveryCharacter([&](char32_t code) {
        const icu::UnicodeString text(static_cast<UChar32>(code));
        matcher.reset(text);
        ASSERT_EQ(isMember(code), static_cast<bool>(matcher.matches(status)))
            << std::hex << static_cast<unsigned>(code);
    });
    EXPECT_TRUE(U_SUCCESS(status));
}

void expectSet(bool (*isMember)(char32_t), bool (*isOfSet)(QChar))
{
    forEveryCharacter([&](char32_t code) {
        const bool expected = code <= 0xFFFF && isOfSet(QChar(static_cast<char16_t>(code)));
        ASSERT_EQ(isMember(code), expected) << std::hex << static_cast<unsigned>(code);
    });
}

TEST(Utf8Classes, WordsAreThoseOfThePatterns)
{
    expectClass(u"\\w", isWord);
}

TEST(Utf8Classes, SpacesAreThoseOfThePatterns)
{
    expectClass(u"\\s", isSpace);
}

TEST(Utf8Classes, DigitsAreThoseOfThePatterns)
{
    expectClass(u"\\d", isDigit);
}

TEST(Utf8Classes, SetsHaveTheirMembers)
{
    expectSet(isNewline, reference::isOfNewlineSet);
    expectSet(isBlank, reference::isOfBlankSet);
    expectSet(isWhitespaceOrNewline, reference::isOfWhitespaceSet);
}

// The rules for lines, and the counting of words on one line, rest on this.
TEST(Utf8Classes, SpacesAreBlanksAndNewlines)
{
    forEveryCharacter([](char32_t code) {
        ASSERT_EQ(isSpace(code), isBlank(code) || isNewline(code)) << static_cast<unsigned>(code);
        ASSERT_EQ(isSpace(code), isWhitespaceOrNewline(code) || code == '\t');
    });
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
