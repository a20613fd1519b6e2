#include "Views/CommandShortcutsRow.h"

namespace jotwell {

namespace {

constexpr int newNoteRow = 0;
static_assert(allCommands[newNoteRow] == Command::newNote);

QList<ShortcutCommand> numberedCommands()
{
    QList<ShortcutCommand> all;
    for (const Command command : allCommands)
        all.append({command, static_cast<int>(all.size()) + 1});
    return all;
}

} // namespace

CommandShortcutsRow::CommandShortcutsRow(QObject* parent) : QAbstractListModel(parent) {}

const QList<ShortcutCommand>& CommandShortcutsRow::shortcutCommands()
{
    static const QList<ShortcutCommand> all = numberedCommands();
    return all;
}

bool CommandShortcutsRow::showCreateNoteButton(QStringView currentText)
{
    return currentText.contains(rawValue(Command::newNote));
}

QList<ShortcutCommand> CommandShortcutsRow::shortcutButtons(QStringView currentText)
{
    QList<ShortcutCommand> shown = shortcutCommands();
    if (showCreateNoteButton(currentText))
        shown.removeIf(
            [](const ShortcutCommand& each) { return each.command == Command::newNote; });
    return shown;
}

void CommandShortcutsRow::setCurrentText(const QString& currentText)
{
    const bool show = showCreateNoteButton(QStringView(currentText));
    if (show == m_showCreateNoteButton)
        return;
    m_showCreateNoteButton = show;
    show ? removeNewNote() : insertNewNote();
    emit showCreateNoteButtonChanged();
}

// The other buttons stay the same ones, also under the pointer.
void CommandShortcutsRow::removeNewNote()
{
    beginRemoveRows({}, newNoteRow, newNoteRow);
    m_buttons.removeAt(newNoteRow);
    endRemoveRows();
}

void CommandShortcutsRow::insertNewNote()
{
    beginInsertRows({}, newNoteRow, newNoteRow);
    m_buttons.insert(newNoteRow, shortcutCommands().at(newNoteRow));
    endInsertRows();
}

int CommandShortcutsRow::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_buttons.size());
}

QVariant CommandShortcutsRow::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ShortcutCommand& button = m_buttons.at(index.row());
    switch (role) {
    case shortcutNumber:
        return button.number;
    case icon:
        return row(button.command).icon;
    case text:
        return rawValue(button.command);
    default:
        return {};
    }
}

QHash<int, QByteArray> CommandShortcutsRow::roleNames() const
{
    return {{shortcutNumber, "shortcutNumber"}, {icon, "icon"}, {text, "text"}};
}

void CommandShortcutsRow::select(int number)
{
    for (const ShortcutCommand& each : shortcutCommands()) {
        if (each.number == number)
            emit commandSelected(each.command);
    }
}

} // namespace jotwell
