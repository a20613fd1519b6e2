#pragma once

#include "Views/Editor/TextSelection.h"

#include <QPointer>
#include <QQuickItem>

namespace jotwell {

/// Where the cursor goes that is asked to stand at `position`: never into the middle of a
/// character.
[[nodiscard]] int cursorPosition(QStringView text, qsizetype position);

/// The selection of a QML text area, which may go before it.
class TextAreaSelection : public TextSelection {
public:
    explicit TextAreaSelection(QQuickItem& area) : m_area(&area) {}

    [[nodiscard]] TextRange selectedRange() const override;
    void setSelectedRange(const TextRange& range) override;
    [[nodiscard]] bool hasFocus() const override;
    void takeFocus() override;

private:
    QPointer<QQuickItem> m_area;
};

} // namespace jotwell
