#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace jotwell {

/// The examples of a folder, in the order of their names, and texts made from them by cutting,
/// doubling, joining and overwriting. The same folder gives the same texts each time.
class MutatedCorpus {
public:
    explicit MutatedCorpus(const std::filesystem::path& folder);

    [[nodiscard]] const std::vector<std::string>& examples() const { return m_examples; }
    [[nodiscard]] std::string nextMutation();

private:
    std::size_t below(std::size_t limit);
    std::string pieceOf(const std::string& text);
    void mutate(std::string& text);

    std::vector<std::string> m_examples;
    std::mt19937_64 m_random{20240305};
};

} // namespace jotwell
