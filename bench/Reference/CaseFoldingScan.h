#pragma once

#include <QString>

#include <cstddef>
#include <string>
#include <string_view>

namespace jotwell::bench {

/// Goes through a text for one term, whatever the case of its letters, with nothing between it and
/// the memory but vector instructions: the reference for a search of texts.
class CaseFoldingScan {
public:
    explicit CaseFoldingScan(const QString& term);

    /// How often the term stands in the text.
    [[nodiscard]] std::size_t count(std::string_view text) const;
    /// The same on all cores.
    [[nodiscard]] std::size_t countOnAllCores(std::string_view text) const;

private:
    [[nodiscard]] bool isAt(const char* place) const;
    [[nodiscard]] std::size_t countStarts(const char* begin, const char* end) const;

    // Both cases of the term, byte for byte in UTF-8 of the same length.
    std::string m_lower;
    std::string m_upper;
};

} // namespace jotwell::bench
