#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace jotwell::bench {

/// A figure that is no time, in one line of JSON.
inline void printFigure(const std::string& name, double value)
{
    std::printf("{\"name\":\"%s\",\"value\":%.4f}\n", name.c_str(), value);
    std::fflush(stdout);
}

/// Ends the program if `isTrue` isn't: what was measured then isn't what was meant.
inline void require(bool isTrue, const char* what)
{
    if (isTrue)
        return;
    std::fprintf(stderr, "Not as it should be: %s\n", what);
    std::exit(EXIT_FAILURE);
}

} // namespace jotwell::bench
