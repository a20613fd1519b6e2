#include "Views/Editor/MarkdownHighlighter.h"

#include "Views/Editor/AttributedText.h"
#include "Views/Editor/MarkdownRules.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr FontStyle boldFont{.weight = FontWeight::bold};
constexpr FontStyle italicFont{.italic = true};
constexpr FontStyle codeFont{.family = FontFamily::monospaced, .size = 13};
constexpr FontStyle tagFont{
    .family = FontFamily::monospaced, .size = 13, .weight = FontWeight::bold};

FontStyle titleFont(const Heading& heading)
{
    FontStyle font = boldFont;
    font.size = std::max(16, 20 - static_cast<int>(heading.marks.length));
    return font;
}

void setFonts(AttributedText& to, const std::vector<TextRange>& ranges, const FontStyle& font)
{
    for (const TextRange& range : ranges)
        to.setFont(range, font);
}

} // namespace

const MarkdownHighlighter& MarkdownHighlighter::shared()
{
    static const MarkdownHighlighter highlighter;
    return highlighter;
}

// In the order of the rules: where two touch a character, the later one decides on its font.
void MarkdownHighlighter::applyMarkdownFontStyling(AttributedText& to, QStringView text,
                                                   qsizetype limit) const
{
    const QStringView seen = text.first(limit);
    for (const Heading& heading : headings(seen)) {
        to.setFont(heading.marks, boldFont);
        to.setFont(heading.title, titleFont(heading));
    }
    setFonts(to, boldSpans(seen), boldFont);
    setFonts(to, italicSpans(seen), italicFont);
    setFonts(to, inlineCodeSpans(seen), codeFont);
    setFonts(to, codeBlocks(seen), codeFont);
    setFonts(to, listMarkers(seen), boldFont);
    for (const TextRange& name : linkNames(seen))
        to.underline(name);
    for (const TextRange& span : struckSpans(seen))
        to.strikeThrough(span);
    for (const TextRange& tag : tagWords(seen)) {
        to.setFont(tag, tagFont);
        to.setColor(tag, TextColor::black);
    }
}

} // namespace jotwell
