#pragma once

#include "Views/Editor/TextSelection.h"

#include <QInputMethodEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTextDocument>

#include <memory>

namespace jotwell {

/// A real text area without a window, in which an input method composes.
class ComposingArea {
public:
    ComposingArea();

    [[nodiscard]] QTextDocument& document();
    [[nodiscard]] std::unique_ptr<TextSelection> selection();

    void setCursor(int position) { m_area->setProperty("cursorPosition", position); }
    /// What it shows as being composed, underlined as input methods do, and what it commits.
    void compose(const QString& preedit, const QString& commit = {});

private:
    QQmlEngine m_engine;
    std::unique_ptr<QQuickItem> m_area;
};

} // namespace jotwell
