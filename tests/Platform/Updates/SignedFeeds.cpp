#include "Platform/Updates/SignedFeeds.h"

#include <sodium.h>

namespace jotwell {

SigningKey::SigningKey(unsigned char seed)
{
    static_assert(crypto_sign_PUBLICKEYBYTES == 32 && crypto_sign_SECRETKEYBYTES == 64);
    std::array<unsigned char, crypto_sign_SEEDBYTES> seeds{};
    seeds.fill(seed);
    crypto_sign_seed_keypair(m_public.data(), m_secret.data(), seeds.data());
}

FeedKey SigningKey::publicKey() const
{
    return *FeedKey::fromBase64(publicKeyText());
}

QByteArray SigningKey::publicKeyText() const
{
    return QByteArray(reinterpret_cast<const char*>(m_public.data()), m_public.size()).toBase64();
}

QByteArray SigningKey::signatureOf(const QByteArray& bytes) const
{
    QByteArray signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(reinterpret_cast<unsigned char*>(signature.data()), nullptr,
                         reinterpret_cast<const unsigned char*>(bytes.constData()),
                         static_cast<unsigned long long>(bytes.size()), m_secret.data());
    return signature;
}

QByteArray SigningKey::sign(const QByteArray& content) const
{
    return content + signatureComment(signatureOf(content), content.size());
}

QByteArray signatureComment(const QByteArray& signature, qsizetype length)
{
    return "<!-- sparkle-signatures:\nedSignature: " + signature.toBase64() +
           "\nlength: " + QByteArray::number(length) + "\n-->\n";
}

QByteArray feedItem(const QByteArray& version, const QByteArray& more)
{
    return "<item><title>Jotwell</title><sparkle:version>" + version + "</sparkle:version>" + more +
           "</item>\n";
}

QByteArray feedOf(const QByteArray& items)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
           "<rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
           "<channel>\n<title>Jotwell</title>\n" +
           items + "</channel>\n</rss>\n";
}

} // namespace jotwell
