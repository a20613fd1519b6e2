#include "Services/Index/Search/SearchSnippet.h"

#include "QtPrinters.h"
#include "Services/Index/Search/SearchReference.h"

#include <gtest/gtest.h>

#include <random>

namespace jotwell {

namespace {

struct SnippetRow {
    const char* name;
    QString text;
    QString query;
    QString snippet;
};

class SimpleSnippet : public testing::TestWithParam<SnippetRow> {};

const QString longWord = QString(200, u'x');
const QString longMarks = u"a\u0308"_qs.repeated(200);

const SnippetRow snippetRows[] = {
    {"TheFirstSentenceWithATerm", u"Nothing is here. A word is here. A word there."_qs, u"word"_qs,
     u"A word is here"_qs},
    {"AnyOfTheTermsWillDo", u"Nothing is here. The second one. The first one."_qs,
     u"first SECOND"_qs, u"The second one"_qs},
    {"ATextWithoutDotsIsOneSentence", u"It starts here and holds the word late"_qs, u"word"_qs,
     u"It starts here and holds the word late"_qs},
    {"ASentenceOfTenCharactersIsPassedOver", u"word 67890. A longer word here."_qs, u"word"_qs,
     u"A longer word here"_qs},
    {"ASentenceOfElevenCharactersIsTaken", u"word 678901. A longer word here."_qs, u"word"_qs,
     u"word 678901"_qs},
    {"CharactersAreCountedAfterTrimming", u"  word 67890  . A longer word here."_qs, u"word"_qs,
     u"A longer word here"_qs},
    {"CharactersAreNoUnits", u"word a\u0308a\u0308a\u0308a\u0308. A longer word here."_qs,
     u"word"_qs, u"A longer word here"_qs},
    {"ShortSentencesAloneGiveTheWholeText", u" A word. Another. "_qs, u"word"_qs,
     u"A word. Another."_qs},
    {"ATermOfTheTitleGivesTheStart", u"The start of it. The rest."_qs, u"title"_qs,
     u"The start of it. The rest."_qs},
    {"NoTermGivesTheStart", u"The start of it. The rest."_qs, u"  "_qs,
     u"The start of it. The rest."_qs},
    {"ATermWithADotIsInNoSentence", u"See the version 1.2 of it. And more."_qs, u"1.2"_qs,
     u"See the version 1.2 of it. And more."_qs},
    {"CaseIsNoMatter", u"Nothing is here. A WORD is here."_qs, u"Word"_qs, u"A WORD is here"_qs},
    {"LineEndsAndSpacesAreTrimmed", u"\u2028 \u00a0A sentence of words\u3000\n\u0085."_qs,
     u"words"_qs, u"A sentence of words"_qs},
    {"TabsAreNotTrimmed", u"\tA sentence of words."_qs, u"words"_qs, u"\tA sentence of words"_qs},
    {"TwoHundredCharactersStandAlone", longWord, u"xx"_qs, longWord},
    {"OneMoreIsCut", longWord + u"y"_qs, u"xx"_qs, longWord + u"..."_qs},
    {"OneMoreThanTwoHundredMarkedOnes", longMarks + u"y"_qs, u"y"_qs, longMarks + u"..."_qs},
    {"TwoHundredMarkedCharactersStandAlone", longMarks, u"a"_qs, longMarks},
    {"EmptyText", u""_qs, u"a"_qs, u""_qs},
    {"DotsAlone", u"..."_qs, u"."_qs, u"..."_qs},
    {"NulIsACharacter", QString(11, QChar(0)) + u".a"_qs, QString(QChar(0)), QString(11, QChar(0))},
};

TEST_P(SimpleSnippet, IsTheFirstFittingSentence)
{
    const SnippetRow& row = GetParam();
    EXPECT_EQ(createSimpleSnippet(row.text.toUtf8(), row.query), row.snippet);
    EXPECT_EQ(plainSnippet(row.text, row.query), row.snippet);
}

INSTANTIATE_TEST_SUITE_P(Rows, SimpleSnippet, testing::ValuesIn(snippetRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SearchSnippet, AgreesWithThePlainForm)
{
    static const QStringList pieces{u"."_qs,
                                    u". "_qs,
                                    u" "_qs,
                                    u"word"_qs,
                                    u"WORD"_qs,
                                    u"a"_qs,
                                    u"\u0130"_qs,
                                    u"\u212a"_qs,
                                    u"\u0308"_qs,
                                    u"\r\n"_qs,
                                    u"\u2028"_qs,
                                    u"\t"_qs,
                                    u"\u1112\u1161"_qs,
                                    u"\U0001F468\u200D\U0001F469"_qs,
                                    u"\U0001F1E9\U0001F1EA"_qs,
                                    QString(70, u'z'),
                                    u"\u0308"_qs.repeated(300),
                                    QString(190, u' ')};
    std::mt19937 random(20240305);
    const auto below = [&](qsizetype limit) { return static_cast<qsizetype>(random() % limit); };
    for (int round = 0; round < 3'000; ++round) {
        QString text;
        for (qsizetype left = below(30); left > 0; --left)
            text += pieces[below(pieces.size())];
        const QString query = pieces[below(pieces.size())] + u' ' + pieces[below(pieces.size())];
        ASSERT_EQ(createSimpleSnippet(text.toUtf8(), query), plainSnippet(text, query))
            << query.toStdString() << " in " << text.toStdString();
    }
}

} // namespace

} // namespace jotwell
