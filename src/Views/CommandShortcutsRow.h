#pragma once

#include "Models/Command.h"

#include <QAbstractListModel>
#include <QList>
#include <QStringView>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// A command and the number that its key hint names.
struct ShortcutCommand {
    Command command = Command::newNote;
    int number = 0;

    bool operator==(const ShortcutCommand&) const = default;
};

/// The row of command buttons below the text field. Its model is those commands that have a button
/// of their own beside the text of the moment. Main thread.
class CommandShortcutsRow : public QAbstractListModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(CommandShortcutsRowState)
    QML_UNCREATABLE("belongs to the state of the capture window")

    Q_PROPERTY(
        bool showCreateNoteButton READ showCreateNoteButton NOTIFY showCreateNoteButtonChanged)

public:
    enum Role { shortcutNumber = Qt::UserRole, icon, text };

    explicit CommandShortcutsRow(QObject* parent = nullptr);

    /// All commands, numbered from 1.
    [[nodiscard]] static const QList<ShortcutCommand>& shortcutCommands();
    /// The text holds the command for a new note, also inside a longer word.
    [[nodiscard]] static bool showCreateNoteButton(QStringView currentText);
    /// The commands with a button of their own beside that text.
    [[nodiscard]] static QList<ShortcutCommand> shortcutButtons(QStringView currentText);

    /// The text of the editor, at each of its changes.
    void setCurrentText(const QString& currentText);
    [[nodiscard]] bool showCreateNoteButton() const { return m_showCreateNoteButton; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The user has chosen the command of that number; other numbers are none.
    Q_INVOKABLE void select(int number);
    Q_INVOKABLE void createNote() { emit createNoteRequested(); }

signals:
    void showCreateNoteButtonChanged();
    void commandSelected(jotwell::Command command);
    void createNoteRequested();

private:
    void removeNewNote();
    void insertNewNote();

    QList<ShortcutCommand> m_buttons = shortcutCommands();
    bool m_showCreateNoteButton = false;
};

} // namespace jotwell
