#include "Support/CharacterWalk.h"

#include "Support/BreakKinds.h"
#include "Support/CharacterClasses.h"

#include <unicode/ubrk.h>

#include <algorithm>
#include <memory>

namespace jotwell {

namespace {

/// ICU's borders between the characters of one stretch of text after the other.
class Borders {
public:
    Borders()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_iterator.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
    }

    void setText(QStringView text)
    {
        m_size = text.size();
        m_place = 0;
        UErrorCode status = U_ZERO_ERROR;
        if (m_iterator) {
            ubrk_setText(m_iterator.get(), reinterpret_cast<const UChar*>(text.utf16()),
                         static_cast<int32_t>(text.size()), &status);
        }
    }

    /// The place behind the next character; each unit is one where ICU has no data.
    qsizetype next() { return m_place = m_iterator ? ubrk_next(m_iterator.get()) : m_place + 1; }
    [[nodiscard]] bool isAtEnd() const { return m_place == m_size; }

private:
    struct Close {
        void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
    };
    std::unique_ptr<UBreakIterator, Close> m_iterator;
    qsizetype m_size = 0;
    qsizetype m_place = 0;
};

/// Goes through a text, code point by code point, as long as their kinds alone say where characters
/// end, and through what lies between with the break iterator.
class Walk {
public:
    /// `begins` takes the place of each character, if it is there.
    Walk(QStringView text, qsizetype most, std::vector<qsizetype>* begins)
        : m_text(text), m_most(most), m_begins(begins)
    {
    }

    WalkedCharacters run()
    {
        while (m_place < m_text.size()) {
            takeLetters();
            if (m_place == m_text.size())
                break;
            const Step step = stepAt(m_place);
            const bool isGoingOn =
                step.kind == BreakKind::special ? takeSpecial() : takePlain(step);
            if (!isGoingOn)
                break;
        }
        return {m_count, m_place};
    }

private:
    struct Step {
        BreakKind kind;
        qsizetype length;
    };

    [[nodiscard]] Step stepAt(qsizetype place) const
    {
        const BreakKind kind = m_kinds.of(m_text[place].unicode());
        if (kind != BreakKind::surrogate)
            return {kind, 1};
        const CodePoint code = codePointAt(m_text, place);
        return {BreakKinds::ofCodePoint(code.value), code.length};
    }

    [[nodiscard]] bool isBorderBefore(BreakKind kind) const
    {
        if (kind == BreakKind::mark)
            return m_last == BreakKind::control;
        return m_text[m_place] != u'\n' || m_place == 0 || m_text[m_place - 1] != u'\r';
    }

    // False when there are enough.
    bool beginCharacter()
    {
        if (m_count == m_most)
            return false;
        ++m_count;
        m_begin = m_place;
        if (m_begins)
            m_begins->push_back(m_begin);
        return true;
    }

    bool takePlain(Step step)
    {
        if (isBorderBefore(step.kind) && !beginCharacter())
            return false;
        m_last = step.kind;
        m_place += step.length;
        return true;
    }

    void takeLetters();
    void forgetLastCharacter();
    bool takeSpecial();
    [[nodiscard]] qsizetype specialEnd() const;

    QStringView m_text;
    qsizetype m_most;
    std::vector<qsizetype>* m_begins;
    BreakKinds& m_kinds = BreakKinds::shared();
    std::unique_ptr<Borders> m_borders;
    qsizetype m_place = 0;
    qsizetype m_begin = 0; ///< of the last character
    qsizetype m_count = 0;
    BreakKind m_last = BreakKind::control; ///< a mark at the beginning stands alone
};

// What most texts are made of, in a tight loop: it takes a quarter of the time.
void Walk::takeLetters()
{
    const QChar* const begin = m_text.begin() + m_place;
    const QChar* const end = begin + std::min(m_text.size() - m_place, m_most - m_count);
    const QChar* const lettersEnd = std::find_if_not(
        begin, end, [this](QChar unit) { return m_kinds.of(unit.unicode()) == BreakKind::letter; });
    for (const QChar* letter = begin; m_begins && letter != lettersEnd; ++letter)
        m_begins->push_back(letter - m_text.begin());
    if (begin == lettersEnd)
        return;
    m_count += lettersEnd - begin;
    m_place += lettersEnd - begin;
    m_begin = m_place - 1;
    m_last = BreakKind::letter;
}

// Where the next border is that no special code point can take away.
qsizetype Walk::specialEnd() const
{
    BreakKind last = BreakKind::special;
    for (qsizetype place = m_place; place < m_text.size();) {
        const Step step = stepAt(place);
        const bool isBehindLetter = step.kind == BreakKind::letter && last == BreakKind::letter;
        if (isBehindLetter || step.kind == BreakKind::control)
            return place;
        last = step.kind;
        place += step.length;
    }
    return m_text.size();
}

void Walk::forgetLastCharacter()
{
    if (m_count == 0)
        return;
    --m_count;
    if (m_begins)
        m_begins->pop_back();
}

// The special code points, with the character that they may go on.
bool Walk::takeSpecial()
{
    forgetLastCharacter();
    const qsizetype begin = m_begin;
    const QStringView stretch = m_text.sliced(begin, specialEnd() - begin);
    if (!m_borders)
        m_borders = std::make_unique<Borders>();
    m_borders->setText(stretch);
    for (m_place = begin; !m_borders->isAtEnd(); m_place = begin + m_borders->next()) {
        if (!beginCharacter())
            return false;
    }
    return true; // with a letter or a control next, for which `m_last` doesn't count
}

} // namespace

WalkedCharacters walkCharacters(QStringView text, qsizetype most)
{
    return Walk(text, most, nullptr).run();
}

std::vector<qsizetype> characterBegins(QStringView text)
{
    std::vector<qsizetype> begins;
    begins.reserve(static_cast<std::size_t>(text.size()) + 1);
    Walk(text, text.size(), &begins).run();
    return begins;
}

} // namespace jotwell
