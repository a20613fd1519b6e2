#pragma once

#include <QByteArrayView>
#include <QString>

namespace jotwell {

/// A keyed hash of a note's bytes. The key is drawn at each start of the program, so that nobody
/// can make two texts that look the same to it; a hash means nothing to another run.
using ContentHash = quint64;

/// Any thread.
[[nodiscard]] ContentHash calculateHash(QByteArrayView utf8);

/// As the database stores it: the signed value in decimal.
[[nodiscard]] QString hashText(ContentHash hash);

} // namespace jotwell
