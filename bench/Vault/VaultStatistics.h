#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace jotwell::bench {

/// What a finished vault is like, found in its texts.
class VaultStatistics {
public:
    void add(std::string_view path, std::string_view text);
    void add(const VaultStatistics& other);
    void setFolderCount(std::size_t count) { m_folderCount = count; }

    [[nodiscard]] std::size_t noteCount() const { return m_sizes.size(); }
    [[nodiscard]] std::size_t byteCount() const;
    /// Of all paths and texts, in whatever order they were added.
    [[nodiscard]] std::uint64_t digest() const { return m_digest; }

    /// Prints each figure beside what it should be. Gives whether all are within a few per cent.
    [[nodiscard]] bool report() const;

private:
    [[nodiscard]] double share(std::size_t count) const;
    [[nodiscard]] double percentile(double share) const;

    std::vector<std::size_t> m_sizes;
    std::size_t m_withFrontMatter = 0;
    std::size_t m_withLinks = 0;
    std::size_t m_withTags = 0;
    std::size_t m_beyondAscii = 0;
    std::size_t m_folderCount = 0;
    std::uint64_t m_digest = 0;
};

} // namespace jotwell::bench
