#include "Services/InputFixture.h"

#include "Services/Input/CommandText.h"
#include "Services/Input/InputSamples.h"
#include "Services/Input/PartialTokens.h"

#include <algorithm>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

// Whether all of `part` stands in `whole`, in its order but perhaps with other text between.
bool isHeldBy(QStringView part, QStringView whole)
{
    qsizetype found = 0;
    for (const QChar unit : whole) {
        if (found < part.size() && part[found] == unit)
            ++found;
    }
    return found == part.size();
}

QString withoutWhiteSpace(QString text)
{
    return text.removeIf([](QChar unit) { return isWhitespace(unit); });
}

/// Does by chance what a user can do, and looks after each step at what always holds. Each of the
/// seeds is one user.
class InputPropertyTest : public CommandTemplateStateTest,
                          public testing::WithParamInterface<unsigned> {
protected:
    static constexpr int steps = 250'000;
    static constexpr int stepsOfAPause = 250;

    InputPropertyTest()
    {
        state->disconnect(); // what is recorded would grow with every step
        toasts.disconnect();
        QObject::connect(state.get(), &CommandTemplateState::changed, state.get(),
                         [this](CommandTemplateField field) {
                             m_isRewritten |= field == CommandTemplateField::text;
                         });
        QObject::connect(&toasts, &ToastManager::shown, &toasts, [this] { ++m_runs; });
        useTemplates({u"Daily Note"_qs, u"Day"_qs, u"a.*b"_qs, u"N\U0001d49c x"_qs, u"$"_qs});
        folderOfVault = settings.obsidianFolderPath();
    }

    QString anyText() { return m_samples.text(4); }
    bool chance(int oneIn) { return m_samples.below(oneIn) == 0; }
    TextRange anyRange()
    {
        const int length = static_cast<int>(state->text().size());
        if (chance(10))
            return {m_samples.below(200) - 100, m_samples.below(200) - 100};
        const int location = m_samples.below(length + 1);
        return {location, m_samples.below(length - location + 1)};
    }

    void step()
    {
        m_isRewritten = false;
        switch (m_samples.below(12)) {
        case 0:
            return edit(anyText());
        case 1:
        case 2:
        case 3:
            return edit(state->text() + anyText());
        case 4:
            return edit(changedInTheMiddle());
        case 5:
            return edit(state->text().chopped(std::min<qsizetype>(state->text().size(), 2)));
        case 6:
            return pressArrow();
        case 7:
            return chooseARow();
        case 8:
            return click();
        case 9:
            return chooseAnything();
        case 10:
            state->setForceTextUpdate(chance(2));
            return;
        default:
            if (chance(3))
                state->closeDropdowns();
        }
    }

    QString changedInTheMiddle()
    {
        QString text = state->text();
        const TextRange range = clamped(anyRange(), text);
        return text.replace(range.location, std::min(range.length, qsizetype(3)), anyText());
    }

    void edit(QString text)
    {
        if (text.size() > 80)
            text = anyText();
        const bool isClicked = state->fields().clickedCommandRange.has_value() ||
                               state->fields().clickedTemplateRange.has_value();
        state->setForceTextUpdate(false);
        state->setText(text);
        m_isRewritten = false;
        state->handleTextChange();
        ASSERT_TRUE(isHeldBy(text, state->text())) << "what was typed is lost";
        ASSERT_EQ(m_isRewritten, state->text() != text);
        ASSERT_EQ(m_isRewritten, state->forceTextUpdate());
        if (isClicked) {
            ASSERT_EQ(state->text(), text);
            ASSERT_FALSE(state->fields().showDropdown);
            return;
        }
        m_query = searchQueryIn(state->text());
        if (!state->text().contains(u"/search_notes"_qs))
            m_query.clear();
    }

    void pressArrow()
    {
        const auto direction = chance(2) ? ArrowDirection::up : ArrowDirection::down;
        const bool isUsed = state->fields().showDropdown && !state->dropdownItems().isEmpty();
        ASSERT_EQ(state->handleArrowKey(direction), isUsed);
        ASSERT_FALSE(m_isRewritten);
    }

    void click()
    {
        const TextRange range = anyRange();
        const int kind = m_samples.below(3);
        if (kind == 0)
            state->handleCommandClick(range);
        else if (kind == 1)
            state->handleTemplateClick(range);
        else
            state->handleHashtagClick(range);
        ASSERT_FALSE(m_isRewritten);
        ASSERT_TRUE(state->fields().showDropdown);
    }

    void chooseARow()
    {
        const auto selected = state->selectedItem();
        const bool isUsed = state->fields().showDropdown && selected;
        if (!isUsed) {
            ASSERT_FALSE(state->handleEnterKey());
        } else {
            choose(*selected, [this] { ASSERT_TRUE(state->handleEnterKey()); });
        }
    }

    void chooseAnything()
    {
        const ObsidianTemplates known = settings.obsidianTemplates();
        CommandTemplateState::Item item = known[m_samples.below(static_cast<int>(known.size()))];
        switch (m_samples.below(4)) {
        case 0:
            item = allCommands[m_samples.below(3)];
            break;
        case 1:
            item = FolderItem{m_samples.anyOf({u"Inbox"_qs, u"All Folders"_qs})};
            break;
        case 2:
            item = HashtagItem{m_samples.anyOf({u"work"_qs, u"\U0001f600"_qs}), 1};
            break;
        default:
            break;
        }
        choose(item, [&] { state->selectItem(item); });
    }

    template <typename Choosing>
    void choose(const CommandTemplateState::Item& item, Choosing choosing)
    {
        const QString text = state->text();
        const CommandTemplateFields before = state->fields();
        const auto pending = scheduler.pendingCount();
        state->setForceTextUpdate(false);
        choosing();
        ASSERT_FALSE(state->fields().showDropdown);
        if (m_isRewritten) {
            ASSERT_TRUE(state->forceTextUpdate());
        }
        if (const auto* const command = std::get_if<Command>(&item))
            expectCommandPutInto(text, *command, before);
        else if (std::holds_alternative<HashtagItem>(item))
            expectTokenPutInto(text, u'#', before.clickedHashtagRange);
        else
            expectTokenPutInto(text, u'$', before.clickedTemplateRange);
        const auto started = scheduler.pendingCount() - pending;
        const bool runs = std::holds_alternative<FolderItem>(item);
        ASSERT_TRUE(started == 0 || started == 1);
        ASSERT_TRUE(!runs || started == 1);
        m_runsExpected += static_cast<int>(started);
    }

    // All that stood beside the token stands there still.
    void expectTokenPutInto(const QString& text, QChar sign,
                            const std::optional<TextRange>& clicked)
    {
        if (!clicked) {
            const QString kept = text.left(text.lastIndexOf(sign));
            ASSERT_TRUE(!m_isRewritten || state->text().startsWith(kept));
            return;
        }
        const TextRange range = clamped(*clicked, text);
        ASSERT_TRUE(state->text().startsWith(text.first(range.location)));
        ASSERT_TRUE(state->text().endsWith(text.sliced(range.end())));
    }

    void expectCommandPutInto(const QString& text, Command command,
                              const CommandTemplateFields& before)
    {
        if (!m_isRewritten)
            return;
        const bool leaves = command != Command::newNote && text.contains(u"/new"_qs);
        if (leaves)
            return; // parameters go, and with them whatever their ranges hit
        ASSERT_TRUE(state->text().contains(rawValue(command)));
        QString kept = text.chopped(currentCommandInput(text).size());
        if (before.clickedCommandRange) {
            const TextRange range = clamped(*before.clickedCommandRange, text);
            kept = text.first(range.location) + text.sliced(range.end());
        }
        ASSERT_TRUE(isHeldBy(withoutWhiteSpace(kept), state->text()));
    }

    void expectAllThatAlwaysHolds() const
    {
        const CommandTemplateFields& fields = state->fields();
        if (fields.dropdownType == DropdownType::none) {
            ASSERT_FALSE(fields.showDropdown);
            ASSERT_FALSE(fields.selectedCommand || fields.selectedTemplate ||
                         fields.selectedFolder || fields.selectedHashtag);
            ASSERT_FALSE(fields.clickedCommandRange || fields.clickedTemplateRange ||
                         fields.clickedHashtagRange);
        }
        ASSERT_FALSE(fields.clickedCommandRange && fields.clickedTemplateRange);
        ASSERT_EQ(state->searchQuery().value_or(QString()), m_query);
        const auto items = state->dropdownItems();
        const auto selected = state->selectedItem();
        ASSERT_EQ(selected.has_value(), !items.isEmpty());
        if (selected) {
            ASSERT_TRUE(std::ranges::count(items, *selected) == 1);
        }
        expectSelectionsOfOtherLists(fields);
        ASSERT_LE(fields.filteredHashtags.size(), 20);
    }

    static void expectSelectionsOfOtherLists(const CommandTemplateFields& fields)
    {
        if (fields.dropdownType == DropdownType::command) {
            ASSERT_FALSE(fields.selectedTemplate);
        } else {
            ASSERT_FALSE(fields.selectedCommand);
        }
        if (fields.dropdownType == DropdownType::hashtag) {
            ASSERT_FALSE(fields.selectedTemplate || fields.selectedFolder);
        }
    }

    // Time passes: of all the searches that were begun one at most is left, and every run of
    // recent notes. Without a vault each of them shows one toast and is done.
    void pause()
    {
        settings.setObsidianFolderPath(std::nullopt);
        m_runs = 0;
        pass(300ms);
        const int expected = m_runsExpected + (m_query.isEmpty() ? 0 : 1);
        ASSERT_EQ(m_runs, expected);
        m_runsExpected = 0;
        m_query.clear();
        ASSERT_EQ(scheduler.pendingCount(), 0u);
        settings.setObsidianFolderPath(folderOfVault);
    }

    QString folderOfVault;

private:
    InputSamples m_samples{GetParam()};
    bool m_isRewritten = false;
    QString m_query; ///< of the search that is to wait; empty if none is
    int m_runs = 0;
    int m_runsExpected = 0;
};

TEST_P(InputPropertyTest, HoldsAfterEveryStep)
{
    for (int each = 0; each < steps; ++each) {
        step();
        expectAllThatAlwaysHolds();
        if (each % stepsOfAPause == 0)
            pause();
        ASSERT_FALSE(HasFatalFailure()) << "step " << each;
    }
}

INSTANTIATE_TEST_SUITE_P(Users, InputPropertyTest, testing::Values(1u, 2u, 3u, 4u));

} // namespace

} // namespace jotwell
