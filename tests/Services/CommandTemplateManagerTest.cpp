#include "Services/CommandTemplateManager.h"

#include "Services/CommandService.h"
#include "Services/NoteServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <memory>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommandTemplateStateTest : public testing::Test, protected NoteServices {
protected:
    CommandTemplateStateTest()
    {
        const auto note = [this](const QString& event) {
            return [this, event] { events.append(event); };
        };
        QObject::connect(state.get(), &CommandTemplateState::textChanged, &toasts,
                         note(u"text"_qs));
        QObject::connect(state.get(), &CommandTemplateState::forceTextUpdateChanged, &toasts,
                         note(u"force"_qs));
        QObject::connect(state.get(), &CommandTemplateState::currentTemplateChanged, &toasts,
                         note(u"template"_qs));
    }

    bool executeText(const QString& text)
    {
        state->setText(text);
        state->setCurrentTemplate(ObsidianTemplate::meetingTemplate());
        events.clear();
        return finished(state->executeCommand());
    }

    CommandService commands{notes, settings, toasts, edge.background};
    std::unique_ptr<CommandTemplateState> state = std::make_unique<CommandTemplateState>(commands);
    QStringList events;
};

TEST_F(CommandTemplateStateTest, StartsEmpty)
{
    EXPECT_EQ(state->text(), QString());
    EXPECT_FALSE(state->forceTextUpdate());
    EXPECT_EQ(state->currentTemplate(), std::nullopt);
}

TEST_F(CommandTemplateStateTest, TellsOfChangesOnly)
{
    state->setText(u"a"_qs);
    state->setText(u"a"_qs);
    state->setForceTextUpdate(true);
    state->setForceTextUpdate(true);
    state->setCurrentTemplate(ObsidianTemplate::meetingTemplate());
    state->setCurrentTemplate(ObsidianTemplate::meetingTemplate());
    EXPECT_THAT(events, ElementsAre(u"text"_qs, u"force"_qs, u"template"_qs));
}

TEST_F(CommandTemplateStateTest, TextWithoutACommandStays)
{
    EXPECT_FALSE(executeText(u"buy milk"_qs));
    EXPECT_EQ(state->text(), u"buy milk"_qs);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_THAT(vault.names(), IsEmpty());
    EXPECT_THAT(log.shown, IsEmpty());
}

TEST_F(CommandTemplateStateTest, SuccessClearsTheText)
{
    EXPECT_TRUE(executeText(u"/new_note milk"_qs));
    EXPECT_THAT(vault.names(), ElementsAre(u"milk - 2024-03-05 144607.md"_qs));
    EXPECT_EQ(state->text(), QString());
    EXPECT_TRUE(state->forceTextUpdate());
    EXPECT_EQ(state->currentTemplate(), std::nullopt);
    EXPECT_THAT(events, ElementsAre(u"text"_qs, u"force"_qs, u"template"_qs));
}

TEST_F(CommandTemplateStateTest, ListOfNotesClearsTheTextToo)
{
    vault.put(u"a.md"_qs);
    EXPECT_TRUE(executeText(u"/recent"_qs));
    EXPECT_EQ(state->text(), QString());
    EXPECT_TRUE(state->forceTextUpdate());
}

TEST_F(CommandTemplateStateTest, EmptyListIsASuccess)
{
    EXPECT_TRUE(executeText(u"/recent"_qs));
    EXPECT_EQ(state->text(), QString());
}

TEST_F(CommandTemplateStateTest, FailureKeepsTheTextAndTheTemplate)
{
    edge.files.failAt(1, ENOSPC);
    EXPECT_FALSE(executeText(u"/new_note milk"_qs));
    EXPECT_EQ(state->text(), u"/new_note milk"_qs);
    EXPECT_FALSE(state->forceTextUpdate());
    EXPECT_EQ(state->currentTemplate(), ObsidianTemplate::meetingTemplate());
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(CommandTemplateStateTest, FailedListKeepsTheText)
{
    settings.setObsidianFolderPath(std::nullopt);
    EXPECT_FALSE(executeText(u"/recent"_qs));
    EXPECT_EQ(state->text(), u"/recent"_qs);
}

TEST_F(CommandTemplateStateTest, NewNoteGoesBeforeRecent)
{
    EXPECT_TRUE(executeText(u"x /recent y /new_note"_qs));
    EXPECT_THAT(vault.names(), ElementsAre(u"x -recent y - 2024-03-05 144607.md"_qs));
}

TEST_F(CommandTemplateStateTest, CommandHasTheTextOfItsStart)
{
    state->setText(u"/new_note milk"_qs);
    auto executing = state->executeCommand();
    state->setText(u"/new_note bread"_qs);
    EXPECT_TRUE(finished(std::move(executing)));
    EXPECT_THAT(vault.names(), ElementsAre(u"milk - 2024-03-05 144607.md"_qs));
    EXPECT_EQ(state->text(), QString()); // what was typed meanwhile goes as well
}

TEST_F(CommandTemplateStateTest, StateThatIsGoneMeanwhileIsLeftAlone)
{
    state->setText(u"/new_note milk"_qs);
    auto executing = state->executeCommand();
    state.reset();
    EXPECT_TRUE(finished(std::move(executing)));
    EXPECT_THAT(vault.names(), ElementsAre(u"milk - 2024-03-05 144607.md"_qs));
}

} // namespace

} // namespace jotwell
