#pragma once

#include "Views/Editor/TextAttributes.h"
#include "Views/Editor/TokenHighlighter.h"

#include <QStringView>

#include <vector>

namespace jotwell {

/// How a text looks in the editor: stretches that aren't plain, in the order of the text, and the
/// tokens in it.
struct StyledText {
    std::vector<AttributeRun> runs;
    TokenRanges tokens;
};

/// Markdown first, then the tokens, which win where both touch a character. Looks at as many UTF-16
/// units as the text has characters; what stands behind them stays plain. Main thread, where the
/// names are asked for.
[[nodiscard]] StyledText styledText(QStringView text, ReadyNames& names);

} // namespace jotwell
