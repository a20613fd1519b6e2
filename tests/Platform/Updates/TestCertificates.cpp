#include "Platform/Updates/TestCertificates.h"

#include "QtPrinters.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TestCertificates::TestCertificates()
{
    write(m_folder.filePath(u"extensions"_qs), "subjectAltName=DNS:localhost\n");
    run({u"req"_qs, u"-x509"_qs, u"-newkey"_qs, u"ec"_qs, u"-pkeyopt"_qs,
         u"ec_paramgen_curve:P-256"_qs, u"-nodes"_qs, u"-keyout"_qs, u"authority.key"_qs,
         u"-out"_qs, u"authority.pem"_qs, u"-subj"_qs, u"/CN=Test authority"_qs, u"-days"_qs,
         u"2"_qs});
    run({u"req"_qs, u"-newkey"_qs, u"ec"_qs, u"-pkeyopt"_qs, u"ec_paramgen_curve:P-256"_qs,
         u"-nodes"_qs, u"-keyout"_qs, u"host.key"_qs, u"-out"_qs, u"host.csr"_qs, u"-subj"_qs,
         u"/CN=localhost"_qs});
    const QStringList sign{u"x509"_qs,     u"-req"_qs,          u"-in"_qs,
                           u"host.csr"_qs, u"-CA"_qs,           u"authority.pem"_qs,
                           u"-CAkey"_qs,   u"authority.key"_qs, u"-CAcreateserial"_qs,
                           u"-extfile"_qs, u"extensions"_qs};
    run(sign + QStringList{u"-out"_qs, u"host.pem"_qs, u"-days"_qs, u"2"_qs});
    run(sign + QStringList{u"-out"_qs, u"expired.pem"_qs, u"-days"_qs, u"-1"_qs});
    m_authority = certificate(u"authority.pem"_qs);
    m_host = certificate(u"host.pem"_qs);
    m_expiredHost = certificate(u"expired.pem"_qs);
    QFile key(m_folder.filePath(u"host.key"_qs));
    EXPECT_TRUE(key.open(QIODevice::ReadOnly));
    m_key = QSslKey(&key, QSsl::Ec);
    EXPECT_FALSE(m_key.isNull());
}

const TestCertificates& TestCertificates::usual()
{
    static const TestCertificates certificates;
    return certificates;
}

void TestCertificates::run(const QStringList& arguments) const
{
    QProcess openssl;
    openssl.setWorkingDirectory(m_folder.path());
    openssl.start(u"openssl"_qs, arguments);
    EXPECT_TRUE(openssl.waitForFinished());
    EXPECT_EQ(openssl.exitCode(), 0) << openssl.readAllStandardError().toStdString();
}

QSslCertificate TestCertificates::certificate(const QString& name) const
{
    const auto found = QSslCertificate::fromPath(m_folder.filePath(name));
    EXPECT_EQ(found.size(), 1);
    return found.value(0);
}

} // namespace jotwell
