#include "Services/Index/Search/LowercaseMatcher.h"

#include "QtPrinters.h"
#include "Services/Index/Search/LowercaseForms.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <random>

namespace jotwell {

namespace {

bool isPlainlyIn(const QString& text, const QString& term)
{
    return text.toLower().contains(term.toLower());
}

bool isIn(const QString& text, const QString& term)
{
    return LowercaseMatcher(term).isIn(text.toUtf8());
}

QString characterOf(char32_t code)
{
    return QString::fromUcs4(&code, 1);
}

template <typename Visit>
void forEachCharacter(Visit visit)
{
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (!QChar::isSurrogate(code))
            visit(code);
    }
}

struct MatchRow {
    const char* name;
    QString text;
    QString term;
    bool isFound;
};

class LowercaseMatcherRows : public testing::TestWithParam<MatchRow> {};

const MatchRow matchRows[] = {
    {"EmptyTermIsEverywhere", u"text"_qs, u""_qs, true},
    {"EmptyTermIsInTheEmptyText", u""_qs, u""_qs, true},
    {"NothingIsInTheEmptyText", u""_qs, u"a"_qs, false},
    {"CapitalsOfTheText", u"The HOUSE"_qs, u"house"_qs, true},
    {"CapitalsOfTheTerm", u"the house"_qs, u"HOUSE"_qs, true},
    {"AtTheVeryEnd", u"a house"_qs, u"house"_qs, true},
    {"CutOffAtTheEnd", u"a hous"_qs, u"house"_qs, false},
    {"MarksAreNoCapitalsOfLetters", u"@[`{"_qs, u"`{@["_qs, false},
    {"AtSignIsNoGraveAccent", u"@"_qs, u"`"_qs, false},
    {"Nul", QString(QChar(0)) + u"x"_qs, QString(QChar(0)), true},
    {"NulBehindTheEndIsNone", u"x"_qs, u"x"_qs + QChar(0), false},
    {"Umlauts", u"\u00c4PFEL und \u00dcber"_qs, u"\u00fcBER"_qs, true},
    {"SharpS", u"STRA\u1e9eE"_qs, u"stra\u00dfe"_qs, true},
    {"SharpSIsNoDoubleS", u"STRASSE"_qs, u"stra\u00dfe"_qs, false},
    {"Cyrillic", u"\u041f\u0420\u0418\u0412\u0415\u0422"_qs,
     u"\u043f\u0440\u0438\u0432\u0435\u0442"_qs, true},
    {"GreekSigmaHasNoFinalForm", u"\u039f\u0394\u039f\u03a3"_qs, u"\u03bf\u03b4\u03bf\u03c3"_qs,
     true},
    {"GreekFinalSigmaIsAnother", u"\u039f\u0394\u039f\u03a3"_qs, u"\u03bf\u03b4\u03bf\u03c2"_qs,
     false},
    {"Chinese", u"\u6211\u7684\u7b14\u8bb0"_qs, u"\u7b14\u8bb0"_qs, true},
    {"Georgian", u"\u1c90\u1c91"_qs, u"\u10d0\u10d1"_qs, true},
    {"Cherokee", u"\u13a0\u13b0"_qs, u"\uab70\uab80"_qs, true},
    {"Deseret", u"\U00010400\U00010401"_qs, u"\U00010428\U00010429"_qs, true},
    {"KelvinSign", u"300 \u212aELVIN"_qs, u"kelvin"_qs, true},
    {"KelvinSignAlone", u"\u212a"_qs, u"k"_qs, true},
    {"KelvinSignWithin", u"S\u212aY"_qs, u"sky"_qs, true},
    {"AngstromSign", u"\u212bngstrom"_qs, u"\u00e5ngstrom"_qs, true},
    {"OhmSign", u"10 \u2126"_qs, u"\u03c9"_qs, true},
    {"LongerInLowerCase", u"x\u023ax"_qs, u"x\u2c65x"_qs, true},
    {"TitleCaseDigraph", u"\u01c5ungla"_qs, u"\u01c6UNGLA"_qs, true},
    {"DottedIIsAnI", u"\u0130stanbul"_qs, u"i"_qs, true},
    {"DottedIEndsInADot", u"\u0130stanbul"_qs, u"\u0307stan"_qs, true},
    {"DottedIIsTwo", u"\u0130stanbul"_qs, u"i\u0307s"_qs, true},
    {"DottedIIsNoIBeforeOthers", u"\u0130stanbul"_qs, u"istanbul"_qs, false},
    {"DottedIInTheTerm", u"i\u0307stanbul"_qs, u"\u0130STANBUL"_qs, true},
    {"DottedIAtTheEndOfTheTerm", u"al\u0130"_qs, u"ali"_qs, true},
    {"DotsOnly", u"\u0130\u0130\u0130"_qs, u"\u0307i\u0307i"_qs, true},
    {"DottedIsBeforeTheAnchor", u"\u0130\u0130zq"_qs, u"i\u0307i\u0307zq"_qs, true},
    {"DotlessIIsAnother", u"\u0131"_qs, u"i"_qs, false},
    {"NoCanonicalEquivalence", u"\u00e4"_qs, u"a\u0308"_qs, false},
    {"LoneSurrogateIsNowhere", u"\U0001F600"_qs, QString(QChar(0xD83D)), false},
    {"TermLongerThanARun", u"Donaudampfschifffahrtsgesellschaft"_qs,
     u"DAMPFSCHIFFFAHRTSGESELLSCHAFT"_qs, true},
    {"LongTermWithOneOddLetter", u"Donaudampfschifffahrtsgesellschaft"_qs,
     u"dampfschiffahrtsgesellschaft"_qs, false},
};

TEST_P(LowercaseMatcherRows, FindsTheTerm)
{
    const MatchRow& row = GetParam();
    EXPECT_EQ(isIn(row.text, row.term), row.isFound);
}

INSTANTIATE_TEST_SUITE_P(Rows, LowercaseMatcherRows, testing::ValuesIn(matchRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LowercaseForms, AreThoseOfQString)
{
    forEachCharacter([](char32_t code) {
        const LowercaseForm form = lowercaseForm(code);
        const QString text =
            characterOf(form.first) + (form.second == 0 ? QString() : characterOf(form.second));
        ASSERT_EQ(text, characterOf(code).toLower()) << uint(code);
        ASSERT_EQ(text.toLower(), text) << uint(code);
    });
}

TEST(LowercaseForms, AllOriginsAreKnown)
{
    std::u32string missing;
    forEachCharacter([&](char32_t code) {
        const LowercaseForm form = lowercaseForm(code);
        if (form.second == 0 && charactersLoweredTo(form.first).find(code) == std::u32string::npos)
            missing += code;
    });
    EXPECT_TRUE(missing.empty()) << uint(missing.front());
}

TEST(LowercaseMatcher, FindsEveryCharacterAndItsForms)
{
    forEachCharacter([](char32_t code) {
        const QString character = characterOf(code);
        const bool hasCase = character.toLower() != character || character.toUpper() != character;
        if (!hasCase && code % 509 != 0)
            return;
        for (const QString& text : {character, character.toLower(), character.toUpper()}) {
            const QString padded = u"ab"_qs + text + u"yz"_qs;
            for (const QString& term : {character, u"b"_qs + character, character + u"y"_qs})
                ASSERT_EQ(isIn(padded, term), isPlainlyIn(padded, term)) << uint(code);
        }
    });
}

// Texts of few characters, so that terms are often found, nearly found, and found late.
class RandomTexts {
public:
    QString next(qsizetype longest)
    {
        QString text;
        for (qsizetype left = below(longest + 1); left > 0; --left)
            text += m_alphabet[below(m_alphabet.size())];
        return text;
    }

    void chooseAlphabet()
    {
        static const QStringList scripts{u"aAbB"_qs,
                                         u"kK\u212aaA"_qs,
                                         u"iI\u0130\u0131\u0307"_qs,
                                         u"\u0130i\u0307ks\u212a"_qs,
                                         u"\u00e5\u00c5\u212b\u03c9\u03a9\u2126"_qs,
                                         u"\u01c4\u01c5\u01c6\u1e9e\u00df\u1e9e"_qs,
                                         u"\u023a\u2c65\u023e\u2c66x"_qs,
                                         u"\u0410\u0430\u0420\u0440\u042f\u044f"_qs,
                                         u"\u13a0\uab70\u13f8\u13f0"_qs,
                                         u"\u4e2d\u56fd\u4e2e\u56fe"_qs,
                                         u"\u03a3\u03c3\u03c2\u1f88\u1f80"_qs};
        QString characters = scripts[below(scripts.size())] + scripts[below(scripts.size())];
        if (below(3) == 0)
            characters += u". \u2028"_qs + QChar(0) + u"\U00010400\U00010428\U0001F600"_qs;
        m_alphabet.clear();
        for (const uint code : characters.toUcs4())
            m_alphabet.append(characterOf(code));
    }

    qsizetype below(qsizetype limit)
    {
        return std::uniform_int_distribution<qsizetype>(0, limit - 1)(m_random);
    }

private:
    std::mt19937 m_random{20240305};
    QStringList m_alphabet;
};

TEST(LowercaseMatcher, AgreesWithTheLowerCaseOfTheWholeText)
{
    RandomTexts texts;
    int found = 0;
    constexpr int rounds = 20'000;
    for (int round = 0; round < rounds; ++round) {
        texts.chooseAlphabet();
        const QString text = texts.next(round % 5 == 0 ? 300 : 12);
        QString term = texts.next(6);
        if (round % 3 == 0)
            term = text.toLower().mid(texts.below(text.size() + 1), 1 + texts.below(24));
        if (!term.isValidUtf16())
            continue;
        const bool isThere = isPlainlyIn(text, term);
        found += isThere ? 1 : 0;
        ASSERT_EQ(isIn(text, term), isThere) << term.toStdString() << " in " << text.toStdString();
    }
    EXPECT_GT(found, rounds / 5);
    EXPECT_LT(found, rounds * 4 / 5);
}

TEST(LowercaseMatcher, FindsATermAtEveryPlaceOfATextOfAnyLength)
{
    const LowercaseMatcher matcher(u"needle"_qs);
    for (int length = 6; length < 150; ++length) {
        for (int place = 0; place + 6 <= length; ++place) {
            QByteArray text(length, 'e');
            ASSERT_FALSE(matcher.isIn(text));
            text.replace(place, 6, "nEEDle");
            // In room of its own size, where a sanitizer sees what is read behind it.
            const std::vector<char> exact(text.begin(), text.end());
            ASSERT_TRUE(matcher.isIn(QByteArrayView(exact.data(), length)))
                << place << " of " << length;
        }
    }
}

} // namespace

} // namespace jotwell
