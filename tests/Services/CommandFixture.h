#pragma once

#include "Services/CommandService.h"
#include "Services/NoteServices.h"

#include <gtest/gtest.h>

namespace jotwell {

/// The command service over a fresh vault, with a listener that notes down what it is handed.
class CommandServiceTest : public testing::Test, protected NoteServices {
public:
    ~CommandServiceTest() override
    {
        edge.bulk.waitForDone();
        edge.database.waitForDone();
    }

protected:
    CommandServiceTest()
    {
        commands.setOnSearchResults([this](const NoteSearchResults& notes) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            events.append(u"%1 notes"_qs.arg(notes.size()));
        });
        QObject::connect(&toasts, &ToastManager::shown, &toasts,
                         [this](const Toast& toast) { events.append(toast.message); });
    }

    bool execute(Command command, const QString& text)
    {
        return finished(commands.executeCommand(command, text));
    }

    /// The content of the one note in the vault.
    [[nodiscard]] QByteArray onlyNote() const
    {
        const QStringList names = vault.names();
        return names.size() == 1 ? vault.bytesOf(names.first()) : "(not one note)";
    }

    CommandService commands{notes, settings, toasts, edge.background};
    QStringList events; ///< lists delivered and toasts shown, in their order
};

} // namespace jotwell
