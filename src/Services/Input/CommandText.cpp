#include "Services/Input/CommandText.h"

#include "Support/IcuRegex.h"
#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

namespace {

const IcuRegex& parameterPattern()
{
    static const IcuRegex pattern(u"\\$([\\w\\s-]+)");
    return pattern;
}

QString textIn(QStringView text, TextRange range)
{
    return text.sliced(range.location, range.length).toString();
}

} // namespace

bool containsCommand(QStringView text, Command command)
{
    // A character is found many times faster than a word.
    const QString word = rawValue(command);
    const qsizetype last = text.size() - word.size();
    for (qsizetype slash = text.indexOf(u'/'); slash >= 0 && slash <= last;
         slash = text.indexOf(u'/', slash + 1)) {
        if (text[slash + 1] == word[1] && text.sliced(slash, word.size()) == word)
            return true;
    }
    return false;
}

std::optional<Command> findCommand(QStringView text)
{
    const auto found = std::find_if(allCommands.begin(), allCommands.end(),
                                    [text](Command each) { return containsCommand(text, each); });
    return found == allCommands.end() ? std::nullopt : std::optional(*found);
}

std::optional<QString> templateNameIn(QStringView text)
{
    // The number of characters bounds the search in UTF-16 units: behind many emoji a name at the
    // end of the text isn't found.
    const auto match = parameterPattern().firstMatch(text, TextRange{0, characterCount(text)});
    if (!match || !match->groups.at(1))
        return std::nullopt;
    return trimmedWhitespace(textIn(text, *match->groups.at(1)));
}

std::optional<QString> folderNameIn(QStringView text)
{
    const auto match = parameterPattern().firstMatch(text);
    if (!match)
        return std::nullopt;
    return trimmedWhitespace(textIn(text, match->range()).remove(u'$'));
}

QString searchQueryIn(QStringView text)
{
    return trimmedWhitespaceAndNewlines(text.toString().remove(rawValue(Command::searchNotes)));
}

} // namespace jotwell
