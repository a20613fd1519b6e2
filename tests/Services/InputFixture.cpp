#include "Services/InputFixture.h"

#include <QCoreApplication>

namespace jotwell {

namespace {

QString words(bool value)
{
    return value ? u"true"_qs : u"false"_qs;
}

QString words(DropdownType type)
{
    switch (type) {
    case DropdownType::command:
        return u"command"_qs;
    case DropdownType::noteTemplate:
        return u"template"_qs;
    case DropdownType::folder:
        return u"folder"_qs;
    case DropdownType::hashtag:
        return u"hashtag"_qs;
    case DropdownType::none:
        return u"none"_qs;
    }
    return {};
}

QString words(const QString& text)
{
    return text;
}

QString words(Command command)
{
    return rawValue(command);
}

QString words(const ObsidianTemplate& value)
{
    return value.name;
}

QString words(const FolderItem& folder)
{
    return folder.name;
}

QString words(const HashtagItem& hashtag)
{
    return u'#' + hashtag.tag;
}

QString words(const TextRange& range)
{
    return u"%1+%2"_qs.arg(range.location).arg(range.length);
}

template <typename T>
QString words(const QList<T>& rows)
{
    QStringList all;
    for (const T& each : rows)
        all.append(words(each));
    return all.join(u", "_qs);
}

template <typename T>
QString words(const std::optional<T>& value)
{
    return value ? words(*value) : u"none"_qs;
}

} // namespace

#define JOTWELL_FIELDS(each)                                                                       \
    each(showDropdown) each(dropdownType) each(selectedCommand) each(selectedTemplate)             \
        each(filteredCommands) each(filteredTemplates) each(filteredFolders)                       \
            each(filteredHashtags) each(clickedCommandRange) each(clickedTemplateRange)            \
                each(clickedHashtagRange) each(currentTemplate) each(currentFolderName)            \
                    each(selectedHashtag) each(text) each(forceTextUpdate) each(selectedFolder)

QString wordsOf(const CommandTemplateFields& fields, CommandTemplateField field)
{
    switch (field) {
#define JOTWELL_WORDS(name)                                                                        \
    case CommandTemplateField::name:                                                               \
        return words(fields.name);
        JOTWELL_FIELDS(JOTWELL_WORDS)
#undef JOTWELL_WORDS
    }
    return {};
}

QString nameOf(CommandTemplateField field)
{
    switch (field) {
#define JOTWELL_NAME(name)                                                                         \
    case CommandTemplateField::name:                                                               \
        return u## #name##_qs;
        JOTWELL_FIELDS(JOTWELL_NAME)
#undef JOTWELL_NAME
    }
    return {};
}

CommandTemplateStateTest::CommandTemplateStateTest()
{
    vault.put(u"Inbox/a.md"_qs, "#tasks");
    vault.put(u"Work/b.md"_qs, "#tasks #work");
    useTemplates({u"Daily Note"_qs});
    finished(index.buildIndex(vault.path()));
    QObject::connect(
        state.get(), &CommandTemplateState::changed, &toasts, [this](CommandTemplateField field) {
            m_changes.append(nameOf(field) + u" = "_qs + wordsOf(state->fields(), field));
        });
    QObject::connect(
        state.get(), &CommandTemplateState::scrollToSelectedItem, &toasts,
        [this](std::optional<ArrowDirection> direction) {
            const bool isUp = direction == ArrowDirection::up;
            m_events.append(!direction ? u"scroll"_qs : isUp ? u"scroll up"_qs : u"scroll down"_qs);
        });
    QObject::connect(&toasts, &ToastManager::shown, &toasts,
                     [this](const Toast& toast) { m_events.append(toast.message); });
    commands.setOnSearchResults([this](const NoteSearchResults& found) {
        m_events.append(u"%1 notes"_qs.arg(found.size()));
    });
}

QString CommandTemplateStateTest::dropdown() const
{
    const CommandTemplateFields& fields = state->fields();
    if (!fields.showDropdown)
        return u"closed"_qs;
    const auto selected = state->selectedItem();
    QStringList rows;
    for (const auto& item : state->dropdownItems()) {
        const QString name = Dropdown::row(item).displayName;
        rows.append(item == selected ? name + u'*' : name);
    }
    return words(fields.dropdownType) + u": "_qs + rows.join(u", "_qs);
}

void CommandTemplateStateTest::pass(std::chrono::milliseconds time)
{
    scheduler.advance(time);
    settle();
}

void CommandTemplateStateTest::settle()
{
    for (int round = 0; round < 6; ++round) {
        edge.background.waitForDone();
        edge.bulk.waitForDone();
        edge.database.waitForDone();
        QCoreApplication::processEvents();
    }
}

void CommandTemplateStateTest::addTags(int count)
{
    QByteArray note;
    for (int each = 0; each < count; ++each)
        note += "#many" + QByteArray::number(each).rightJustified(5, '0') + ' ';
    vault.put(u"many.md"_qs, note);
    finished(index.buildIndex(vault.path()));
}

void CommandTemplateStateTest::useTemplates(const QStringList& names)
{
    ObsidianTemplates all;
    for (const QString& name : names)
        all.append(regular(name, u"{{content}}"_qs));
    settings.setObsidianTemplates(all);
}

} // namespace jotwell
