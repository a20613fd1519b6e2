#pragma once

#include <QSslCertificate>
#include <QSslKey>
#include <QTemporaryDir>

namespace jotwell {

/// An authority of its own, made when the test runs, and what it vouches for: the host "localhost".
class TestCertificates {
public:
    TestCertificates();

    /// One for all tests; another authority is another object.
    [[nodiscard]] static const TestCertificates& usual();

    [[nodiscard]] const QSslCertificate& authority() const { return m_authority; }
    [[nodiscard]] const QSslCertificate& host() const { return m_host; }
    /// The same host's, whose time was over long ago.
    [[nodiscard]] const QSslCertificate& expiredHost() const { return m_expiredHost; }
    [[nodiscard]] const QSslKey& key() const { return m_key; }

private:
    void run(const QStringList& arguments) const;
    [[nodiscard]] QSslCertificate certificate(const QString& name) const;

    QTemporaryDir m_folder;
    QSslCertificate m_authority;
    QSslCertificate m_host;
    QSslCertificate m_expiredHost;
    QSslKey m_key;
};

} // namespace jotwell
