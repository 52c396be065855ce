#include "security/SecurityTlsPage.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"
#include "security/PropertyWrites.h"
#include "security/TlsFiles.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2113;
constexpr const char* kSection = "TLS";
} // namespace

CSecurityTlsPage::CSecurityTlsPage(_tMailServer* server) : CTaviPropertyPage(tr("TLS")), m_server(server)
{
    setObjectName(QStringLiteral("CSecurityTlsPage"));
    setHelpContext(kHelpContext);

    auto* modeGroup = new QGroupBox(tr("STARTTLS for incoming SMTP connections"), this);
    modeGroup->setObjectName(QStringLiteral("grpStartTls"));
    m_offRadio = new QRadioButton(tr("&Not offered"), modeGroup);
    m_offRadio->setObjectName(QStringLiteral("radStartTlsOff"));
    m_offeredRadio = new QRadioButton(tr("&Offered to clients that ask for it"), modeGroup);
    m_offeredRadio->setObjectName(QStringLiteral("radStartTlsOffered"));
    m_requiredRadio = new QRadioButton(tr("Re&quired before any mail is accepted"), modeGroup);
    m_requiredRadio->setObjectName(QStringLiteral("radStartTlsRequired"));
    auto* radios = new QButtonGroup(this);
    for (QRadioButton* r : {m_offRadio, m_offeredRadio, m_requiredRadio})
        radios->addButton(r);
    auto* modeLayout = new QVBoxLayout(modeGroup);
    modeLayout->addWidget(m_offRadio);
    modeLayout->addWidget(m_offeredRadio);
    modeLayout->addWidget(m_requiredRadio);

    auto* filesGroup = new QGroupBox(tr("Certificate"), this);
    filesGroup->setObjectName(QStringLiteral("grpCertificate"));
    m_certEdit = new QLineEdit(filesGroup);
    m_certEdit->setObjectName(QStringLiteral("edtCertificateFile"));
    m_certEdit->setPlaceholderText(QStringLiteral("/etc/velbrook/tls/fullchain.pem"));
    m_keyEdit = new QLineEdit(filesGroup);
    m_keyEdit->setObjectName(QStringLiteral("edtPrivateKeyFile"));
    m_keyEdit->setPlaceholderText(QStringLiteral("/etc/velbrook/tls/privkey.pem"));
    m_certBrowse = new QPushButton(tr("&Browse..."), filesGroup);
    m_certBrowse->setObjectName(QStringLiteral("btnBrowseCertificate"));
    m_keyBrowse = new QPushButton(tr("Bro&wse..."), filesGroup);
    m_keyBrowse->setObjectName(QStringLiteral("btnBrowseKey"));
    auto* certLabel = new QLabel(tr("&Certificate chain file:"), filesGroup);
    certLabel->setBuddy(m_certEdit);
    auto* keyLabel = new QLabel(tr("Private &key file:"), filesGroup);
    keyLabel->setBuddy(m_keyEdit);
    m_statusLabel = new QLabel(filesGroup);
    m_statusLabel->setObjectName(QStringLiteral("lblCertificateStatus"));
    m_statusLabel->setWordWrap(true);
    m_statusLabel->setTextFormat(Qt::PlainText);
    auto* filesGrid = new QGridLayout(filesGroup);
    filesGrid->addWidget(certLabel, 0, 0);
    filesGrid->addWidget(m_certEdit, 0, 1);
    filesGrid->addWidget(m_certBrowse, 0, 2);
    filesGrid->addWidget(keyLabel, 1, 0);
    filesGrid->addWidget(m_keyEdit, 1, 1);
    filesGrid->addWidget(m_keyBrowse, 1, 2);
    filesGrid->addWidget(m_statusLabel, 2, 0, 1, 3);
    filesGrid->setColumnStretch(1, 1);

    m_protocolCombo = new QComboBox(this);
    m_protocolCombo->setObjectName(QStringLiteral("cboMinProtocol"));
    m_protocolCombo->addItem(tr("TLS 1.0 (insecure, for very old clients)"), TlsVersion::Tls10);
    m_protocolCombo->addItem(tr("TLS 1.1 (insecure, for old clients)"), TlsVersion::Tls11);
    m_protocolCombo->addItem(tr("TLS 1.2 (recommended)"), TlsVersion::Tls12);
    m_protocolCombo->addItem(tr("TLS 1.3"), TlsVersion::Tls13);
    auto* protocolLabel = new QLabel(tr("Oldest &protocol version accepted:"), this);
    protocolLabel->setBuddy(m_protocolCombo);
    auto* protocolRow = new QHBoxLayout;
    protocolRow->addWidget(protocolLabel);
    protocolRow->addWidget(m_protocolCombo);
    protocolRow->addStretch(1);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(modeGroup);
    layout->addWidget(filesGroup);
    layout->addLayout(protocolRow);
    layout->addStretch(1);

    connect(radios, &QButtonGroup::buttonClicked, this, [this] { setModified(); });
    connect(m_certEdit, &QLineEdit::textEdited, this, [this] { setModified(); });
    connect(m_keyEdit, &QLineEdit::textEdited, this, [this] { setModified(); });
    connect(m_protocolCombo, &QComboBox::activated, this, [this] { setModified(); });
    connect(m_certBrowse, &QPushButton::clicked, this, [this] { browse(m_certEdit, false); });
    connect(m_keyBrowse, &QPushButton::clicked, this, [this] { browse(m_keyEdit, true); });
}

void CSecurityTlsPage::initPage()
{
    // The files are on the server's machine: they can be browsed for and checked only from there.
    m_local = IsLocalMachine(m_server) != 0;
    m_certBrowse->setVisible(m_local);
    m_keyBrowse->setVisible(m_local);
    ReadServerNumber(m_server, kSection, "StartTls", m_modeRead, 0);
    ReadServerString(m_server, kSection, "CertificateFile", m_certRead, kPathBufferSize);
    ReadServerString(m_server, kSection, "PrivateKeyFile", m_keyRead, kPathBufferSize);
    ReadServerNumber(m_server, kSection, "MinProtocol", m_protocolRead, TlsVersion::Tls12);
}

quint32 CSecurityTlsPage::chosenMode() const
{
    return m_requiredRadio->isChecked() ? 2 : m_offeredRadio->isChecked() ? 1 : 0;
}

void CSecurityTlsPage::showStatus()
{
    const QString cert = m_certEdit->text().trimmed(), key = m_keyEdit->text().trimmed();
    if (!m_local) {
        m_statusLabel->setText(TaviString(IDS_SEC_TLS_REMOTE));
        return;
    }
    if (cert.isEmpty() && key.isEmpty()) {
        m_statusLabel->clear();
        return;
    }
    const TlsCheckResult result = checkTlsFiles(cert, key, platform().currentTime());
    m_statusLabel->setText(result.problem == TlsCheckResult::None ? result.summary : result.message);
}

bool CSecurityTlsPage::exchange(bool save)
{
    if (!save) {
        (m_modeRead == 2 ? m_requiredRadio : m_modeRead == 1 ? m_offeredRadio : m_offRadio)->setChecked(true);
        m_certEdit->setText(m_certRead);
        m_keyEdit->setText(m_keyRead);
        const int index = m_protocolCombo->findData(m_protocolRead);
        m_protocolCombo->setCurrentIndex(index >= 0 ? index : m_protocolCombo->findData(TlsVersion::Tls12));
        showStatus();
        return true;
    }
    const QString cert = m_certEdit->text().trimmed(), key = m_keyEdit->text().trimmed();
    const quint32 mode = chosenMode();
    // The files are checked when TLS is to be used with files that are new to it.
    const bool used = mode != 0 || !cert.isEmpty() || !key.isEmpty();
    const bool changed = cert != m_certRead || key != m_keyRead || (mode != 0 && m_modeRead == 0);
    if (!used || !changed || !m_local)
        return true;
    const TlsCheckResult result = checkTlsFiles(cert, key, platform().currentTime());
    if (result.problem != TlsCheckResult::None) {
        m_statusLabel->setText(result.message);
        taviMessageBox(result.message, Mb::Ok | Mb::IconExclamation);
        QLineEdit* at = result.problem == TlsCheckResult::KeyFile ? m_keyEdit : m_certEdit;
        at->setFocus();
        at->selectAll();
        return false;
    }
    m_statusLabel->setText(result.summary);
    return true;
}

bool CSecurityTlsPage::apply()
{
    // The files were checked when the page was last left (or by OK on this page); nothing of this page is
    // written unless they passed.
    bool ok = writeChangedString(m_server, kSection, "CertificateFile", m_certEdit->text().trimmed(), m_certRead);
    ok = writeChangedString(m_server, kSection, "PrivateKeyFile", m_keyEdit->text().trimmed(), m_keyRead) && ok;
    ok = writeChangedNumber(m_server, kSection, "StartTls", chosenMode(), m_modeRead) && ok;
    ok = writeChangedNumber(m_server, kSection, "MinProtocol", m_protocolCombo->currentData().toUInt(), m_protocolRead) && ok;
    return ok;
}

void CSecurityTlsPage::browse(QLineEdit* edit, bool key)
{
    CFileDialogRequest request;
    request.title = TaviString(key ? IDS_SEC_TLS_CHOOSE_KEY : IDS_SEC_TLS_CHOOSE_CERT);
    request.filters = {{TaviString(key ? IDS_SEC_TLS_FILTER_KEY : IDS_SEC_TLS_FILTER_CERT),
                        key ? QStringLiteral("*.pem;*.key;*.der") : QStringLiteral("*.pem;*.crt;*.cer;*.der")},
                       {TaviString(IDS_SEC_TLS_FILTER_ALL), QStringLiteral("*")}};
    request.fileName = edit->text().trimmed();
    request.flags = Ofn::HideReadOnly | Ofn::FileMustExist;
    if (!platform().fileDialog(this, request))
        return;
    edit->setText(QDir::toNativeSeparators(request.fileName));
    setModified();
    showStatus();
}
