#include "Reference/CaseFoldingScan.h"

#include <QList>

#include <algorithm>
#include <thread>
#include <vector>

#ifdef __SSE2__
#    include <emmintrin.h>
#endif

namespace jotwell::bench {

CaseFoldingScan::CaseFoldingScan(const QString& term)
{
    for (const uint character : term.toUcs4()) {
        const char32_t code = character;
        const QString text = QString::fromUcs4(&code, 1);
        const std::string lower = text.toLower().toStdString();
        const std::string upper = text.toUpper().toStdString();
        m_lower += lower;
        m_upper += upper.size() == lower.size() ? upper : lower;
    }
}

bool CaseFoldingScan::isAt(const char* place) const
{
    for (std::size_t byte = 0; byte < m_lower.size(); ++byte) {
        if (place[byte] != m_lower[byte] && place[byte] != m_upper[byte])
            return false;
    }
    return true;
}

/// Of the places between `begin` and `end`, those at which the term stands.
std::size_t CaseFoldingScan::countStarts(const char* begin, const char* end) const
{
    std::size_t count = 0;
#ifdef __SSE2__
    const __m128i firstLower = _mm_set1_epi8(m_lower.front());
    const __m128i firstUpper = _mm_set1_epi8(m_upper.front());
    const __m128i lastLower = _mm_set1_epi8(m_lower.back());
    const __m128i lastUpper = _mm_set1_epi8(m_upper.back());
    const std::size_t toLast = m_lower.size() - 1;
    for (; end - begin >= 16; begin += 16) {
        const __m128i firsts = _mm_loadu_si128(reinterpret_cast<const __m128i*>(begin));
        const __m128i lasts = _mm_loadu_si128(reinterpret_cast<const __m128i*>(begin + toLast));
        const __m128i isFirst =
            _mm_or_si128(_mm_cmpeq_epi8(firsts, firstLower), _mm_cmpeq_epi8(firsts, firstUpper));
        const __m128i isLast =
            _mm_or_si128(_mm_cmpeq_epi8(lasts, lastLower), _mm_cmpeq_epi8(lasts, lastUpper));
        auto candidates = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(isFirst, isLast)));
        for (; candidates != 0; candidates &= candidates - 1)
            count += isAt(begin + __builtin_ctz(candidates)) ? 1 : 0;
    }
#endif
    for (; begin < end; ++begin)
        count += isAt(begin) ? 1 : 0;
    return count;
}

std::size_t CaseFoldingScan::count(std::string_view text) const
{
    if (m_lower.empty() || text.size() < m_lower.size())
        return 0;
    return countStarts(text.data(), text.data() + text.size() - m_lower.size() + 1);
}

std::size_t CaseFoldingScan::countOnAllCores(std::string_view text) const
{
    if (m_lower.empty() || text.size() < m_lower.size())
        return 0;
    const std::size_t places = text.size() - m_lower.size() + 1;
    const std::size_t parts = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::size_t> counts(parts);
    const auto countPart = [&](std::size_t part) {
        counts[part] = countStarts(text.data() + places * part / parts,
                                   text.data() + places * (part + 1) / parts);
    };
    std::vector<std::thread> threads;
    for (std::size_t part = 1; part < parts; ++part)
        threads.emplace_back(countPart, part);
    countPart(0);
    for (std::thread& thread : threads)
        thread.join();
    std::size_t sum = 0;
    for (const std::size_t count : counts)
        sum += count;
    return sum;
}

} // namespace jotwell::bench
