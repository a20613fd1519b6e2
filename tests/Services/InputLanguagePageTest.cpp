#include "Services/Input/CommandText.h"
#include "Services/InputFixture.h"
#include "Support/FileText.h"

namespace jotwell {

namespace {

QString plain(const QString& cell)
{
    return QString(cell).remove(u'`').replace(u"␣"_qs, u" "_qs).replace(u"⏎"_qs, u"\n"_qs);
}

/// The rows of the table with that header in the page for users, as plain text.
QList<QStringList> rowsBelow(const QString& header)
{
    QStringList lines =
        readTextFile(QStringLiteral(JOTWELL_DOCS "/input-language.md"))->split(u'\n');
    lines.remove(0, lines.indexOf(header) + 2); // and the line below
    QList<QStringList> rows;
    for (const QString& line : lines) {
        if (!line.startsWith(u'|'))
            break;
        QStringList cells = line.split(u'|');
        for (QString& cell : cells)
            cell = plain(cell.trimmed());
        rows.append(cells.mid(1));
    }
    EXPECT_GT(rows.size(), 3) << qPrintable(header);
    return rows;
}

/// What the page says, held against the program.
class InputLanguagePage : public CommandTemplateStateTest {
protected:
    /// A vault and settings as the page assumes them, and an empty text.
    void begin()
    {
        useTemplates({u"Daily Note"_qs, u"Plan"_qs});
        settings.setLastUsedTemplateId(std::nullopt);
        type(QString());
        settle();
        takeEvents();
    }

    /// The rows of the list, "closed" or "empty".
    [[nodiscard]] QString list() const
    {
        const QString rows = dropdown();
        if (!state->fields().showDropdown)
            return rows;
        return state->dropdownItems().isEmpty() ? u"empty"_qs
                                                : rows.section(u": "_qs, 1).remove(u'*');
    }

    void choose(const QString& name)
    {
        for (const auto& item : state->dropdownItems()) {
            if (Dropdown::row(item).displayName != name)
                continue;
            state->selectItem(item);
            return;
        }
        ADD_FAILURE() << qPrintable(name) << " isn't offered";
    }

    void click(const QString& token)
    {
        const TextRange range{state->text().indexOf(token), token.size()};
        if (token.startsWith(u'/'))
            state->handleCommandClick(range);
        else if (token.startsWith(u'$'))
            state->handleTemplateClick(range);
        else
            state->handleHashtagClick(range);
    }
};

TEST_F(InputLanguagePage, TellsWhatTypingDoes)
{
    for (const QStringList& row :
         rowsBelow(u"| You have typed | The text becomes | The list | Why |"_qs)) {
        begin();
        const QString typed = row.at(0) == u"nothing" ? QString() : row.at(0);
        type(typed);
        EXPECT_EQ(state->text(), row.at(1).isEmpty() ? typed : row.at(1));
        EXPECT_EQ(list(), row.at(2)) << qPrintable(typed);
        EXPECT_EQ(state->searchQuery().has_value(), row.at(3).contains(u"after a pause"));
    }
}

TEST_F(InputLanguagePage, TellsWhatChoosingDoes)
{
    for (const QStringList& row :
         rowsBelow(u"| You have typed | You choose | The text becomes | And |"_qs)) {
        begin();
        type(row.at(0));
        choose(row.at(1));
        EXPECT_EQ(state->text(), row.at(2));
        pass(std::chrono::milliseconds(0));
        const bool lists = row.at(3) == u"lists the recent notes at once";
        EXPECT_EQ(takeEvents().isEmpty(), !lists) << qPrintable(row.at(0));
    }
}

TEST_F(InputLanguagePage, TellsWhatClickingDoes)
{
    for (const QStringList& row :
         rowsBelow(u"| The text | You click | You choose | The text becomes |"_qs)) {
        begin();
        type(row.at(0));
        click(row.at(1));
        choose(row.at(2));
        EXPECT_EQ(state->text(), row.at(3));
    }
}

TEST_F(InputLanguagePage, TellsWhichNameIsRead)
{
    for (const QStringList& row : rowsBelow(u"| You run | The name is | And so |"_qs))
        EXPECT_EQ(templateNameIn(row.at(0)), row.at(1));
}

} // namespace

} // namespace jotwell
