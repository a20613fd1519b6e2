#include "Vault/NoteDraft.h"

namespace jotwell::bench {

namespace {

constexpr std::uint64_t purpose = 100;
constexpr std::size_t firstTag = 200; // rank of the word
constexpr std::size_t tagCount = 600;

bool isTrail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

NoteDraft::NoteDraft(const NotePlan& note, const VaultPlan& plan, const Vocabulary& vocabulary)
    : m_note(note), m_plan(plan), m_vocabulary(vocabulary), m_random(mixed(purpose, note.number))
{
    m_text.reserve(note.size + 1000);
}

std::size_t NoteDraft::room() const
{
    return m_text.size() < m_note.size ? m_note.size - m_text.size() : 0;
}

void NoteDraft::addWords(std::size_t count)
{
    for (std::size_t word = 0; word < count; ++word) {
        if (word > 0 && m_note.script != Script::han)
            m_text += ' ';
        m_text += m_vocabulary.randomWord(m_note.script, m_random);
    }
}

void NoteDraft::addSentence()
{
    const bool isHan = m_note.script == Script::han;
    m_text += capitalised(m_vocabulary.randomWord(m_note.script, m_random));
    for (std::size_t rest = m_random.between(4, 18); rest > 0; --rest) {
        if (m_random.oneIn(9))
            m_text += isHan ? "，" : ",";
        if (!isHan)
            m_text += ' ';
        addDecoratedWord();
    }
    m_text += isHan ? "。" : ".";
}

void NoteDraft::addDecoratedWord()
{
    const std::size_t choice = m_random.below(360);
    if (choice < 6) {
        addWord("**", "**");
    } else if (choice < 9) {
        addWord("*", "*");
    } else if (choice < 13) {
        addCall();
    } else if (choice < 14) {
        addAddress();
    } else if (choice < 19 && m_note.hasLinks) {
        addLink();
    } else if (choice < 22 && m_note.hasTags) {
        m_text += '#';
        addTag();
    } else if (choice < 36 && m_note.script == Script::emoji) {
        m_text += randomEmoji(m_random);
    } else {
        addWord("", "");
    }
}

void NoteDraft::addWord(const char* before, const char* behind)
{
    m_text += before;
    m_text += m_vocabulary.randomWord(m_note.script, m_random);
    m_text += behind;
}

// Word by word: in one expression the compiler would choose the order of the random numbers.

void NoteDraft::addCall()
{
    m_text += '`';
    addPlainWord();
    m_text += '_';
    addPlainWord();
    m_text += "()`";
}

void NoteDraft::addAddress()
{
    m_text += "https://";
    addPlainWord();
    m_text += ".example/";
    addPlainWord();
    for (std::size_t more = m_random.between(0, 5); more > 0; --more) {
        m_text += '-';
        addPlainWord();
    }
}

void NoteDraft::addNoteTitle()
{
    // A note in ASCII stays so.
    for (int attempt = 0; attempt < 8; ++attempt) {
        const NotePlan& target = m_plan.notes[m_random.below(m_plan.notes.size())];
        if (target.script == Script::plain || m_note.script != Script::plain) {
            m_text += noteTitle(target, m_vocabulary);
            return;
        }
    }
    addPlainWord();
}

void NoteDraft::addLink()
{
    const std::size_t choice = m_random.below(6);
    if (choice == 0) {
        m_text += "![[";
        addPlainWord();
        m_text += ".png]]";
    } else if (choice == 1) {
        m_text += '[';
        addPlainWord();
        m_text += "](";
        addAddress();
        m_text += ')';
    } else {
        m_text += "[[";
        addNoteTitle();
        if (choice == 2) {
            m_text += '|';
            addPlainWord();
        }
        m_text += "]]";
    }
}

void NoteDraft::addTag()
{
    const double draw = m_random.share();
    const auto rank = firstTag + static_cast<std::size_t>(draw * draw * draw * tagCount);
    m_text += m_vocabulary.word(Script::plain, rank);
}

void NoteDraft::addPlainWord()
{
    m_text += m_vocabulary.randomWord(Script::plain, m_random);
}

void NoteDraft::addForeignWord()
{
    if (m_note.script == Script::emoji)
        m_text += randomEmoji(m_random);
    else
        m_text += m_vocabulary.word(m_note.script, 6 * m_random.below(300) + 4);
}

std::string NoteDraft::finished()
{
    if (m_note.size == 0)
        return {};
    std::size_t end = m_note.size - 1;
    while (end > 0 && end < m_text.size() && isTrail(m_text[end]))
        --end;
    m_text.resize(end);
    m_text.resize(m_note.size - 1, '.');
    return m_text + '\n';
}

} // namespace jotwell::bench
