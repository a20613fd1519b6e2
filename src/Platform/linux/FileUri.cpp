#include "Platform/linux/FileUri.h"

#include <QFile>
#include <QUrl>

namespace jotwell {

namespace {

bool isOfThisMachine(const QUrl& url)
{
    return url.scheme() == u"file" && (url.host().isEmpty() || url.host() == u"localhost");
}

} // namespace

// By its bytes: an address makes other text of those that are no text.
std::optional<QString> localPathOf(const QString& uri)
{
    const QUrl url = QUrl::fromEncoded(uri.toUtf8(), QUrl::StrictMode);
    if (!url.isValid() || !isOfThisMachine(url))
        return std::nullopt;
    QByteArray bytes = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    while (bytes.size() > 1 && bytes.endsWith('/'))
        bytes.chop(1);
    const QString path = QFile::decodeName(bytes);
    const bool isText = QFile::encodeName(path) == bytes && !bytes.contains('\0');
    return bytes.startsWith('/') && isText ? std::optional(path) : std::nullopt;
}

} // namespace jotwell
