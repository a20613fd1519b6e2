#include "Views/Editor/EditorStyles.h"

#include "Views/Editor/EditorDocument.h"
#include "Views/SystemFonts.h"

#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <limits>
#include <utility>

namespace jotwell {

namespace {

constexpr int isOurs = QTextFormat::UserProperty + 1;
constexpr int expandedStretch = 105; // percent

QFont::Weight weightOf(FontWeight weight)
{
    switch (weight) {
    case FontWeight::medium:
        return QFont::Medium;
    case FontWeight::bold:
        return QFont::Bold;
    case FontWeight::regular:
        break;
    }
    return QFont::Normal;
}

// What others have set, such as the line under what is being composed.
QList<QTextLayout::FormatRange> foreignFormats(const QTextLayout& layout)
{
    QList<QTextLayout::FormatRange> formats = layout.formats();
    formats.removeIf(
        [](const QTextLayout::FormatRange& each) { return each.format.boolProperty(isOurs); });
    return formats;
}

// A layout counts what is being composed as part of its text.
void makeRoomForComposition(const QTextLayout& layout, QTextLayout::FormatRange& range)
{
    const auto length = static_cast<int>(layout.preeditAreaText().size());
    if (length == 0)
        return;
    const int at = layout.preeditAreaPosition();
    if (range.start >= at)
        range.start += length;
    else if (range.start + range.length > at)
        range.length += length;
}

} // namespace

/// What a paragraph shows; goes with it.
class EditorStyles::StyledParagraph : public QTextBlockUserData {
public:
    StyledParagraph(std::vector<StyleRun> its, int ofGeneration)
        : runs(std::move(its)), generation(ofGeneration)
    {
    }

    const std::vector<StyleRun> runs;
    const int generation;
};

void EditorStyles::setColors(const Colors& colors)
{
    if (m_colors == colors)
        return;
    m_colors = colors;
    m_formats.clear();
    ++m_generation;
}

void EditorStyles::apply(const EditorDocument& text, const std::vector<AttributeRun>& runs,
                         const std::vector<TextRange>& emoji)
{
    if (!text.document())
        return;
    const std::vector<StyleRun> all = styleRuns(text, runs, emoji);
    auto next = all.begin();
    std::pair changed(std::numeric_limits<int>::max(), 0);
    int end = 0; // asking each paragraph for its position takes its time
    for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next()) {
        const int start = end;
        end += block.length();
        std::vector<StyleRun> own;
        for (; next != all.end() && next->start < end; ++next) {
            const int from = std::max(next->start, start);
            const int to = std::min(next->start + next->length, end);
            own.push_back({from - start, to - from, next->style});
            if (next->start + next->length > end)
                break;
        }
        const bool isStripped = text.isChanged(start, end) && hasOthers(block, own);
        if (isStripped || !isShown(block, own)) {
            show(block, std::move(own));
            changed.first = std::min(changed.first, start);
            changed.second = end;
        }
    }
    // All at once: for each by itself all that stands behind it would be laid out again.
    if (changed.first < changed.second)
        text.document()->markContentsDirty(changed.first, changed.second - changed.first);
}

// Emoji are cut out of the runs, since what overlaps is merged by no one.
std::vector<EditorStyles::StyleRun> EditorStyles::styleRuns(const EditorDocument& text,
                                                            const std::vector<AttributeRun>& runs,
                                                            const std::vector<TextRange>& emoji)
{
    std::vector<StyleRun> all;
    const auto add = [&](qsizetype from, qsizetype to, const Style& style) {
        const int start = text.toDocument(from);
        const int length = text.toDocument(to) - start;
        if (length > 0 && style != Style())
            all.push_back({start, length, style});
    };
    auto face = emoji.begin();
    const auto addPart = [&](qsizetype from, qsizetype to, const TextAttributes& attributes) {
        while (from < to) {
            while (face != emoji.end() && face->end() <= from)
                ++face;
            const bool isEmoji = face != emoji.end() && face->location <= from;
            const qsizetype border = face == emoji.end() ? to
                                     : isEmoji           ? face->end()
                                                         : face->location;
            add(from, std::min(to, border), {attributes, isEmoji});
            from = std::min(to, border);
        }
    };
    qsizetype at = 0;
    for (const AttributeRun& run : runs) {
        addPart(at, run.range.location, {});
        addPart(run.range.location, run.range.end(), run.attributes);
        at = run.range.end();
    }
    addPart(at, utf16Length(text.string()), {});
    return all;
}

// An input method sets its own formats in place of all others, at its end none. Asking a layout for
// its formats copies them.
bool EditorStyles::hasOthers(const QTextBlock& block, const std::vector<StyleRun>& runs)
{
    const QList<QTextLayout::FormatRange> formats = block.layout()->formats();
    return formats.size() != static_cast<qsizetype>(runs.size()) ||
           (!formats.isEmpty() && !formats.first().format.boolProperty(isOurs));
}

bool EditorStyles::isShown(const QTextBlock& block, const std::vector<StyleRun>& runs) const
{
    const auto* shown = static_cast<const StyledParagraph*>(block.userData());
    return shown ? shown->generation == m_generation && shown->runs == runs : runs.empty();
}

void EditorStyles::show(QTextBlock& block, std::vector<StyleRun> runs)
{
    setFormats(block, runs);
    block.setUserData(new StyledParagraph(std::move(runs), m_generation));
}

void EditorStyles::keepUp(const QTextBlock& block)
{
    const auto* shown = static_cast<const StyledParagraph*>(block.userData());
    if (!shown)
        return;
    setFormats(block, shown->runs);
    const_cast<QTextDocument*>(block.document())
        ->markContentsDirty(block.position(), block.length());
}

void EditorStyles::setFormats(const QTextBlock& block, const std::vector<StyleRun>& runs)
{
    QTextLayout& layout = *block.layout();
    QList<QTextLayout::FormatRange> formats;
    formats.reserve(static_cast<qsizetype>(runs.size()));
    for (const StyleRun& run : runs) {
        QTextLayout::FormatRange range{run.start, run.length, formatOf(run.style)};
        makeRoomForComposition(layout, range);
        formats.append(range);
    }
    layout.setFormats(formats + foreignFormats(layout));
}

const QTextCharFormat& EditorStyles::formatOf(const Style& style)
{
    const auto known = std::find_if(m_formats.begin(), m_formats.end(),
                                    [&style](const auto& each) { return each.first == style; });
    if (known != m_formats.end())
        return known->second;
    return m_formats.emplace_back(style, makeFormat(style)).second;
}

QTextCharFormat EditorStyles::makeFormat(const Style& style) const
{
    const TextAttributes& its = style.attributes;
    const SystemFonts& fonts = SystemFonts::shared();
    QTextCharFormat format;
    format.setProperty(isOurs, true);
    if (style.isEmoji)
        format.setFontFamilies(fonts.emoji);
    else if (its.font.family == FontFamily::monospaced)
        format.setFontFamilies(fonts.monospaced);
    format.setProperty(QTextFormat::FontPixelSize, its.font.size);
    format.setFontWeight(weightOf(its.font.weight));
    format.setFontItalic(its.font.italic);
    if (its.isExpanded)
        format.setFontStretch(expandedStretch);
    if (its.color == TextColor::systemBlue)
        format.setForeground(m_colors.systemBlue);
    else if (its.color == TextColor::systemGreen)
        format.setForeground(m_colors.systemGreen);
    else if (its.color == TextColor::black)
        format.setForeground(Qt::black);
    format.setFontUnderline(its.isUnderlined);
    format.setFontStrikeOut(its.isStruckThrough);
    return format;
}

} // namespace jotwell
