#include "Services/Index/Search/SearchReference.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <memory>

namespace jotwell {

namespace {

bool isBlank(QChar unit)
{
    return unit == u'\t' || unit.category() == QChar::Separator_Space;
}

bool isTrimmed(QChar unit)
{
    return unit.category() == QChar::Separator_Space || unit.category() == QChar::Separator_Line ||
           unit.category() == QChar::Separator_Paragraph || (unit >= u'\n' && unit <= u'\r') ||
           unit == QChar(0x85);
}

QString trimmed(QString text)
{
    while (!text.isEmpty() && isTrimmed(text.front()))
        text.remove(0, 1);
    while (!text.isEmpty() && isTrimmed(text.back()))
        text.chop(1);
    return text;
}

QStringList charactersOf(const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const icu::UnicodeString units(reinterpret_cast<const char16_t*>(text.utf16()),
                                   static_cast<int32_t>(text.size()));
    boundaries->setText(units);
    QStringList characters;
    for (int32_t from = 0, to = boundaries->next(); to != icu::BreakIterator::DONE;
         from = to, to = boundaries->next())
        characters.append(text.mid(from, to - from));
    return characters;
}

} // namespace

bool plainIsIn(const QString& text, const QString& term)
{
    return text.toLower().contains(term.toLower());
}

SearchQuery plainParseSearchQuery(const QString& query)
{
    SearchQuery parsed;
    QString piece;
    for (const QChar unit : query + u' ') {
        if (!isBlank(unit)) {
            piece += unit;
            continue;
        }
        if (piece.startsWith(u'#') && piece.size() > 1)
            parsed.hashtags.append(piece.mid(1));
        if (!piece.startsWith(u'#') && !piece.isEmpty())
            parsed.filenameTerms.append(piece);
        piece.clear();
    }
    return parsed;
}

QString plainPrepareFTSQuery(const QString& query)
{
    if (query.startsWith(u"\""_qs) && query.endsWith(u"\""_qs))
        return query;
    QString prepared = query;
    prepared.replace(u" AND "_qs, u" "_qs);
    prepared.replace(u" OR "_qs, u" OR "_qs);
    prepared.replace(u" NOT "_qs, u" NOT "_qs);
    prepared.replace(u"*"_qs, u"*"_qs);
    return prepared;
}

QStringList plainContentTerms(const QString& query)
{
    QStringList terms = query.toLower().split(u' ');
    terms.removeAll(QString());
    return terms;
}

QString plainSnippet(const QString& text, const QString& query)
{
    QString excerpt = trimmed(text);
    const QStringList terms = plainContentTerms(query);
    for (const QString& sentence : text.split(u'.')) {
        const QString lower = sentence.toLower();
        const bool holdsAny = std::any_of(
            terms.begin(), terms.end(), [&](const QString& term) { return lower.contains(term); });
        if (holdsAny && charactersOf(trimmed(sentence)).size() >= 11) {
            excerpt = trimmed(sentence);
            break;
        }
    }
    const QStringList characters = charactersOf(excerpt);
    return characters.mid(0, 200).join(QString()) + (characters.size() > 200 ? u"..."_qs : u""_qs);
}

} // namespace jotwell
