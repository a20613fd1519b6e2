#include "Services/Index/Content/LinkPasses.h"

#include "Services/Index/Content/TextCuts.h"

#include <algorithm>

namespace jotwell {

namespace {

bool isAt(const char* place, const char* end, char byte)
{
    return place < end && *place == byte;
}

// Replaces what opens with `opening`, holds at least `shortest` bytes up to the next "]", and goes
// on with a destination, by what it holds.
void replaceLinks(QByteArray& text, QByteArrayView opening, qsizetype shortest)
{
    TextCuts cuts(text);
    const char* end = cuts.end();
    NextByte first(opening.front(), end);
    NextByte close(']', end);
    NextByte closingParenthesis(')', end);
    const char* place = first.from(cuts.begin());
    for (; place != end; place = first.from(place)) {
        const char* link = place++;
        if (!QByteArrayView(link, end).startsWith(opening))
            continue;
        const char* held = link + opening.size();
        const char* heldEnd = close.from(held);
        if (heldEnd == end)
            return; // nothing is closed from here on
        if (heldEnd - held < shortest || !isAt(heldEnd + 1, end, '('))
            continue;
        const char* destination = heldEnd + 2;
        const char* destinationEnd = closingParenthesis.from(destination);
        if (destinationEnd == end)
            return;
        if (destinationEnd == destination)
            continue;
        place = destinationEnd + 1;
        cuts.cut(link, held);
        cuts.cut(heldEnd, place);
    }
}

} // namespace

WikiLinks::WikiLinks(QByteArrayView text)
    : m_place(text.begin()), m_end(text.end()), m_opening('[', m_end), m_close(']', m_end),
      m_bar('|', m_end)
{
}

std::optional<WikiLink> WikiLinks::next()
{
    for (m_place = m_opening.from(m_place); m_place != m_end; m_place = m_opening.from(m_place)) {
        const char* opening = m_place++;
        if (!isAt(m_place, m_end, '['))
            continue;
        const char* close = m_close.from(opening + 2);
        if (close == m_end)
            break; // nothing is closed from here on
        if (const std::optional<WikiLink> link = linkAt(opening, close)) {
            m_place = link->end;
            return link;
        }
    }
    return std::nullopt;
}

// `close` is the first "]" behind the opening brackets: neither the target nor the alias goes on
// beyond it.
std::optional<WikiLink> WikiLinks::linkAt(const char* opening, const char* close)
{
    if (!isAt(close + 1, m_end, ']'))
        return std::nullopt;
    const char* target = opening + 2;
    const char* targetEnd = std::min(m_bar.from(target), close);
    const char* alias = std::min(targetEnd + 1, close);
    const bool hasEmptyAlias = targetEnd != close && alias == close;
    if (targetEnd == target || hasEmptyAlias)
        return std::nullopt;
    return WikiLink{opening, close + 2, QByteArrayView(target, targetEnd),
                    QByteArrayView(alias, close)};
}

void replaceWikiLinks(QByteArray& text)
{
    TextCuts cuts(text);
    WikiLinks links(text);
    while (const std::optional<WikiLink> link = links.next()) {
        char* target = cuts.at(link->target.begin());
        char* alias = cuts.at(link->alias.begin());
        std::rotate(target, alias, cuts.at(link->alias.end())); // "target|alias" to "aliastarget|"
        cuts.cut(link->begin, target);
        cuts.cut(target + link->alias.size() + link->target.size(), link->end);
    }
}

void removeEmbeds(QByteArray& text)
{
    TextCuts cuts(text);
    const char* end = cuts.end();
    NextByte mark('!', end);
    NextByte close(']', end);
    const char* place = mark.from(cuts.begin());
    for (; place != end; place = mark.from(place)) {
        const char* embed = place++;
        if (!isAt(embed + 1, end, '[') || !isAt(embed + 2, end, '['))
            continue;
        const char* held = embed + 3;
        const char* heldEnd = close.from(held);
        if (heldEnd == held || !isAt(heldEnd + 1, end, ']'))
            continue;
        place = heldEnd + 2;
        cuts.cut(embed, place);
    }
}

void replaceMarkdownLinks(QByteArray& text)
{
    replaceLinks(text, "[", 1);
}

void replaceImages(QByteArray& text)
{
    replaceLinks(text, "![", 0);
}

} // namespace jotwell
