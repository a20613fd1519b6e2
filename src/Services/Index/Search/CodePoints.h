#pragma once

#include <QByteArrayView>

namespace jotwell {

/// One character of a UTF-8 text and where the next one begins.
struct CodePoint {
    char32_t value = 0;
    qsizetype end = 0;
};

[[nodiscard]] inline bool isContinuationByte(char byte)
{
    return (static_cast<uchar>(byte) & 0xC0) == 0x80;
}

/// The character that begins at `at`, a place within the text. Never reads beyond the text,
/// whatever it holds. Any thread.
[[nodiscard]] inline CodePoint codePointAt(QByteArrayView text, qsizetype at)
{
    const auto lead = static_cast<uchar>(text[at]);
    if (lead < 0x80)
        return {lead, at + 1};
    const qsizetype length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length > text.size() - at)
        return {0xFFFD, text.size()};
    char32_t value = lead & (0xFFU >> (length + 1));
    for (qsizetype i = 1; i < length; ++i)
        value = value << 6 | (static_cast<uchar>(text[at + i]) & 0x3F);
    return {value, at + length};
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
