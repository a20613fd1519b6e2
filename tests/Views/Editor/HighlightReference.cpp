#include "Views/Editor/HighlightReference.h"

#include "Support/IcuRegex.h"
#include "Views/Editor/AttributedText.h"
#include "Views/Editor/MarkdownHighlighter.h"
#include "Views/Editor/ReadyNames.h"

#include <algorithm>
#include <map>

namespace jotwell {

namespace {

const IcuRegex& compiled(const QString& pattern)
{
    static std::map<QString, IcuRegex> all;
    auto place = all.find(pattern);
    if (place == all.end())
        place = all.emplace(pattern, IcuRegex(pattern)).first;
    return place->second;
}

std::vector<TextRange> matchesOf(const QString& pattern, std::size_t group, QStringView text,
                                 qsizetype limit)
{
    std::vector<TextRange> ranges;
    for (const RegexMatch& match : compiled(pattern).matches(text, TextRange{0, limit})) {
        if (match.groups.at(group))
            ranges.push_back(*match.groups[group]);
    }
    return ranges;
}

using Units = std::vector<TextAttributes>;

template <typename Change>
void style(Units& units, const TextRange& range, Change change)
{
    const auto start = units.begin() + range.location;
    std::for_each(start, start + range.length, change);
}

void setFont(Units& units, const TextRange& range, const FontStyle& font)
{
    style(units, range, [font](TextAttributes& unit) { unit.font = font; });
}

std::vector<AttributeRun> runsOf(const Units& units)
{
    std::vector<AttributeRun> runs;
    for (std::size_t unit = 0; unit < units.size(); ++unit) {
        if (units[unit] == TextAttributes{})
            continue;
        if (unit > 0 && units[unit] == units[unit - 1])
            ++runs.back().range.length;
        else
            runs.push_back({{static_cast<qsizetype>(unit), 1}, units[unit]});
    }
    return runs;
}

constexpr FontStyle bold14{FontFamily::system, 14, FontWeight::bold, false};
constexpr FontStyle italic14{FontFamily::system, 14, FontWeight::regular, true};
constexpr FontStyle mono13{FontFamily::monospaced, 13, FontWeight::regular, false};
constexpr FontStyle tag13{FontFamily::monospaced, 13, FontWeight::bold, false};
constexpr FontStyle chip14{FontFamily::monospaced, 14, FontWeight::medium, false};
constexpr FontStyle hashtag14{FontFamily::monospaced, 14, FontWeight::bold, false};

void styleByName(Units& units, const std::string& rule, const TextRange& range)
{
    static const std::map<std::string, FontStyle> fonts = {
        {"bold", bold14},       {"italic", italic14},    {"inline code", mono13},
        {"code block", mono13}, {"list marker", bold14}, {"tag", tag13}};
    if (const auto font = fonts.find(rule); font != fonts.end())
        setFont(units, range, font->second);
    if (rule == "link")
        style(units, range, [](TextAttributes& unit) { unit.isUnderlined = true; });
    if (rule == "strikethrough")
        style(units, range, [](TextAttributes& unit) { unit.isStruckThrough = true; });
    if (rule == "tag")
        style(units, range, [](TextAttributes& unit) { unit.color = TextColor::black; });
}

void addMarkdown(Units& units, QStringView text, qsizetype limit)
{
    for (const Heading& heading : plainHeadings(text, limit)) {
        setFont(units, heading.marks, bold14);
        FontStyle font = bold14;
        font.size = std::max(16, 20 - static_cast<int>(heading.marks.length));
        setFont(units, heading.title, font);
    }
    for (const MarkdownRule& rule : markdownRules()) {
        for (const TextRange& range : rule.plain(text, limit))
            styleByName(units, rule.name, range);
    }
}

void addChip(Units& units, const TextRange& range, TextColor color)
{
    style(units, range, [color](TextAttributes& unit) {
        unit.color = color;
        unit.font = chip14;
        unit.isExpanded = true;
    });
}

std::vector<TextRange> plainParameters(QStringView text, qsizetype limit, const QString& command,
                                       const QStringList& names)
{
    std::vector<TextRange> parameters;
    if (!text.contains(command))
        return parameters;
    for (const TextRange& match : matchesOf(u"\\$"_qs, 0, text, limit)) {
        if (match.location + 1 >= limit || !text.first(match.location).contains(command))
            continue;
        for (const QString& name : names) {
            const qsizetype end = std::min(match.location + 1 + characterCount(name), limit);
            const QStringView stretch = text.sliced(match.location, end - match.location);
            if (stretch != QString(u'$' + name))
                continue;
            parameters.push_back({match.location, end - match.location});
            break;
        }
    }
    return parameters;
}

std::string describedFont(const FontStyle& font)
{
    std::string words = font.family == FontFamily::monospaced ? " mono" : "";
    words += " " + std::to_string(font.size);
    if (font.weight != FontWeight::regular)
        words += font.weight == FontWeight::bold ? " bold" : " medium";
    return words + (font.italic ? " italic" : "");
}

std::string describedLook(const TextAttributes& look)
{
    std::string words = look.font == FontStyle{} ? "" : describedFont(look.font);
    static const std::map<TextColor, std::string> colors = {{TextColor::text, ""},
                                                            {TextColor::systemBlue, " blue"},
                                                            {TextColor::systemGreen, " green"},
                                                            {TextColor::black, " black"}};
    words += colors.at(look.color);
    words += look.isExpanded ? " expanded" : "";
    words += look.isUnderlined ? " underlined" : "";
    return words + (look.isStruckThrough ? " struck" : "");
}

std::string describedRange(QStringView text, const TextRange& range)
{
    return std::to_string(range.location) + ":" +
           text.sliced(range.location, range.length).toString().toStdString();
}

} // namespace

std::vector<TextRange> MarkdownRule::plain(QStringView text, qsizetype limit) const
{
    return matchesOf(pattern, group, text, limit);
}

const std::vector<MarkdownRule>& markdownRules()
{
    static const std::vector<MarkdownRule> rules = {
        {"bold", uR"((\*\*|__)(.*?)\1)"_qs, 0, boldSpans},
        {"italic", uR"((?<!\*)(\*|_)(?!\*)([^\*_]+?)\1(?!\*))"_qs, 0, italicSpans},
        {"inline code", u"`([^`]+)`"_qs, 0, inlineCodeSpans},
        {"code block", uR"(```[\s\S]*?```)"_qs, 0, codeBlocks},
        {"list marker", uR"((?m)^\s*([\-\*\+])\s+)"_qs, 1, listMarkers},
        {"link", uR"(\[([^\]]+)\]\(([^\)]+)\))"_qs, 1, linkNames},
        {"strikethrough", u"~~(.*?)~~"_qs, 0, struckSpans},
        {"tag", uR"(#\w+)"_qs, 0, tagWords}};
    return rules;
}

std::vector<Heading> plainHeadings(QStringView text, qsizetype limit)
{
    std::vector<Heading> headings;
    for (const RegexMatch& match :
         compiled(uR"((?m)^(#{1,6})\s+(.*)$)"_qs).matches(text, TextRange{0, limit}))
        headings.push_back({match.groups.at(1).value(), match.groups.at(2).value()});
    return headings;
}

std::vector<AttributeRun> plainMarkdown(QStringView text, qsizetype limit)
{
    Units units(static_cast<std::size_t>(text.size()));
    addMarkdown(units, text, limit);
    return runsOf(units);
}

HighlightedText plainHighlight(QStringView text, qsizetype limit, const QStringList& templates,
                               const QStringList& folders)
{
    HighlightedText result;
    Units units(static_cast<std::size_t>(text.size()));
    addMarkdown(units, text, limit);
    result.tokens.commands = matchesOf(uR"((?:^|\s)(/[\w-]+))"_qs, 1, text, limit);
    for (const TextRange& command : result.tokens.commands)
        addChip(units, command, TextColor::systemBlue);
    result.tokens.templates = plainParameters(text, limit, u"/new_note"_qs, templates);
    for (const TextRange& folder : plainParameters(text, limit, u"/recent"_qs, folders))
        result.tokens.templates.push_back(folder);
    for (const TextRange& parameter : result.tokens.templates)
        addChip(units, parameter, TextColor::systemGreen);
    result.tokens.hashtags = matchesOf(uR"((?:^|\s)(#[\w-]+))"_qs, 1, text, limit);
    for (const TextRange& hashtag : result.tokens.hashtags) {
        style(units, hashtag, [](TextAttributes& unit) { unit.color = TextColor::text; });
        setFont(units, hashtag, hashtag14);
    }
    result.runs = runsOf(units);
    return result;
}

std::optional<TextRange> plainSlashWordAt(QStringView text, qsizetype limit, qsizetype cursor)
{
    std::optional<TextRange> last;
    for (const TextRange& word : matchesOf(uR"((/[\w-]+))"_qs, 1, text, limit)) {
        if (word.location <= cursor && cursor <= word.end())
            last = word;
    }
    return last;
}

std::vector<AttributeRun> quickMarkdown(QStringView text, qsizetype limit)
{
    AttributedText attributed(text.size());
    MarkdownHighlighter::shared().applyMarkdownFontStyling(attributed, text, limit);
    return attributed.runs();
}

HighlightedText quickHighlight(QStringView text, qsizetype limit, const QStringList& templates,
                               const QStringList& folders)
{
    AttributedText attributed(text.size());
    MarkdownHighlighter::shared().applyMarkdownFontStyling(attributed, text, limit);
    ReadyNames names({[&] { return templates; }, [&] { return folders; }});
    HighlightedText result;
    result.tokens = highlightTokens(attributed, text, limit, names);
    result.runs = attributed.runs();
    return result;
}

std::string described(QStringView text, const std::vector<AttributeRun>& runs)
{
    std::string words;
    for (const AttributeRun& run : runs) {
        words += words.empty() ? "" : "; ";
        words += describedRange(text, run.range) + describedLook(run.attributes);
    }
    return words;
}

std::string described(QStringView text, const std::vector<TextRange>& ranges)
{
    std::string words;
    for (const TextRange& range : ranges)
        words += (words.empty() ? "" : "; ") + describedRange(text, range);
    return words;
}

std::string described(QStringView text, const HighlightedText& highlighted)
{
    const TokenRanges& tokens = highlighted.tokens;
    return described(text, highlighted.runs) + " | " + described(text, tokens.commands) + " | " +
           described(text, tokens.templates) + " | " + described(text, tokens.hashtags);
}

} // namespace jotwell
