#include "Index/IndexJobs.h"

#include <cstdio>
#include <cstdlib>

namespace jotwell::bench {

int VaultUnderTest::rounds(int inLargest, int inSmallest) const
{
    if (noteCount >= 100'000)
        return inLargest;
    return noteCount >= 10'000 ? (inLargest + inSmallest) / 2 : inSmallest;
}

void printFigure(const std::string& name, double value)
{
    std::printf("{\"name\":\"%s\",\"value\":%.4f}\n", name.c_str(), value);
    std::fflush(stdout);
}

void require(bool isTrue, const char* what)
{
    if (isTrue)
        return;
    std::fprintf(stderr, "Not as it should be: %s\n", what);
    std::exit(EXIT_FAILURE);
}

} // namespace jotwell::bench
