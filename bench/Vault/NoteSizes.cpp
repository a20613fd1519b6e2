#include "Vault/NoteSizes.h"

#include <cmath>

namespace jotwell::bench {

namespace {

constexpr double median = 1600;
constexpr double bodySpread = 1.26;       // puts the 99th percentile at 30 KB
constexpr double tailSpread = 1.97;       // puts the mean at 3.8 KB
constexpr double percentile99 = 2.326348; // of the standard normal distribution
constexpr int samplesPerNote = 16;        // a note stands for a whole stretch of the distribution

double standardNormal(double value)
{
    return 0.5 * std::erfc(-value / std::sqrt(2.0));
}

/// The value below which `share` of a standard normal distribution lies.
double standardNormalQuantile(double share)
{
    double low = -9;
    double high = 9;
    for (int step = 0; step < 40; ++step) {
        const double middle = (low + high) / 2;
        (standardNormal(middle) < share ? low : high) = middle;
    }
    return low;
}

double sizeAt(double share)
{
    const double deviation = standardNormalQuantile(share);
    const double inTail = std::fmax(deviation - percentile99, 0);
    return median * std::exp(bodySpread * (deviation - inTail) + tailSpread * inTail);
}

} // namespace

std::vector<std::size_t> noteSizes(std::size_t count)
{
    std::vector<std::size_t> sizes;
    sizes.reserve(count);
    const auto samples = static_cast<double>(count * samplesPerNote);
    for (std::size_t note = 0; note < count; ++note) {
        double sum = 0;
        for (int sample = 0; sample < samplesPerNote; ++sample)
            sum += sizeAt((static_cast<double>(note * samplesPerNote) + sample + 0.5) / samples);
        sizes.push_back(static_cast<std::size_t>(std::llround(sum / samplesPerNote)));
    }
    return sizes;
}

} // namespace jotwell::bench
