#include "Services/Input/RowFilter.h"

#include "Support/TextUnits.h"

#include <algorithm>
#include <numeric>

namespace jotwell {

namespace {

char16_t lowerAscii(QChar unit)
{
    const char16_t code = unit.unicode();
    return code >= u'A' && code <= u'Z' ? code + 0x20 : code;
}

// To the end, since that is many units at a time.
bool isAscii(QStringView text)
{
    return std::accumulate(text.begin(), text.end(), 0U,
                           [](unsigned all, QChar unit) { return all | unit.unicode(); }) < 0x80;
}

bool holds(const QString& name, const QString& lowerSearch)
{
    if (!isAscii(name))
        return name.toLower().contains(lowerSearch);
    // Without a lower-case copy of each name: there are hundreds at each key stroke.
    const auto isEqual = [](QChar unit, QChar lower) { return lowerAscii(unit) == lower; };
    return lowerSearch.isEmpty() || std::search(name.begin(), name.end(), lowerSearch.begin(),
                                                lowerSearch.end(), isEqual) != name.end();
}

} // namespace

QString searchIn(const QString& partialToken)
{
    return partialToken.sliced(firstCharacters(partialToken, 1).size());
}

QList<Command> matchingCommands(const QString& input)
{
    const QString search = searchIn(input.toLower());
    QList<Command> commands;
    std::ranges::copy_if(allCommands, std::back_inserter(commands),
                         [&search](Command each) { return holds(rawValue(each), search); });
    return commands;
}

ObsidianTemplates matchingTemplates(const ObsidianTemplates& all, const QString& search)
{
    if (search.isEmpty())
        return all;
    ObsidianTemplates matching;
    std::ranges::copy_if(all, std::back_inserter(matching),
                         [lower = search.toLower()](const ObsidianTemplate& each) {
                             return holds(each.name, lower);
                         });
    return matching;
}

QList<FolderItem> matchingFolders(const QStringList& names, const QString& search)
{
    QList<FolderItem> matching;
    const QString lower = search.toLower();
    for (const QString& name : names) {
        if (holds(name, lower))
            matching.append({name});
    }
    return matching;
}

QList<HashtagItem> hashtagRows(const QList<TagCount>& tags)
{
    QList<HashtagItem> rows;
    for (const TagCount& each : tags)
        rows.append({each.tag, static_cast<int>(each.count)});
    return rows;
}

} // namespace jotwell
