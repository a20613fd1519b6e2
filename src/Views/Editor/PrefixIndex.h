#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace jotwell {

/// Finds the words with which a text begins, in about the same time however many words there are
/// and however much of them is the same. The words have to outlive it. Any thread.
class PrefixIndex {
public:
    explicit PrefixIndex(const std::vector<QStringView>& words);

    /// The place in the list of the first word with which `text` begins.
    [[nodiscard]] std::optional<std::size_t> firstAtStart(QStringView text) const;

private:
    struct Entry {
        QStringView word;
        std::size_t first = 0; ///< place in the list of this one or one that it begins with
        const Entry* shorter = nullptr; ///< the longest other that this one begins with
    };

    std::vector<Entry> m_entries; ///< in the order of their units
};

} // namespace jotwell
