#include "Index/IndexJobs.h"

namespace jotwell::bench {

int VaultUnderTest::rounds(int inLargest, int inSmallest) const
{
    if (noteCount >= 100'000)
        return inLargest;
    return noteCount >= 10'000 ? (inLargest + inSmallest) / 2 : inSmallest;
}

} // namespace jotwell::bench
