// The tags in a note's raw text against their plain rules.

#include "Fuzz/FuzzTarget.h"
#include "Services/ContentDifference.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = jotwell::fuzzText(data, size);
    if (const auto difference = jotwell::tagDifference(text))
        jotwell::reportDifference(difference->rule, text.toUtf8(), difference->expected,
                                  difference->actual);
    return 0;
}
