#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/// What a target is: gives 0, and ends the program where it finds a fault.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace jotwell {

/// The input as text, with a replacement character for what is no UTF-8; an unfinished character at
/// the end is left out. NULs and marks of the byte order stay.
[[nodiscard]] QString fuzzText(const std::uint8_t* data, std::size_t size);

/// Ends the program, and shows both with every byte that is not plain ASCII in hexadecimal.
[[noreturn]] void reportDifference(const char* what, const QByteArray& input,
                                   const QByteArray& expected, const QByteArray& actual);

/// Ends the program unless the two are the same.
inline void requireSame(const char* what, const QByteArray& input, const QByteArray& expected,
                        const QByteArray& actual)
{
    if (expected != actual)
        reportDifference(what, input, expected, actual);
}

} // namespace jotwell
