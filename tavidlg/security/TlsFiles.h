// Checks the server's TLS certificate chain and private key files before they are stored: both must
// exist and be readable, hold a certificate chain and an unprotected private key (PEM or DER), the
// server's certificate must be valid now, and the key must belong to it.
#pragma once

#include "entry/TaviGlobal.h"

#include <QDateTime>
#include <QString>

struct TAVI_EXPORT TlsCheckResult {
    enum Problem { None, CertificateFile, KeyFile };
    Problem problem = None; // which file is at fault
    QString message;        // why, for the administrator
    QString summary;        // when fine: whom the certificate names, who issued it, until when it is valid
};

TAVI_EXPORT TlsCheckResult checkTlsFiles(const QString& certificatePath, const QString& keyPath,
                                         const QDateTime& now);
