#include "Services/Index/Search/SearchSnippet.h"

#include "Services/Index/Search/CodePoints.h"
#include "Services/Index/Search/SearchQuery.h"
#include "Support/CharacterClasses.h"
#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr qsizetype fewestCharacters = 11;
constexpr qsizetype mostCharacters = 200;

QByteArrayView trimmed(QByteArrayView text)
{
    qsizetype begin = 0;
    while (begin < text.size()) {
        const Utf8Character first = codePointAt(text, begin);
        if (!isWhitespaceOrNewline(first.code))
            break;
        begin += first.length;
    }
    qsizetype end = text.size();
    while (end > begin) {
        const qsizetype last = codePointBefore(text, end);
        if (!isWhitespaceOrNewline(codePointAt(text, last).code))
            break;
        end = last;
    }
    return text.sliced(begin, end - begin);
}

struct Beginning {
    QString text;
    bool isAll = true;
};

// A character may have any number of bytes: more and more of the text is taken until it suffices.
Beginning beginningOf(QByteArrayView text, qsizetype count)
{
    for (qsizetype size = 4 * (count + 1);; size *= 2) {
        const bool isAll = size >= text.size();
        qsizetype end = isAll ? text.size() : size;
        while (!isAll && isContinuationByte(text[end]))
            --end;
        const QString beginning = textFromUtf8(text.first(end));
        const QStringView found = firstCharacters(beginning, count);
        if (found.size() < beginning.size() || isAll)
            return {found.toString(), found.size() == beginning.size()};
    }
}

QString excerpt(QByteArrayView trimmedText)
{
    const Beginning beginning = beginningOf(trimmedText, mostCharacters);
    return beginning.isAll ? beginning.text : beginning.text + u"..."_qs;
}

using Matchers = std::vector<LowercaseMatcher>;

bool holdsAny(QByteArrayView sentence, const Matchers& terms)
{
    return std::any_of(terms.begin(), terms.end(),
                       [&](const LowercaseMatcher& term) { return term.isIn(sentence); });
}

} // namespace

QString createSimpleSnippet(QByteArrayView text, const Matchers& terms)
{
    const bool hasSentence = holdsAny(text, terms);
    for (qsizetype begin = 0; hasSentence && begin <= text.size();) {
        const qsizetype dot = text.indexOf('.', begin);
        const qsizetype end = dot < 0 ? text.size() : dot;
        const QByteArrayView sentence = text.sliced(begin, end - begin);
        if (holdsAny(sentence, terms)) {
            const QByteArrayView candidate = trimmed(sentence);
            if (!beginningOf(candidate, fewestCharacters - 1).isAll)
                return excerpt(candidate);
        }
        begin = end + 1;
    }
    return excerpt(trimmed(text));
}

QString createSimpleSnippet(QByteArrayView text, const QString& query)
{
    Matchers terms;
    for (const QString& term : contentTerms(query))
        terms.emplace_back(term);
    return createSimpleSnippet(text, terms);
}

} // namespace jotwell
