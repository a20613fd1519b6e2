// The cleaning of a note against the regular expressions that it stands for.

#include "Fuzz/FuzzTarget.h"
#include "Services/ContentDifference.h"

// The regular expressions take the square of a text's length.
constexpr std::size_t longest = 2'000;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > longest)
        return 0;
    const QString text = jotwell::fuzzText(data, size);
    if (const auto difference = jotwell::contentDifference(text))
        jotwell::reportDifference(difference->rule, text.toUtf8(), difference->expected,
                                  difference->actual);
    return 0;
}
