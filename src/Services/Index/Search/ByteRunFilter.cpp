#include "Services/Index/Search/ByteRunFilter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

namespace jotwell {

namespace {

// How many of a thousand bytes of notes are such, roughly.
qsizetype commonness(MaskedByte byte)
{
    constexpr std::string_view letters = "etaoinsrhldcumfpgwybvkxjqz";
    const auto rank = letters.find(static_cast<char>(byte.value | byte.mask));
    if (rank != std::string_view::npos)
        return 90 - 3 * static_cast<qsizetype>(rank);
    if (byte.value == ' ')
        return 160;
    if (byte.value >= 0xC0)
        return 300; // much the same one in all of a script
    const qsizetype alone = byte.value >= 0x80 ? 15 : 8;
    return alone << std::min(std::popcount(byte.mask), 4);
}

} // namespace

void MaskedByte::admit(uchar byte)
{
    mask |= (value ^ byte) & ~mask;
    value |= mask;
}

ByteRunFilter::ByteRunFilter(std::span<const MaskedByte> run)
    : m_size(static_cast<qsizetype>(run.size()))
{
    std::array<uchar, longestRun> masks;
    std::array<uchar, longestRun> values;
    masks.fill(0xFF);
    values.fill(0xFF);
    for (std::size_t i = 0; i < run.size(); ++i) {
        masks[i] = run[i].mask;
        values[i] = run[i].value;
    }
    std::memcpy(&m_mask, masks.data(), sizeof m_mask);
    std::memcpy(&m_value, values.data(), sizeof m_value);
    chooseRarest(run);
}

void ByteRunFilter::chooseRarest(std::span<const MaskedByte> run)
{
    std::array<qsizetype, 2> least{1000, 1000};
    std::array<std::size_t, 2> places{};
    for (std::size_t i = 0; i < run.size(); ++i) {
        const qsizetype common = commonness(run[i]);
        if (common < least[0]) {
            least = {common, least[0]};
            places = {i, places[0]};
        } else if (common <= least[1]) {
            least[1] = common;
            places[1] = i;
        }
    }
    m_expectedHits = least[0] * least[1];
    for (std::size_t i = 0; i < places.size(); ++i) {
        m_rarest[i].place = places[i];
        m_rarest[i].masks.fill(run[places[i]].mask);
        m_rarest[i].values.fill(run[places[i]].value);
    }
}

} // namespace jotwell
