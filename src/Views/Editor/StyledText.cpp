#include "Views/Editor/StyledText.h"

#include "Views/Editor/AttributedText.h"
#include "Views/Editor/MarkdownHighlighter.h"
#include "Views/Editor/ReadyNames.h"

namespace jotwell {

StyledText styledText(QStringView text, ReadyNames& names)
{
    const qsizetype count = characterCount(text);
    AttributedText attributes(utf16Length(text));
    MarkdownHighlighter::shared().applyMarkdownFontStyling(attributes, text, count);
    TokenRanges tokens = highlightTokens(attributes, text, count, names);
    return {attributes.runs(), std::move(tokens)};
}

} // namespace jotwell
