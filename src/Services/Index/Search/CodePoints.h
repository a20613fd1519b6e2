#pragma once

#include "Services/Index/Content/Utf8Classes.h"

#include <QByteArrayView>

namespace jotwell {

/// The character that begins at `at`, a place within the text. Never reads beyond the text,
/// whatever it holds. Any thread.
[[nodiscard]] inline Utf8Character codePointAt(QByteArrayView text, qsizetype at)
{
    const auto lead = static_cast<uchar>(text[at]);
    const qsizetype left = text.size() - at;
    if ((lead >= 0xF0 && left < 4) || (lead >= 0xE0 && left < 3) || (lead >= 0x80 && left < 2))
        return {0xFFFD, static_cast<int>(left)};
    return characterAt(text.data() + at);
}

/// Where the character begins that ends before `at`, a place behind the text's beginning.
[[nodiscard]] inline qsizetype codePointBefore(QByteArrayView text, qsizetype at)
{
    --at;
    while (at > 0 && isContinuationByte(text[at]))
        --at;
    return at;
}

} // namespace jotwell
