#include "Services/Input/TemplateParameters.h"

#include "Services/Input/CharacterRemoval.h"
#include "Support/CharacterClasses.h"

#include <algorithm>

namespace jotwell {

namespace {

// /[\w-]+\s$ in the 20 units before the "$", of which the last is a blank.
bool isBehindSlashWord(QStringView text, qsizetype position)
{
    const QStringView before = text.first(position).last(std::min(position, qsizetype(20)));
    const qsizetype end = before.size() - 1;
    qsizetype start = end;
    while (start > 0) {
        const CodePoint each = codePointBefore(before, start);
        if (!isWord(each.value) && each.value != '-')
            break;
        start -= each.length;
    }
    return start > 0 && start < end && before[start - 1] == u'/';
}

bool mayHoldParameter(QStringView text, qsizetype position)
{
    if (position < 2 || text[position - 1] != u' ')
        return false;
    return text[position - 2] == u' ' || isBehindSlashWord(text, position);
}

// A name whose characters are of several units never equals the as many units that it is compared
// with.
std::vector<QStringView> comparable(const QStringList& names)
{
    std::vector<QStringView> result;
    std::ranges::copy_if(names, std::back_inserter(result), [](const QString& each) {
        return characterCount(each) == utf16Length(each);
    });
    return result;
}

} // namespace

std::vector<TextRange> highlightedTemplateRanges(QStringView text, const QStringList& names)
{
    std::vector<TextRange> ranges;
    if (!text.contains(u'$'))
        return ranges;
    const QStringView searched = text.first(characterCount(text));
    const std::vector<QStringView> candidates = comparable(names);
    for (qsizetype position = searched.indexOf(u'$');
         position >= 0 && position + 1 < searched.size();
         position = searched.indexOf(u'$', position + 1)) {
        if (!mayHoldParameter(text, position))
            continue;
        const QStringView rest = searched.sliced(position + 1);
        const auto name = std::ranges::find_if(
            candidates, [rest](QStringView each) { return rest.startsWith(each); });
        if (name != candidates.end())
            ranges.push_back({position, 1 + name->size()});
    }
    return ranges;
}

QString removeTemplateParameters(const QString& text, const QStringList& names)
{
    const std::vector<TextRange> ranges = highlightedTemplateRanges(text, names);
    CharacterRemoval removal(text);
    std::for_each(ranges.rbegin(), ranges.rend(),
                  [&removal](const TextRange& each) { removal.removeWithSpaceBefore(each); });
    return trimmedWhitespace(removal.result());
}

bool checkForValidTemplate(QStringView text, const QStringList& names)
{
    const QString trimmed = trimmedWhitespace(text);
    return std::ranges::any_of(names, [&trimmed](const QString& name) {
        const QString parameter = u'$' + name;
        if (!trimmed.startsWith(parameter))
            return false;
        const QStringView begin = firstCharacters(trimmed, characterCount(parameter));
        return begin.size() == trimmed.size() || isSpace(codePointAt(trimmed, begin.size()).value);
    });
}

} // namespace jotwell
