#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace jotwell {

/// Times of one job, and the order statistics of them.
class Samples {
public:
    using Clock = std::chrono::steady_clock;
    using Milliseconds = std::chrono::duration<double, std::milli>;

    void add(const Samples& others)
    {
        m_times.insert(m_times.end(), others.m_times.begin(), others.m_times.end());
    }
    void add(Clock::duration time) { m_times.push_back(Milliseconds(time).count()); }

    /// The value below which `share` of the times lie, in milliseconds.
    [[nodiscard]] double percentile(double share) const
    {
        std::vector<double> sorted = m_times;
        std::sort(sorted.begin(), sorted.end());
        return sorted.at(static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1)));
    }

    /// One line of JSON on standard output, for `bench/run`.
    void print(const std::string& name) const
    {
        std::printf("{\"name\":\"%s\",\"p50\":%.4f,\"p99\":%.4f,\"longest\":%.4f,\"count\":%zu}\n",
                    name.c_str(), percentile(0.5), percentile(0.99), percentile(1), m_times.size());
        std::fflush(stdout);
    }

private:
    std::vector<double> m_times;
};

} // namespace jotwell
