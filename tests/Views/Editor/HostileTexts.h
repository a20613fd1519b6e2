#pragma once

#include <QString>
#include <QStringView>

#include <functional>
#include <random>
#include <vector>

namespace jotwell {

/// Calls `use` for every text of up to `longest` of the letters, the empty one included.
void forEachText(QStringView letters, qsizetype longest,
                 const std::function<void(const QString&)>& use);

/// Texts of few different characters each, out of those that some rule of the editor speaks of,
/// spaces and line ends of all kinds, marks, joiners, emoji and halves of them.
class HostileTexts {
public:
    /// Up to `longest` characters.
    [[nodiscard]] QString next(std::size_t longest);
    /// From 0 to `highest`.
    [[nodiscard]] qsizetype upTo(qsizetype highest);

private:
    [[nodiscard]] QString character();

    std::mt19937 m_random{20240305};
};

/// Texts of 100,000 units which a search that begins anew at each mark would take minutes for.
[[nodiscard]] std::vector<QString> endlessTexts();

} // namespace jotwell
