#include "Views/Editor/AttributedText.h"

#include <algorithm>

namespace jotwell {

namespace {

using Packed = std::uint16_t;

constexpr unsigned weightShift = 1;
constexpr unsigned italicShift = 3;
constexpr unsigned sizeShift = 4;
constexpr unsigned colorShift = 10;

constexpr Packed fontBits = 0x03FF;
constexpr Packed colorBits = 0x0C00;
constexpr Packed expandedBit = 0x1000;
constexpr Packed underlinedBit = 0x2000;
constexpr Packed struckThroughBit = 0x4000;

constexpr unsigned sizeMask = fontBits >> sizeShift;

constexpr Packed packed(const FontStyle& font)
{
    return static_cast<Packed>(static_cast<unsigned>(font.family) |
                               static_cast<unsigned>(font.weight) << weightShift |
                               static_cast<unsigned>(font.italic) << italicShift |
                               (static_cast<unsigned>(font.size) & sizeMask) << sizeShift);
}

constexpr Packed plainFont = packed(FontStyle{});

FontStyle fontOf(unsigned bits)
{
    return {static_cast<FontFamily>(bits & 1U), static_cast<int>(bits >> sizeShift & sizeMask),
            static_cast<FontWeight>(bits >> weightShift & 3U), (bits >> italicShift & 1U) != 0};
}

TextAttributes attributesOf(Packed packed)
{
    return {fontOf(static_cast<unsigned>(packed ^ plainFont) & fontBits),
            static_cast<TextColor>((packed & colorBits) >> colorShift), (packed & expandedBit) != 0,
            (packed & underlinedBit) != 0, (packed & struckThroughBit) != 0};
}

} // namespace

AttributedText::AttributedText(qsizetype length) : m_units(static_cast<std::size_t>(length)) {}

void AttributedText::setFont(const TextRange& range, const FontStyle& font)
{
    set(range, fontBits, packed(font) ^ plainFont);
}

void AttributedText::setColor(const TextRange& range, TextColor color)
{
    set(range, colorBits, static_cast<Packed>(static_cast<unsigned>(color) << colorShift));
}

void AttributedText::expand(const TextRange& range)
{
    set(range, expandedBit, expandedBit);
}

void AttributedText::underline(const TextRange& range)
{
    set(range, underlinedBit, underlinedBit);
}

void AttributedText::strikeThrough(const TextRange& range)
{
    set(range, struckThroughBit, struckThroughBit);
}

std::vector<AttributeRun> AttributedText::runs() const
{
    std::vector<AttributeRun> runs;
    std::size_t end = 0;
    for (std::size_t start = 0; start < m_units.size(); start = end) {
        end = endOfEqual(start);
        if (m_units[start] == 0)
            continue;
        const TextRange range{static_cast<qsizetype>(start), static_cast<qsizetype>(end - start)};
        runs.push_back({range, attributesOf(m_units[start])});
    }
    return runs;
}

void AttributedText::set(const TextRange& range, Packed kind, Packed value)
{
    const auto length = static_cast<qsizetype>(m_units.size());
    const qsizetype end = std::min(range.end(), length);
    const auto keep = static_cast<Packed>(~kind);
    for (qsizetype unit = std::max<qsizetype>(range.location, 0); unit < end; ++unit) {
        Packed& packed = m_units[static_cast<std::size_t>(unit)];
        packed = static_cast<Packed>((packed & keep) | value);
    }
}

// A block at a time, which the compiler makes a few vector instructions of.
std::size_t AttributedText::endOfEqual(std::size_t from) const
{
    constexpr std::size_t block = 32;
    const Packed value = m_units[from];
    const Packed* const units = m_units.data();
    while (from + block <= m_units.size()) {
        Packed difference = 0;
        for (std::size_t k = 0; k < block; ++k)
            difference = static_cast<Packed>(difference | (units[from + k] ^ value));
        if (difference != 0)
            break;
        from += block;
    }
    while (from < m_units.size() && units[from] == value)
        ++from;
    return from;
}

} // namespace jotwell
