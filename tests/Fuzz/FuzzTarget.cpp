#include "Fuzz/FuzzTarget.h"

#include <QStringDecoder>

#include <cstdio>
#include <cstdlib>

namespace jotwell {

namespace {

QByteArray readable(const QByteArray& text)
{
    QByteArray shown;
    for (const char byte : text) {
        const bool isPlain = byte >= 0x20 && byte < 0x7F && byte != '\\';
        shown += isPlain ? QByteArray(1, byte) : "\\x" + QByteArray(1, byte).toHex();
    }
    return shown;
}

} // namespace

QString fuzzText(const std::uint8_t* data, std::size_t size)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    return decode(bytes);
}

void reportDifference(const char* what, const QByteArray& input, const QByteArray& expected,
                      const QByteArray& actual)
{
    std::fprintf(stderr, "%s of\n  \"%s\"\nshould be\n  \"%s\"\nbut is\n  \"%s\"\n", what,
                 readable(input).constData(), readable(expected).constData(),
                 readable(actual).constData());
    std::abort();
}

} // namespace jotwell
