#pragma once

#include "Support/TextUnits.h"

namespace jotwell {

/// The cursor or selection of a text view, and its hold on the keyboard. Ranges are the document's.
class TextSelection {
public:
    virtual ~TextSelection() = default;

    [[nodiscard]] virtual TextRange selectedRange() const = 0;
    virtual void setSelectedRange(const TextRange& range) = 0;
    [[nodiscard]] virtual bool hasFocus() const = 0;
    virtual void takeFocus() = 0;
};

} // namespace jotwell
