#pragma once

#include "Services/Index/Content/NextByte.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace jotwell {

/// A wiki link: where it stands, and its parts. A link without an alias has an empty one.
struct WikiLink {
    const char* begin = nullptr;
    const char* end = nullptr;
    QByteArrayView target;
    QByteArrayView alias;
};

/// Goes through the wiki links of a text, in linear time whatever is open or nested in it.
class WikiLinks {
public:
    explicit WikiLinks(QByteArrayView text);

    [[nodiscard]] std::optional<WikiLink> next();

private:
    [[nodiscard]] std::optional<WikiLink> linkAt(const char* opening, const char* close);

    const char* m_place;
    const char* m_end;
    NextByte m_opening;
    NextByte m_close;
    NextByte m_bar;
};

// What links leave behind in a text that is shown without them. Valid UTF-8, linear.

/// [[target|alias]] becomes aliastarget.
void replaceWikiLinks(QByteArray& text);
/// ![[target]] goes.
void removeEmbeds(QByteArray& text);
/// [text](destination) becomes text.
void replaceMarkdownLinks(QByteArray& text);
/// ![text](destination) becomes text, which may be empty.
void replaceImages(QByteArray& text);

} // namespace jotwell
