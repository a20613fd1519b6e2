#include "Services/ContentReference.h"

#include "Support/IcuRegex.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <QStringList>

#include <algorithm>
#include <memory>

namespace jotwell::reference {

namespace {

using OfSet = bool (*)(QChar unit);

icu::UnicodeString unicodeString(QStringView text)
{
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

// A pattern and what its matches are replaced by, in ICU's own words.
class Replacement {
public:
    Replacement(QStringView pattern, QStringView replacement)
        : m_pattern(icu::RegexPattern::compile(unicodeString(pattern), 0, m_where, m_status)),
          m_replacement(unicodeString(replacement))
    {
    }

    [[nodiscard]] QString in(const QString& text) const
    {
        UErrorCode status = m_status;
        const icu::UnicodeString input = unicodeString(text);
        const std::unique_ptr<icu::RegexMatcher> matcher(m_pattern->matcher(input, status));
        const icu::UnicodeString result = matcher->replaceAll(m_replacement, status);
        if (U_FAILURE(status))
            qFatal("ICU gave up: %s", u_errorName(status));
        return QString(reinterpret_cast<const QChar*>(result.getBuffer()), result.length());
    }

private:
    UParseError m_where{};
    UErrorCode m_status = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexPattern> m_pattern;
    icu::UnicodeString m_replacement;
};

QStringList split(QStringView text, OfSet isOfSet)
{
    QStringList pieces;
    const auto* start = text.begin();
    for (;;) {
        const auto* end = std::find_if(start, text.end(), isOfSet);
        pieces.append(QStringView(start, end).toString());
        if (end == text.end())
            return pieces;
        start = end + 1;
    }
}

QString trimmed(QStringView text, OfSet isOfSet)
{
    while (!text.isEmpty() && isOfSet(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isOfSet(text.back()))
        text.chop(1);
    return text.toString();
}

std::vector<RegexMatch> matchesOf(const IcuRegex& regex, const QString& text)
{
    return regex.matches(text, TextRange{0, utf16Length(text)});
}

QString textOf(const QString& text, TextRange range)
{
    return text.mid(range.location, range.length);
}

QString withoutLineMarks(QString line)
{
    static const Replacement headings(u"^#{1,6}\\s+", u"");
    static const Replacement listMarks(u"^[\\s]*[-*+]\\s+", u"");
    static const Replacement numbers(u"^[\\s]*\\d+\\.\\s+", u"");
    static const Replacement quotes(u"^>\\s?", u"");
    line = headings.in(line);
    if (QString(line).remove(u'-').isEmpty() && line.size() >= 3)
        line.clear();
    line = listMarks.in(line);
    line = numbers.in(line);
    return quotes.in(line);
}

TagSet firstGroups(const IcuRegex& regex, const QString& text)
{
    TagSet tags;
    for (const RegexMatch& match : matchesOf(regex, text))
        insertTag(tags, textOf(text, *match.groups[1]).toLower());
    return tags;
}

void insertTagsOfLine(TagSet& tags, QString line)
{
    if (line.startsWith(u"tags:") || line.startsWith(u"tag:")) {
        const QString value =
            trimmed(line.replace(u"tags:"_qs, u""_qs).replace(u"tag:"_qs, u""_qs), isOfBlankSet);
        if (value.startsWith(u'[') && value.endsWith(u']')) {
            const QString list = value.sliced(1).chopped(1);
            for (const QString& piece : list.split(u',', Qt::SkipEmptyParts))
                insertTag(tags, trimmed(piece, isOfBlankSet).toLower());
        } else if (!value.isEmpty()) {
            insertTag(tags, value.toLower());
        }
    } else if (line.startsWith(u"  - ")) {
        insertTag(tags, trimmed(line.replace(u"  - "_qs, u""_qs), isOfBlankSet).toLower());
    }
}

} // namespace

ProcessedContent processContent(const QString& raw)
{
    const WithoutCode withoutCode = extractCodeBlocks(raw);
    const QString plain = removeObsidianSyntax(withoutCode.text);
    const QString cleaned = normalizeText(plain);
    return {cleaned, withoutCode.codeBlocks, extractWikiLinks(withoutCode.text),
            extractHashtags(plain), countWords(cleaned)};
}

WithoutCode extractCodeBlocks(const QString& text)
{
    static const IcuRegex fences(u"```(\\w+)?\\n([\\s\\S]*?)```");
    static const Replacement inlineCode(u"`([^`]+)`", u" $1 ");
    WithoutCode result{text, {}};
    const std::vector<RegexMatch> matches = matchesOf(fences, text);
    for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
        CodeBlock block;
        if (match->groups[1])
            block.language = textOf(text, *match->groups[1]);
        block.content = textOf(text, *match->groups[2]);
        block.startLine = split(result.text.left(match->range().location), isOfNewlineSet).size();
        block.endLine = block.startLine + split(block.content, isOfNewlineSet).size();
        result.codeBlocks.prepend(block);
        result.text.replace(match->range().location, match->range().length, u" [code] "_qs);
    }
    result.text = inlineCode.in(result.text);
    return result;
}

QSet<QString> extractWikiLinks(const QString& text)
{
    static const IcuRegex links(u"\\[\\[([^\\]|]+)(?:\\|[^\\]]+)?\\]\\]");
    QSet<QString> targets;
    for (const RegexMatch& match : matchesOf(links, text))
        targets.insert(textOf(text, *match.groups[1]));
    return targets;
}

QString removeObsidianSyntax(const QString& text)
{
    static const Replacement wikiLinks(u"\\[\\[([^\\]|]+)(?:\\|([^\\]]+))?\\]\\]", u"$2$1");
    static const Replacement embeds(u"!\\[\\[([^\\]]+)\\]\\]", u"");
    static const Replacement links(u"\\[([^\\]]+)\\]\\([^)]+\\)", u"$1");
    static const Replacement images(u"!\\[([^\\]]*)\\]\\([^)]+\\)", u"$1");
    static const Replacement blockReferences(u"\\^[\\w-]+", u"");
    QString plain = text;
    for (const Replacement* step : {&wikiLinks, &embeds, &links, &images, &blockReferences})
        plain = step->in(plain);
    for (const char* literal : {"**", "__", "*", "_", "~~"})
        plain.replace(QLatin1String(literal), QLatin1String());
    QStringList lines = split(plain, isOfNewlineSet);
    std::transform(lines.begin(), lines.end(), lines.begin(), withoutLineMarks);
    return lines.join(u'\n');
}

TagSet extractHashtags(const QString& text)
{
    static const IcuRegex tags(u"(?<![\\w/])#([a-zA-Z0-9_-]+)");
    return firstGroups(tags, text);
}

QString normalizeText(const QString& text)
{
    static const Replacement spaces(u"\\s+", u" ");
    static const Replacement lineEnds(u"\\n{3,}", u"\n\n");
    QStringList lines = split(lineEnds.in(spaces.in(text)), isOfNewlineSet);
    std::transform(lines.begin(), lines.end(), lines.begin(),
                   [](const QString& line) { return trimmed(line, isOfBlankSet); });
    return trimmed(lines.join(u'\n'), isOfWhitespaceSet);
}

qint64 countWords(const QString& text)
{
    const QStringList pieces = split(text, isOfWhitespaceSet);
    return std::count_if(pieces.begin(), pieces.end(),
                         [](const QString& piece) { return !piece.isEmpty(); });
}

TagSet extractFrontmatterTags(const QString& text)
{
    TagSet tags;
    bool isInside = false;
    for (const QString& line : split(text, isOfNewlineSet)) {
        if (line == u"---") {
            if (isInside)
                return tags;
            isInside = true;
        } else if (isInside) {
            insertTagsOfLine(tags, line);
        }
    }
    return tags;
}

TagSet extractContentTags(const QString& text)
{
    static const IcuRegex tags(u"(?<!`)#([a-zA-Z0-9_-]+)");
    return firstGroups(tags, text);
}

bool isOfNewlineSet(QChar unit)
{
    const char16_t code = unit.unicode();
    return (code >= 0xA && code <= 0xD) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

bool isOfBlankSet(QChar unit)
{
    return unit == u'\t' || unit.category() == QChar::Separator_Space;
}

bool isOfWhitespaceSet(QChar unit)
{
    return isOfNewlineSet(unit) || unit.category() == QChar::Separator_Space ||
           unit.category() == QChar::Separator_Line ||
           unit.category() == QChar::Separator_Paragraph;
}

} // namespace jotwell::reference
