#pragma once

#include <QString>
#include <QStringList>

#include <random>

namespace jotwell {

/// Makes texts as hostile as a user's input can be: mixtures of whole and broken tokens, every kind
/// of blank and line end, marks, joiners, characters beyond the basic plane and halves of them. The
/// same ones for the same seed.
class InputSamples {
public:
    explicit InputSamples(unsigned seed) : m_random(seed) {}

    /// At least 0, below `limit`.
    int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_random); }
    QString anyOf(const QStringList& choice)
    {
        return choice[below(static_cast<int>(choice.size()))];
    }

    /// Up to `pieces` pieces one behind the other.
    QString text(int pieces);

    /// Names of templates and folders that pieces of the texts hold.
    [[nodiscard]] static const QStringList& names();

private:
    std::mt19937 m_random;
};

} // namespace jotwell
