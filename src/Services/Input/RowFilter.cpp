#include "Services/Input/RowFilter.h"

#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr qsizetype hashtagRowLimit = 20;

bool holds(const QString& name, const QString& lowerSearch)
{
    return name.toLower().contains(lowerSearch);
}

} // namespace

QString searchIn(const QString& partialToken)
{
    return partialToken.sliced(firstCharacters(partialToken, 1).size());
}

QList<Command> matchingCommands(const QString& input)
{
    QList<Command> commands(allCommands.begin(), allCommands.end());
    if (characterCount(input) != 1) {
        const QString search = searchIn(input.toLower());
        commands.removeIf([&search](Command each) { return !holds(rawValue(each), search); });
    }
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
    for (const TagCount& each : tags.first(std::min(tags.size(), hashtagRowLimit)))
        rows.append({each.tag, static_cast<int>(each.count)});
    return rows;
}

} // namespace jotwell
