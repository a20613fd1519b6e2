#include "Platform/qt/Updates/FeedSignature.h"

#include <sodium.h>

#include <algorithm>
#include <cstring>

namespace jotwell {

namespace {

constexpr QByteArrayView opening("<!-- sparkle-signatures:\nedSignature: ");
constexpr QByteArrayView middle("\nlength: ");
constexpr QByteArrayView closing("\n-->");
constexpr QByteArrayView mark("sparkle-signatures");

/// The comment behind the signed bytes, as it stands there.
struct SignatureComment {
    QByteArray signature;
    qsizetype start = 0;
};

// There are several ways to write the same bytes in Base64, of which only the usual one counts.
std::optional<QByteArray> decoded(const QByteArray& text, qsizetype length)
{
    const auto result =
        QByteArray::fromBase64Encoding(text, QByteArray::AbortOnBase64DecodingErrors);
    if (!result || result.decoded.size() != length || result.decoded.toBase64() != text)
        return std::nullopt;
    return result.decoded;
}

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

// Written again, the comment must come out as it stands there: one place, one way to write it.
Result<SignatureComment, QString> signatureIn(const QByteArray& feed)
{
    const qsizetype start = feed.indexOf(opening);
    if (start < 0)
        return QStringLiteral("it isn't signed");
    if (feed.indexOf(mark) != feed.lastIndexOf(mark))
        return QStringLiteral("it is signed more than once");
    const QByteArrayView rest = QByteArrayView(feed).sliced(start + opening.size());
    const QByteArray signature =
        rest.first(std::max(rest.indexOf(middle), qsizetype(0))).toByteArray();
    const QByteArray tail =
        middle.toByteArray() + QByteArray::number(start) + closing.toByteArray();
    if (!rest.sliced(signature.size()).startsWith(tail))
        return QStringLiteral("its signature is for other bytes or isn't whole");
    const QByteArrayView behind = rest.sliced(signature.size() + tail.size());
    if (!std::all_of(behind.begin(), behind.end(), isBlank))
        return QStringLiteral("something stands behind its signature");
    const auto bytes = decoded(signature, crypto_sign_BYTES);
    if (!bytes)
        return QStringLiteral("its signature can't be read");
    return SignatureComment{*bytes, start};
}

const unsigned char* unsignedBytes(const QByteArray& bytes)
{
    return reinterpret_cast<const unsigned char*>(bytes.constData());
}

} // namespace

std::optional<FeedKey> FeedKey::fromBase64(const QByteArray& text)
{
    const auto bytes = decoded(text, length);
    if (!bytes)
        return std::nullopt;
    FeedKey key;
    std::memcpy(key.m_bytes.data(), bytes->constData(), length);
    return key;
}

Result<QByteArray, QString> verifiedFeed(const QByteArray& feed, const FeedKey& key)
{
    const auto comment = signatureIn(feed);
    if (!comment)
        return comment.error();
    QByteArray content = feed.first(comment->start);
    if (sodium_init() < 0 || crypto_sign_verify_detached(
                                 unsignedBytes(comment->signature), unsignedBytes(content),
                                 static_cast<unsigned long long>(content.size()), key.data()) != 0)
        return QStringLiteral("its signature is wrong");
    return content;
}

} // namespace jotwell
