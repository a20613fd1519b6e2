#pragma once

#include "Views/Editor/TextSelection.h"

#include <QTextCursor>

namespace jotwell {

/// The selection in a document that nobody looks at: stands exactly where it is put, and has the
/// keyboard once it has taken it.
class DocumentSelection : public TextSelection {
public:
    explicit DocumentSelection(QTextDocument& document) : m_cursor(&document) {}

    [[nodiscard]] TextRange selectedRange() const override
    {
        const int start = m_cursor.selectionStart();
        return {start, m_cursor.selectionEnd() - start};
    }
    void setSelectedRange(const TextRange& range) override
    {
        m_cursor.setPosition(static_cast<int>(range.location));
        m_cursor.setPosition(static_cast<int>(range.end()), QTextCursor::KeepAnchor);
    }
    [[nodiscard]] bool hasFocus() const override { return m_hasFocus; }
    void takeFocus() override { m_hasFocus = true; }

    /// Puts `text` in its place, as a user does who types it.
    void type(const QString& text) { m_cursor.insertText(text); }

private:
    QTextCursor m_cursor;
    bool m_hasFocus = false;
};

} // namespace jotwell
