#include "Views/Editor/MarkdownRules.h"

#include "Views/Editor/TextScan.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr qsizetype deepestHeading = 6;

TextRange between(qsizetype start, qsizetype end)
{
    return {start, end - start};
}

bool isLineStart(QStringView text, qsizetype place)
{
    return place == 0 || isNewline(text[place - 1].unicode());
}

bool isSpaceAt(QStringView text, qsizetype place)
{
    return place < text.size() && isSpace(text[place].unicode());
}

// Where the line of a list marker begins, with nothing but spaces before the marker; -1 if it
// doesn't.
qsizetype lineStartBefore(QStringView text, qsizetype marker)
{
    qsizetype place = marker;
    while (!isLineStart(text, place)) {
        if (!isSpace(text[place - 1].unicode()))
            return -1;
        --place;
    }
    return place;
}

/// A mark of two equal units, and where the next one stands that hasn't been dealt with.
struct PairedMark {
    char16_t unit = 0;
    qsizetype next = 0;

    void moveTo(QStringView text, qsizetype place) { next = findRepeated(text, unit, 2, place); }
};

PairedMark& firstOf(std::vector<PairedMark>& marks)
{
    return *std::min_element(
        marks.begin(), marks.end(),
        [](const PairedMark& left, const PairedMark& right) { return left.next < right.next; });
}

// If a mark has no counterpart in its line, neither has any other like it up to the line's end, so
// the next one to look at is the one that would have been the counterpart.
std::vector<TextRange> pairedSpans(QStringView text, std::vector<PairedMark> marks)
{
    std::vector<TextRange> spans;
    for (PairedMark& mark : marks)
        mark.moveTo(text, 0);
    for (;;) {
        PairedMark& mark = firstOf(marks);
        const qsizetype start = mark.next;
        if (start == text.size())
            return spans;
        mark.moveTo(text, start + 2);
        const qsizetype last = mark.next;
        if (last == text.size() || findNewline(text.first(last), start + 2) != last)
            continue;
        spans.push_back(between(start, last + 2));
        for (PairedMark& each : marks) {
            if (each.next < last + 2)
                each.moveTo(text, last + 2);
        }
    }
}

} // namespace

std::vector<Heading> headings(QStringView text)
{
    std::vector<Heading> found;
    qsizetype next = 0;
    for (;;) {
        const qsizetype start = find(text, u'#', next);
        if (start == text.size())
            return found;
        next = start + 1;
        if (!isLineStart(text, start))
            continue;
        while (next < text.size() && text[next] == u'#' && next - start < deepestHeading)
            ++next;
        if (!isSpaceAt(text, next))
            continue;
        const qsizetype title = afterSpaces(text, next);
        const qsizetype end = findNewline(text, title);
        found.push_back({between(start, next), between(title, end)});
        next = end;
    }
}

std::vector<TextRange> boldSpans(QStringView text)
{
    return pairedSpans(text, {{u'*'}, {u'_'}});
}

std::vector<TextRange> italicSpans(QStringView text)
{
    const auto findMark = [text](qsizetype from) {
        return findUnit(text, from, [](char16_t unit) { return unit == u'*' || unit == u'_'; });
    };
    const auto isStarAt = [text](qsizetype place) {
        return place >= 0 && place < text.size() && text[place] == u'*';
    };
    std::vector<TextRange> spans;
    qsizetype start = findMark(0);
    while (start < text.size()) {
        const qsizetype end = findMark(start + 1);
        const bool isSpan = end < text.size() && end > start + 1 && text[end] == text[start] &&
                            !isStarAt(start - 1) && !isStarAt(end + 1);
        if (isSpan)
            spans.push_back(between(start, end + 1));
        start = isSpan ? findMark(end + 1) : end;
    }
    return spans;
}

std::vector<TextRange> inlineCodeSpans(QStringView text)
{
    std::vector<TextRange> spans;
    qsizetype start = find(text, u'`', 0);
    while (start < text.size()) {
        const qsizetype end = find(text, u'`', start + 1);
        const bool isSpan = end < text.size() && end > start + 1;
        if (isSpan)
            spans.push_back(between(start, end + 1));
        start = isSpan ? find(text, u'`', end + 1) : end;
    }
    return spans;
}

std::vector<TextRange> codeBlocks(QStringView text)
{
    constexpr qsizetype fence = 3;
    std::vector<TextRange> blocks;
    qsizetype start = findRepeated(text, u'`', fence, 0);
    while (start < text.size()) {
        const qsizetype last = findRepeated(text, u'`', fence, start + fence);
        if (last == text.size())
            break;
        blocks.push_back(between(start, last + fence));
        start = findRepeated(text, u'`', fence, last + fence);
    }
    return blocks;
}

std::vector<TextRange> listMarkers(QStringView text)
{
    const auto isMarker = [](char16_t unit) {
        return unit == u'-' || unit == u'*' || unit == u'+';
    };
    std::vector<TextRange> markers;
    qsizetype matchEnd = 0;
    for (qsizetype marker = findUnit(text, 0, isMarker); marker < text.size();
         marker = findUnit(text, marker + 1, isMarker)) {
        // The match before has taken all spaces behind its marker, line ends and all.
        if (!isSpaceAt(text, marker + 1) || lineStartBefore(text, marker) < matchEnd)
            continue;
        markers.push_back({marker, 1});
        matchEnd = afterSpaces(text, marker + 1);
    }
    return markers;
}

std::vector<TextRange> linkNames(QStringView text)
{
    std::vector<TextRange> names;
    qsizetype next = 0;
    for (;;) {
        const qsizetype start = find(text, u'[', next);
        const qsizetype end = find(text, u']', start + 1);
        if (end >= text.size())
            return names;
        // All brackets before `end` share it: what keeps one from being a link keeps all.
        next = end + 1;
        if (end == start + 1 || next == text.size() || text[next] != u'(')
            continue;
        const qsizetype last = find(text, u')', end + 2);
        if (last == text.size())
            return names;
        if (last == end + 2)
            continue;
        names.push_back(between(start + 1, end));
        next = last + 1;
    }
}

std::vector<TextRange> struckSpans(QStringView text)
{
    return pairedSpans(text, {{u'~'}});
}

std::vector<TextRange> tagWords(QStringView text)
{
    std::vector<TextRange> tags;
    for (qsizetype mark = find(text, u'#', 0); mark < text.size();) {
        const qsizetype end = afterWord(text, mark + 1);
        if (end > mark + 1)
            tags.push_back(between(mark, end));
        mark = find(text, u'#', end);
    }
    return tags;
}

} // namespace jotwell
