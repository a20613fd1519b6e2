#include "Services/Index/Search/SearchQuery.h"

#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

namespace {

void addPiece(SearchQuery& parsed, QStringView piece)
{
    const bool isHashtag = piece.startsWith(u'#');
    const QStringView word = isHashtag ? piece.sliced(1) : piece;
    if (!word.isEmpty())
        (isHashtag ? parsed.hashtags : parsed.filenameTerms).append(word.toString());
}

} // namespace

SearchQuery parseSearchQuery(const QString& query)
{
    SearchQuery parsed;
    const QStringView text(query);
    for (auto begin = text.begin();;) {
        const auto end = std::find_if(begin, text.end(), isWhitespace);
        addPiece(parsed, QStringView(begin, end));
        if (end == text.end())
            return parsed;
        begin = end + 1;
    }
}

QString prepareFTSQuery(const QString& query)
{
    if (query.startsWith(u'"') && query.endsWith(u'"'))
        return query;
    // " OR ", " NOT " and "*" pass on as they are.
    return QString(query).replace(u" AND "_qs, u" "_qs);
}

QStringList contentTerms(const QString& query)
{
    return query.toLower().split(u' ', Qt::SkipEmptyParts);
}

} // namespace jotwell
