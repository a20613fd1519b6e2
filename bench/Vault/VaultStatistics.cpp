#include "Vault/VaultStatistics.h"

#include "Vault/VaultPlan.h"

#include <xxhash.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace jotwell::bench {

namespace {

constexpr double sizeTolerance = 0.04;
constexpr double shareTolerance = 0.02;

bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

/// "#" at the start of a word with a letter behind it, or a line of tags in the front matter.
bool hasTags(std::string_view text)
{
    if (text.substr(0, 4) == "---\n" && contains(text.substr(0, text.find("\n---\n")), "\ntags:"))
        return true;
    for (std::size_t mark = text.find('#'); mark != std::string_view::npos;
         mark = text.find('#', mark + 1)) {
        const char before = mark == 0 ? '\n' : text[mark - 1];
        const char behind = mark + 1 < text.size() ? text[mark + 1] : ' ';
        if ((before == '\n' || before == ' ') && behind >= 'a' && behind <= 'z')
            return true;
    }
    return false;
}

bool isBeyondAscii(std::string_view text)
{
    return std::any_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

bool reported(const char* what, double found, double wanted, double tolerance)
{
    const bool isFine = std::fabs(found - wanted) <= wanted * tolerance;
    std::fprintf(stderr, "  %-20s %10.3f  (%.3f)%s\n", what, found, wanted,
                 isFine ? "" : "  IS OFF");
    return isFine;
}

} // namespace

void VaultStatistics::add(std::string_view path, std::string_view text)
{
    m_sizes.push_back(text.size());
    m_withFrontMatter += text.substr(0, 4) == "---\n" ? 1 : 0;
    m_withLinks += contains(text, "[[") || contains(text, "](") ? 1 : 0;
    m_withTags += hasTags(text) ? 1 : 0;
    m_beyondAscii += isBeyondAscii(text) ? 1 : 0;
    const std::uint64_t name = XXH3_64bits(path.data(), path.size());
    m_digest += XXH3_64bits_withSeed(text.data(), text.size(), name);
}

void VaultStatistics::add(const VaultStatistics& other)
{
    m_sizes.insert(m_sizes.end(), other.m_sizes.begin(), other.m_sizes.end());
    m_withFrontMatter += other.m_withFrontMatter;
    m_withLinks += other.m_withLinks;
    m_withTags += other.m_withTags;
    m_beyondAscii += other.m_beyondAscii;
    m_digest += other.m_digest;
}

std::size_t VaultStatistics::byteCount() const
{
    return std::accumulate(m_sizes.begin(), m_sizes.end(), std::size_t(0));
}

double VaultStatistics::share(std::size_t count) const
{
    return static_cast<double>(count) / static_cast<double>(noteCount());
}

double VaultStatistics::percentile(double share) const
{
    std::vector<std::size_t> sorted = m_sizes;
    std::sort(sorted.begin(), sorted.end());
    const double place = share * static_cast<double>(sorted.size() - 1);
    return static_cast<double>(sorted.at(static_cast<std::size_t>(std::lround(place))));
}

bool VaultStatistics::report() const
{
    namespace wanted = statistics;
    bool isFine = true;
    const auto check = [&isFine](const char* what, double found, double wanted, double tolerance) {
        isFine = reported(what, found, wanted, tolerance) && isFine;
    };
    std::fprintf(stderr, "A vault of %zu notes, %.1f MB, digest %016llx:\n", noteCount(),
                 static_cast<double>(byteCount()) / 1e6, static_cast<unsigned long long>(digest()));
    check("mean size", share(byteCount()), wanted::meanSize, sizeTolerance);
    check("median size", percentile(0.5), wanted::medianSize, sizeTolerance);
    check("p99 of the size", percentile(0.99), wanted::percentile99Size, sizeTolerance);
    check("with front matter", share(m_withFrontMatter), wanted::withFrontMatter, shareTolerance);
    check("with links", share(m_withLinks), wanted::withLinks, shareTolerance);
    check("with tags", share(m_withTags), wanted::withTags, shareTolerance);
    check("beyond ASCII", share(m_beyondAscii), wanted::beyondAscii, shareTolerance);
    check("folders per note", share(m_folderCount), wanted::foldersPerNote, shareTolerance);
    return isFine;
}

} // namespace jotwell::bench
