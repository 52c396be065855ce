// Security sheet, TLS: whether the SMTP receiver offers or requires STARTTLS, the certificate chain and
// private key files it presents, and the oldest protocol version it accepts. The files are checked before
// anything of this page is stored.
#pragma once

#include "common/PropertySheet.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// Protocol versions as stored in "MinProtocol": 10 TLS 1.0, 11 TLS 1.1, 12 TLS 1.2, 13 TLS 1.3.
namespace TlsVersion {
enum : quint32 { Tls10 = 10, Tls11 = 11, Tls12 = 12, Tls13 = 13 };
}

class TAVI_EXPORT CSecurityTlsPage : public CTaviPropertyPage {
    Q_OBJECT
public:
    explicit CSecurityTlsPage(_tMailServer* server);

protected:
    void initPage() override;
    bool exchange(bool save) override;
    bool apply() override;

private:
    quint32 chosenMode() const;
    void browse(QLineEdit* edit, bool key);
    void showStatus();

    _tMailServer* m_server;
    QRadioButton* m_offRadio = nullptr;
    QRadioButton* m_offeredRadio = nullptr;
    QRadioButton* m_requiredRadio = nullptr;
    QLineEdit* m_certEdit = nullptr;
    QLineEdit* m_keyEdit = nullptr;
    QPushButton* m_certBrowse = nullptr;
    QPushButton* m_keyBrowse = nullptr;
    QLabel* m_statusLabel = nullptr;
    QComboBox* m_protocolCombo = nullptr;

    bool m_local = true;
    quint32 m_modeRead = 0, m_protocolRead = TlsVersion::Tls12;
    QString m_certRead, m_keyRead;
};
