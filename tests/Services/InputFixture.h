#pragma once

#include "Services/CommandService.h"
#include "Services/CommandTemplateManager.h"
#include "Services/NoteServices.h"
#include "Services/TemplateSyncService.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

/// The value of a field in few words: "true", "/recent", "Daily Note", "Inbox Work", "11+4",
/// "none".
[[nodiscard]] QString wordsOf(const CommandTemplateFields& fields, CommandTemplateField field);
[[nodiscard]] QString nameOf(CommandTemplateField field);

/// The input state over a vault with the folders "Inbox" and "Work" and two tags, and with one
/// template, "Daily Note".
class CommandTemplateStateTest : public testing::Test, protected NoteServices {
public:
    ~CommandTemplateStateTest() override { settle(); }

protected:
    CommandTemplateStateTest();

    /// What a user's edit does.
    void type(const QString& text)
    {
        state->setText(text);
        state->handleTextChange();
    }
    /// The open list and its rows, the selected one with a star: "folder: Inbox* Work"; "closed".
    [[nodiscard]] QString dropdown() const;
    /// The fields as they were assigned since the last call, as "text = /recent".
    QStringList takeChanges() { return std::exchange(m_changes, {}); }
    QStringList takeEvents() { return std::exchange(m_events, {}); }

    /// Lets time pass, and what is begun by it end.
    void pass(std::chrono::milliseconds time);
    void settle();

    void addTags(int count);
    void useTemplates(const QStringList& names);

    CommandService commands{notes, settings, toasts, edge.background};
    TemplateSyncService templates{edge.platform, settings};
    FakeScheduler scheduler; ///< of the input state alone
    const InputServices services{commands, settings, notes, index, templates, scheduler};
    std::unique_ptr<CommandTemplateState> state = std::make_unique<CommandTemplateState>(services);

private:
    QStringList m_changes;
    QStringList m_events; ///< lists delivered, toasts shown and requests to scroll
};

} // namespace jotwell
