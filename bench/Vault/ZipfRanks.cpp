#include "Vault/ZipfRanks.h"

#include <cmath>

namespace jotwell::bench {

namespace {

constexpr double exponent = 1.05;
constexpr double shift = 2.7;

/// With a mean of 1.
std::vector<double> weights(std::size_t count)
{
    std::vector<double> weights;
    double sum = 0;
    for (std::size_t rank = 0; rank < count; ++rank) {
        weights.push_back(std::pow(static_cast<double>(rank) + shift, -exponent));
        sum += weights.back();
    }
    for (double& weight : weights)
        weight *= static_cast<double>(count) / sum;
    return weights;
}

} // namespace

ZipfRanks::ZipfRanks(std::size_t count) : m_keep(weights(count)), m_alias(count)
{
    std::vector<std::size_t> poor;
    std::vector<std::size_t> rich;
    for (std::size_t rank = 0; rank < count; ++rank) {
        m_alias[rank] = rank;
        (m_keep[rank] < 1 ? poor : rich).push_back(rank);
    }
    while (!poor.empty() && !rich.empty()) {
        const std::size_t giver = rich.back();
        const std::size_t taker = poor.back();
        poor.pop_back();
        m_alias[taker] = giver;
        m_keep[giver] -= 1 - m_keep[taker];
        if (m_keep[giver] < 1) {
            rich.pop_back();
            poor.push_back(giver);
        }
    }
}

std::size_t ZipfRanks::random(RandomSource& random) const
{
    const std::size_t rank = random.below(m_keep.size());
    return random.share() < m_keep[rank] ? rank : m_alias[rank];
}

} // namespace jotwell::bench
