#include "Services/Input/PartialTokens.h"

#include "Support/CharacterClasses.h"
#include "Support/TextUnits.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <span>
#include <vector>

namespace jotwell {

namespace {

bool partsWords(QChar unit)
{
    return isWhitespace(unit) || isNewline(unit);
}

bool isSpaceAt(QStringView text, qsizetype place)
{
    return isSpace(codePointAt(text, place).value);
}

QStringView withoutNewlinesBehind(QStringView text)
{
    while (!text.isEmpty() && isNewline(text.back()))
        text.chop(1);
    return text;
}

// A piece at a time: a character is found forwards many times faster than backwards.
qsizetype lastIndexIn(QStringView text, QChar unit)
{
    constexpr qsizetype piece = 1024;
    for (qsizetype end = text.size(); end > 0; end -= std::min(end, piece)) {
        const qsizetype start = std::max(end - piece, qsizetype(0));
        if (text.sliced(start, end - start).contains(unit))
            return text.first(end).lastIndexOf(unit);
    }
    return -1;
}

// ^\$[\w\s-]+\s+\S
bool isFinishedParameter(QStringView parameter)
{
    bool isBehindSpace = false;
    for (qsizetype place = 1; place < parameter.size();) {
        const CodePoint each = codePointAt(parameter, place);
        const bool isSpaceHere = isSpace(each.value);
        if (isBehindSpace && !isSpaceHere)
            return true;
        if (!isSpaceHere && !isWord(each.value) && each.value != '-')
            return false;
        isBehindSpace = isSpaceHere && place > 1;
        place += each.length;
    }
    return false;
}

// ^#[\w-]+[\s,\.!?]
bool isFinishedTag(QStringView tag)
{
    for (qsizetype place = 1; place < tag.size();) {
        const CodePoint each = codePointAt(tag, place);
        if (!isWord(each.value) && each.value != '-')
            return place > 1 && (isSpace(each.value) || QStringView(u",.!?").contains(tag[place]));
        place += each.length;
    }
    return false;
}

// Names by their lengths, so that a place in a text asks only for those that could end there.
class NamesByLength {
public:
    explicit NamesByLength(const QStringList& names) : m_names(names.begin(), names.end())
    {
        std::sort(m_names.begin(), m_names.end(),
                  [](QStringView left, QStringView right) { return left.size() < right.size(); });
        for (auto first = m_names.begin(); first != m_names.end();) {
            const auto last = std::find_if(first, m_names.end(), [first](QStringView each) {
                return each.size() != first->size();
            });
            m_groups.push_back({first->size(), signsOf(first, last), {first, last}});
            first = last;
        }
    }

    /// Whether the text begins with a name, and white space or nothing behind it.
    [[nodiscard]] bool anyBegins(QStringView text) const
    {
        for (const Group& group : m_groups) {
            if (group.length > text.size())
                return false;
            const QStringView begin = text.first(group.length);
            const bool mayEnd = group.length == text.size() || isSpaceAt(text, group.length);
            if (mayEnd && (group.signs & signOf(begin)) != 0 &&
                std::ranges::find(group.names, begin) != group.names.end())
                return true;
        }
        return false;
    }

private:
    using Names = std::vector<QStringView>;

    struct Group {
        qsizetype length = 0;
        std::uint64_t signs = 0; ///< of its names
        std::span<const QStringView> names;
    };

    // One bit for how a name begins: most texts begin otherwise than all names of a length.
    static std::uint64_t signOf(QStringView name)
    {
        return std::uint64_t(1) << (name.isEmpty() ? 0 : name.front().unicode() % 64);
    }
    static std::uint64_t signsOf(Names::const_iterator first, Names::const_iterator last)
    {
        return std::accumulate(
            first, last, std::uint64_t(0),
            [](std::uint64_t signs, QStringView each) { return signs | signOf(each); });
    }

    Names m_names;
    std::vector<Group> m_groups; ///< of one length each, the shortest first
};

bool beginsWithParameter(QStringView text, QStringView name)
{
    const qsizetype length = name.size();
    const bool mayEnd = length == text.size() || (length < text.size() && isSpaceAt(text, length));
    return mayEnd && text.startsWith(name);
}

} // namespace

QString currentCommandInput(QStringView text)
{
    qsizetype start = text.size();
    while (start > 0 && !partsWords(text[start - 1]))
        --start;
    const QStringView word = text.sliced(start);
    return word.startsWith(u'/') ? word.toString() : QString();
}

std::optional<QString> currentParameterInput(QStringView text)
{
    const qsizetype position = lastIndexIn(text, u'$');
    if (position < 0)
        return std::nullopt;
    const QStringView rest = text.sliced(position);
    if (isFinishedParameter(withoutNewlinesBehind(rest)))
        return std::nullopt;
    return rest.toString();
}

std::optional<QString> currentHashtagInput(QStringView text)
{
    const qsizetype position = lastIndexIn(text, u'#');
    if (position < 0 || (position > 0 && !isSpaceAt(text, position - 1)))
        return std::nullopt;
    const QStringView rest = text.sliced(position);
    if (isFinishedTag(withoutNewlinesBehind(rest)))
        return std::nullopt;
    return rest.toString();
}

bool hasExistingParameter(QStringView text, const QStringList& names)
{
    // Sorting thousands of names costs more than asking each of them at a few places.
    constexpr qsizetype fewPlaces = 8;
    const bool isSorted = text.count(u'$') > fewPlaces;
    const NamesByLength sorted(isSorted ? names : QStringList());
    for (qsizetype position = text.indexOf(u'$'); position >= 0;
         position = text.indexOf(u'$', position + 1)) {
        const QStringView rest = text.sliced(position + 1);
        const bool found = isSorted ? sorted.anyBegins(rest)
                                    : std::ranges::any_of(names, [rest](const QString& each) {
                                          return beginsWithParameter(rest, each);
                                      });
        if (found)
            return true;
    }
    return false;
}

} // namespace jotwell
