#pragma once

#include "Platform/KeyNames.h"
#include "Views/CommandShortcutsRow.h"
#include "Views/KeyCaps.h"

#include <QObject>
#include <QStringList>

namespace jotwell {

/// The state of the shortcuts row, what was asked of it in words, and a keyboard whose Command key
/// can be called Ctrl.
class ShortcutsBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(QObject* shortcuts READ shortcuts CONSTANT)
    Q_PROPERTY(QStringList asked MEMBER m_asked)

public:
    explicit ShortcutsBench(QObject* parent = nullptr) : QObject(parent)
    {
        connect(&m_row, &CommandShortcutsRow::commandSelected, this,
                [this](Command command) { m_asked.append(rawValue(command)); });
        connect(&m_row, &CommandShortcutsRow::createNoteRequested, this,
                [this] { m_asked.append(QStringLiteral("Create Note")); });
    }
    ~ShortcutsBench() override { KeyCaps::ofAllViews().setNames(nullptr); }

    [[nodiscard]] QObject* shortcuts() { return &m_row; }
    Q_INVOKABLE void setCurrentText(const QString& text) { m_row.setCurrentText(text); }
    Q_INVOKABLE void writeWordsOnKeys() { KeyCaps::ofAllViews().setNames(&m_words); }

private:
    struct Words : KeyNames {
        [[nodiscard]] QString nameOf(const QString& key) const override
        {
            return key == QStringLiteral("⌘") ? QStringLiteral("Ctrl") : key;
        }
    };

    Words m_words;
    CommandShortcutsRow m_row;
    QStringList m_asked;
};

} // namespace jotwell
