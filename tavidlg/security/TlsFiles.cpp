#include "security/TlsFiles.h"

#include "config/MessageFormat.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSslCertificate>
#include <QSslKey>

#include <openssl/pem.h>
#include <openssl/x509.h>

#include <memory>

namespace {

constexpr qint64 kMaxFileSize = 1 << 20;

TlsCheckResult failure(TlsCheckResult::Problem problem, unsigned id, const QStringList& inserts)
{
    TlsCheckResult result;
    result.problem = problem;
    result.message = TaviFormat(TaviString(id), inserts);
    return result;
}

// Reads a whole file; on failure the reason is in `why`.
bool readFile(const QString& path, QByteArray& bytes, TlsCheckResult& why, TlsCheckResult::Problem problem)
{
    const QString shown = QDir::toNativeSeparators(path);
    const QFileInfo info(path);
    if (!info.exists()) {
        why = failure(problem, IDS_SEC_TLS_MISSING, {shown});
        return false;
    }
    QFile file(path);
    if (info.isDir() || !file.open(QIODevice::ReadOnly)) {
        why = failure(problem, IDS_SEC_TLS_UNREADABLE, {shown, info.isDir() ? TaviString(IDS_SEC_TLS_IS_FOLDER)
                                                                            : file.errorString()});
        return false;
    }
    if (file.size() > kMaxFileSize) {
        why = failure(problem, IDS_SEC_TLS_NOT_CERTIFICATE, {shown});
        return false;
    }
    bytes = file.readAll();
    return true;
}

QSslKey loadKey(const QByteArray& bytes)
{
    for (QSsl::EncodingFormat format : {QSsl::Pem, QSsl::Der}) {
        for (QSsl::KeyAlgorithm algorithm : {QSsl::Rsa, QSsl::Ec, QSsl::Dsa}) {
            QSslKey key(bytes, algorithm, format, QSsl::PrivateKey);
            if (!key.isNull())
                return key;
        }
    }
    return QSslKey();
}

// Whether the private key is the one whose public half the certificate carries.
bool keyMatches(const QSslCertificate& certificate, const QSslKey& key)
{
    const QByteArray der = certificate.toDer();
    const auto* derData = reinterpret_cast<const unsigned char*>(der.constData());
    std::unique_ptr<X509, decltype(&X509_free)> x509(d2i_X509(nullptr, &derData, long(der.size())), X509_free);
    const QByteArray pem = key.toPem();
    std::unique_ptr<BIO, decltype(&BIO_free)> bio(BIO_new_mem_buf(pem.constData(), int(pem.size())), BIO_free);
    if (!x509 || !bio)
        return false;
    std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> pkey(PEM_read_bio_PrivateKey(bio.get(), nullptr, nullptr, nullptr),
                                                             EVP_PKEY_free);
    return pkey && X509_check_private_key(x509.get(), pkey.get()) == 1;
}

QString nameOf(const QSslCertificate& certificate, bool issuer)
{
    const QStringList names = issuer ? certificate.issuerInfo(QSslCertificate::CommonName)
                                     : certificate.subjectInfo(QSslCertificate::CommonName);
    if (!names.isEmpty())
        return names.first();
    return issuer ? certificate.issuerDisplayName() : certificate.subjectDisplayName();
}

} // namespace

TlsCheckResult checkTlsFiles(const QString& certificatePath, const QString& keyPath, const QDateTime& now)
{
    TlsCheckResult result;
    if (certificatePath.trimmed().isEmpty())
        return failure(TlsCheckResult::CertificateFile, IDS_SEC_TLS_NO_CERTIFICATE, {});
    if (keyPath.trimmed().isEmpty())
        return failure(TlsCheckResult::KeyFile, IDS_SEC_TLS_NO_KEY, {});
    QByteArray certBytes, keyBytes;
    if (!readFile(certificatePath, certBytes, result, TlsCheckResult::CertificateFile))
        return result;
    if (!readFile(keyPath, keyBytes, result, TlsCheckResult::KeyFile))
        return result;
    QList<QSslCertificate> chain = QSslCertificate::fromData(certBytes, QSsl::Pem);
    if (chain.isEmpty())
        chain = QSslCertificate::fromData(certBytes, QSsl::Der);
    const QString certShown = QDir::toNativeSeparators(certificatePath);
    if (chain.isEmpty() || chain.first().isNull())
        return failure(TlsCheckResult::CertificateFile, IDS_SEC_TLS_NOT_CERTIFICATE, {certShown});
    const QLocale locale;
    // The server's own certificate comes first; every certificate it sends along must be valid too.
    for (const QSslCertificate& certificate : std::as_const(chain)) {
        const QString who = nameOf(certificate, false);
        if (certificate.expiryDate().isValid() && now > certificate.expiryDate())
            return failure(TlsCheckResult::CertificateFile, IDS_SEC_TLS_EXPIRED,
                           {who, locale.toString(certificate.expiryDate().toLocalTime(), QLocale::LongFormat), certShown});
        if (certificate.effectiveDate().isValid() && now < certificate.effectiveDate())
            return failure(TlsCheckResult::CertificateFile, IDS_SEC_TLS_NOT_YET_VALID,
                           {who, locale.toString(certificate.effectiveDate().toLocalTime(), QLocale::LongFormat), certShown});
    }
    const QSslKey key = loadKey(keyBytes);
    const QString keyShown = QDir::toNativeSeparators(keyPath);
    if (key.isNull())
        return failure(TlsCheckResult::KeyFile, IDS_SEC_TLS_NOT_KEY, {keyShown});
    if (!keyMatches(chain.first(), key))
        return failure(TlsCheckResult::KeyFile, IDS_SEC_TLS_MISMATCH, {keyShown, certShown});
    const QSslCertificate& leaf = chain.first();
    result.summary = TaviFormat(TaviString(IDS_SEC_TLS_SUMMARY),
                                {nameOf(leaf, false), nameOf(leaf, true),
                                 locale.toString(leaf.expiryDate().toLocalTime(), QLocale::ShortFormat)});
    return result;
}
