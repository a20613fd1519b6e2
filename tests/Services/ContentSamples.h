#pragma once

#include <QString>

#include <random>
#include <vector>

namespace jotwell {

/// Makes short texts of the characters that the rules of notes turn on, in the orders that trouble
/// them. The same seed gives the same texts.
class ContentSamples {
public:
    explicit ContentSamples(quint64 seed) : m_random(seed) {}

    [[nodiscard]] QString next();

private:
    qsizetype below(qsizetype limit);
    QString piece();

    std::mt19937_64 m_random;
};

/// Traps for scanners: each piece, written over and over, makes a text on which a careless one
/// takes the square of its length.
[[nodiscard]] const std::vector<QString>& endlessPieces();

} // namespace jotwell
