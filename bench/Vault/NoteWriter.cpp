#include "Vault/NoteWriter.h"

#include "Vault/NoteDraft.h"

namespace jotwell::bench {

namespace {

constexpr std::size_t roomForBlocks = 800; // bytes; what is shorter ends in plain sentences

// One random number to a statement: within one, the compiler would choose their order.

void addTwoDigits(NoteDraft& draft, std::size_t most)
{
    const std::size_t number = draft.random().between(1, most);
    draft.add(number < 10 ? "-0" : "-");
    draft.add(std::to_string(number));
}

void addDate(NoteDraft& draft)
{
    draft.add(std::to_string(2018 + draft.random().below(7)));
    addTwoDigits(draft, 12);
    addTwoDigits(draft, 28);
}

void addTagsBetween(NoteDraft& draft, const char* before, const char* between, const char* behind)
{
    draft.add(before);
    draft.addTag();
    draft.add(between);
    draft.addTag();
    draft.add(behind);
}

void addFrontMatterTags(NoteDraft& draft)
{
    const std::size_t choice = draft.random().below(3);
    draft.add("tags:");
    if (choice == 0) {
        addTagsBetween(draft, " [", ", ", "]\n");
    } else if (choice == 1) {
        addTagsBetween(draft, "\n  - ", "\n  - ", "\n");
    } else {
        draft.add(" ");
        draft.addTag();
        draft.add("\n");
    }
}

void addFrontMatter(NoteDraft& draft, const NotePlan& note)
{
    draft.add("---\ncreated: ");
    addDate(draft);
    draft.add("\n");
    if (note.hasTags && draft.random().below(5) < 3)
        addFrontMatterTags(draft);
    if (draft.room() > 500) {
        draft.add("aliases: [");
        draft.addPlainWord();
        draft.add("]\nstatus: ");
        draft.addPlainWord();
        draft.add("\n");
    }
    draft.add("---\n");
}

/// A line that has all that the note is planned to have, so that a short one has it too.
void addOpening(NoteDraft& draft, const NotePlan& note)
{
    draft.add(draft.random().oneIn(3) ? "# " : "");
    draft.addWords(2);
    draft.add(" ");
    if (note.script != Script::plain)
        draft.addForeignWord();
    draft.add("\n\n");
    if (note.hasTags) {
        draft.add("#");
        draft.addTag();
        draft.add("\n");
    }
    if (note.hasLinks) {
        draft.addLink();
        draft.add("\n\n");
    }
}

void addHeading(NoteDraft& draft)
{
    static constexpr const char* marks[] = {"## ", "## ", "### ", "# "};
    draft.add("\n");
    draft.add(marks[draft.random().below(4)]);
    draft.addWords(draft.random().between(1, 5));
    draft.add("\n\n");
}

void addParagraph(NoteDraft& draft)
{
    for (std::size_t rest = draft.random().between(2, 6); rest > 0 && draft.room() > 0; --rest) {
        draft.addSentence();
        draft.add(rest > 1 ? " " : "\n\n");
    }
}

void addList(NoteDraft& draft)
{
    static constexpr const char* marks[] = {"- ", "- ", "* ", "- [ ] ", "- [x] ", "\t- ", "> "};
    const char* mark = marks[draft.random().below(7)];
    const bool isNumbered = draft.random().oneIn(5);
    const std::size_t count = draft.random().between(2, 7);
    for (std::size_t item = 1; item <= count; ++item) {
        draft.add(isNumbered ? std::to_string(item) + ". " : mark);
        if (draft.random().oneIn(2))
            draft.addSentence();
        else
            draft.addWords(draft.random().between(1, 6));
        draft.add("\n");
    }
    draft.add("\n");
}

void addCode(NoteDraft& draft)
{
    static constexpr const char* languages[] = {"", "python", "js", "bash", "cpp"};
    draft.add("```");
    draft.add(languages[draft.random().below(5)]);
    draft.add("\n");
    for (std::size_t line = draft.random().between(3, 24); line > 0; --line) {
        draft.add(draft.random().oneIn(3) ? "    " : "");
        draft.addPlainWord();
        draft.add(" = ");
        draft.addPlainWord();
        draft.add("_of(" + std::to_string(draft.random().below(1000)) + ", *");
        draft.addPlainWord();
        draft.add(");\n");
    }
    draft.add("```\n\n");
}

void addTable(NoteDraft& draft)
{
    draft.add("| ");
    draft.addPlainWord();
    draft.add(" | ");
    draft.addPlainWord();
    draft.add(" |\n| --- | --- |\n");
    for (std::size_t row = draft.random().between(2, 6); row > 0; --row) {
        draft.add("| ");
        draft.addWords(2);
        draft.add(" | ");
        draft.addWords(2);
        draft.add(" |\n");
    }
    draft.add("\n");
}

void addBlock(NoteDraft& draft)
{
    const std::size_t choice = draft.random().below(100);
    if (choice < 12)
        addHeading(draft);
    else if (choice < 34)
        addList(draft);
    else if (choice < 52)
        addCode(draft);
    else if (choice < 54)
        addTable(draft);
    else if (choice < 56)
        draft.add("***\n\n");
    else
        addParagraph(draft);
}

} // namespace

std::string noteText(const NotePlan& note, const VaultPlan& plan, const Vocabulary& vocabulary)
{
    NoteDraft draft(note, plan, vocabulary);
    if (note.hasFrontMatter)
        addFrontMatter(draft, note);
    addOpening(draft, note);
    while (draft.room() > roomForBlocks)
        addBlock(draft);
    while (draft.room() > 0)
        addParagraph(draft);
    return draft.finished();
}

} // namespace jotwell::bench
