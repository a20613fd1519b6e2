#pragma once

#include <cstddef>
#include <cstdint>

namespace jotwell::bench {

/// SplitMix64: the same numbers for the same seed on every system, which the standard library's
/// distributions don't promise.
class RandomSource {
public:
    explicit RandomSource(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    /// 0 up to, but not including, `count`, which is below 2^32.
    std::size_t below(std::size_t count) { return ((next() >> 32U) * count) >> 32U; }
    /// Both ends included.
    std::size_t between(std::size_t least, std::size_t most)
    {
        return least + below(most - least + 1);
    }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    /// 0 up to, but not including, 1.
    double share() { return static_cast<double>(next() >> 11U) * 0x1.0p-53; }

private:
    std::uint64_t m_state;
};

/// A number that belongs to `index` and `purpose` alone.
inline std::uint64_t mixed(std::uint64_t purpose, std::uint64_t index)
{
    RandomSource source(purpose * 0xD1342543DE82EF95U + index);
    source.next();
    return source.next();
}

} // namespace jotwell::bench
