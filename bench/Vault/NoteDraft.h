#pragma once

#include "Vault/VaultPlan.h"

#include <string>

namespace jotwell::bench {

/// The text of one note while it is being written: words, sentences and what stands between them.
class NoteDraft {
public:
    NoteDraft(const NotePlan& note, const VaultPlan& plan, const Vocabulary& vocabulary);

    [[nodiscard]] RandomSource& random() { return m_random; }
    /// Bytes that are still missing.
    [[nodiscard]] std::size_t room() const;

    void add(const char* text) { m_text += text; }
    void add(const std::string& text) { m_text += text; }
    void addWords(std::size_t count);
    /// With a word in bold, a link, a tag and the like here and there, and no line end.
    void addSentence();
    void addLink();
    void addTag(); ///< without its mark
    /// A word without anything to it, as in code and front matter.
    void addPlainWord();
    /// A word that the note's script alone has.
    void addForeignWord();

    /// The text, cut or filled up to the planned size.
    [[nodiscard]] std::string finished();

private:
    void addDecoratedWord();
    void addWord(const char* before, const char* behind);
    void addCall();
    void addAddress();
    void addNoteTitle();

    const NotePlan& m_note;
    const VaultPlan& m_plan;
    const Vocabulary& m_vocabulary;
    RandomSource m_random;
    std::string m_text;
};

} // namespace jotwell::bench
