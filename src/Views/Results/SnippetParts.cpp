#include "Views/Results/SnippetParts.h"

#include "Support/TextUnits.h"

#include <algorithm>
#include <array>
#include <vector>

namespace jotwell {

namespace {

struct Tag {
    QString text;
    bool opens = false;
};

const Tag* tagAt(QStringView text)
{
    static const std::array tags{Tag{QStringLiteral("<mark>"), true},
                                 Tag{QStringLiteral("</mark>"), false}};
    const auto* const found =
        std::ranges::find_if(tags, [text](const Tag& tag) { return text.startsWith(tag.text); });
    return found == tags.end() ? nullptr : found;
}

// Where whole characters begin and end in a text, asked from its start on.
class Boundaries {
public:
    explicit Boundaries(QStringView text) : m_all(characterBoundaries(text)) {}
    [[nodiscard]] bool contains(qsizetype position) const
    {
        return std::ranges::binary_search(m_all, position);
    }

private:
    std::vector<qsizetype> m_all;
};

void append(SnippetParts& parts, QStringView text, bool isHighlighted)
{
    if (!text.isEmpty())
        parts.append({text.toString(), isHighlighted});
}

} // namespace

SnippetParts parseSnippet(const QString& snippet)
{
    const QStringView text = snippet;
    const Boundaries boundaries(text);
    SnippetParts parts;
    bool isHighlighted = false;
    qsizetype start = 0;
    qsizetype at = text.indexOf(u'<');
    while (at >= 0) {
        const Tag* const tag = tagAt(text.sliced(at));
        const qsizetype end = tag ? at + tag->text.size() : at + 1;
        if (tag && boundaries.contains(at) && boundaries.contains(end)) {
            // What stands before a closing tag is marked, also if nothing has opened it.
            append(parts, text.sliced(start, at - start), isHighlighted || !tag->opens);
            isHighlighted = tag->opens;
            start = end;
        }
        at = text.indexOf(u'<', end);
    }
    append(parts, text.sliced(start), isHighlighted);
    return parts;
}

QString plainText(const SnippetParts& parts)
{
    QString text;
    for (const SnippetPart& part : parts)
        text += part.text;
    return text;
}

} // namespace jotwell
