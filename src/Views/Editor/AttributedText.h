#pragma once

#include "Views/Editor/TextAttributes.h"

#include <cstdint>
#include <vector>

namespace jotwell {

/// The attributes of a text, which is plain at first. A later call overwrites what an earlier one
/// has set of the same kind; parts of a range beyond the text are passed over. Any thread, one at a
/// time.
class AttributedText {
public:
    /// `length` in UTF-16 units.
    explicit AttributedText(qsizetype length);

    /// Font sizes from 0 to 63.
    void setFont(const TextRange& range, const FontStyle& font);
    void setColor(const TextRange& range, TextColor color);
    void expand(const TextRange& range);
    void underline(const TextRange& range);
    void strikeThrough(const TextRange& range);

    /// The longest stretches of equal attributes that aren't plain, in their order.
    [[nodiscard]] std::vector<AttributeRun> runs() const;

private:
    /// All attributes of one unit of the text; 0 is plain.
    using Packed = std::uint16_t;

    void set(const TextRange& range, Packed kind, Packed value);
    [[nodiscard]] std::size_t endOfEqual(std::size_t from) const;

    std::vector<Packed> m_units;
};

} // namespace jotwell
