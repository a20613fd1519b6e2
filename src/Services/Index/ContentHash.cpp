#include "Services/Index/ContentHash.h"

#include <xxhash.h>

#include <QRandomGenerator>

namespace jotwell {

ContentHash calculateHash(QByteArrayView utf8)
{
    static const quint64 key = QRandomGenerator::system()->generate64();
    return XXH3_64bits_withSeed(utf8.data(), static_cast<size_t>(utf8.size()), key);
}

QString hashText(ContentHash hash)
{
    return QString::number(static_cast<qint64>(hash));
}

} // namespace jotwell
