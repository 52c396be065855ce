#include "security/SecurityGeneralPage.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"
#include "security/PropertyWrites.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2110;
constexpr const char* kReceiver = "SMTPRA";
constexpr const char* kSecurity = "Security";

QSpinBox* makeSpin(QWidget* parent, const char* name, int min, int max, const QString& suffix)
{
    auto* spin = new QSpinBox(parent);
    spin->setObjectName(QLatin1String(name));
    spin->setRange(min, max);
    spin->setSuffix(suffix);
    return spin;
}
} // namespace

const QStringList& securityAuthMethods()
{
    static const QStringList methods = {QStringLiteral("SCRAM-SHA-256"), QStringLiteral("SCRAM-SHA-1"),
                                        QStringLiteral("CRAM-MD5"), QStringLiteral("PLAIN"), QStringLiteral("LOGIN")};
    return methods;
}

CSecurityGeneralPage::CSecurityGeneralPage(_tMailServer* server) : CTaviPropertyPage(tr("General")), m_server(server)
{
    setObjectName(QStringLiteral("CSecurityGeneralPage"));
    setHelpContext(kHelpContext);

    auto* authGroup = new QGroupBox(tr("SMTP authentication"), this);
    authGroup->setObjectName(QStringLiteral("grpAuthentication"));
    m_relayCombo = new QComboBox(authGroup);
    m_relayCombo->setObjectName(QStringLiteral("cboRelayAuth"));
    m_relayCombo->addItems({tr("Not required"), tr("Always required"), tr("Required unless from a friendly site")});
    auto* relayLabel = new QLabel(tr("For &relaying:"), authGroup);
    relayLabel->setBuddy(m_relayCombo);
    m_submissionCheck = new QCheckBox(tr("Required for message &submission (port 587)"), authGroup);
    m_submissionCheck->setObjectName(QStringLiteral("chkSubmissionAuth"));
    auto* methodsLabel = new QLabel(tr("Methods allowed:"), authGroup);
    auto* methodsBox = new QGridLayout;
    int i = 0;
    for (const QString& method : securityAuthMethods()) {
        auto* box = new QCheckBox(method, authGroup);
        box->setObjectName(QStringLiteral("chkAuth") + QString(method).remove(QLatin1Char('-')));
        methodsBox->addWidget(box, i / 3, i % 3);
        m_methodChecks.append(box);
        ++i;
    }
    m_cleartextTlsCheck = new QCheckBox(tr("Allow PLAIN and LOGIN only over an &encrypted connection"), authGroup);
    m_cleartextTlsCheck->setObjectName(QStringLiteral("chkCleartextNeedsTls"));
    auto* authGrid = new QGridLayout(authGroup);
    authGrid->addWidget(relayLabel, 0, 0);
    authGrid->addWidget(m_relayCombo, 0, 1);
    authGrid->addWidget(m_submissionCheck, 1, 0, 1, 3);
    authGrid->addWidget(methodsLabel, 2, 0, Qt::AlignTop);
    authGrid->addLayout(methodsBox, 2, 1, 1, 2);
    authGrid->addWidget(m_cleartextTlsCheck, 3, 0, 1, 3);
    authGrid->setColumnStretch(2, 1);

    m_lockoutGroup = new QGroupBox(tr("&Lock out addresses after repeated failed logins"), this);
    m_lockoutGroup->setObjectName(QStringLiteral("grpLockout"));
    m_lockoutGroup->setCheckable(true);
    m_thresholdSpin = makeSpin(m_lockoutGroup, "spnLockoutThreshold", 1, 1000, tr(" failed logins"));
    m_windowSpin = makeSpin(m_lockoutGroup, "spnLockoutWindow", 1, 1440, tr(" minutes"));
    m_durationSpin = makeSpin(m_lockoutGroup, "spnLockoutDuration", 1, 525600, tr(" minutes"));
    m_autoExpireCheck = new QCheckBox(tr("Bans e&xpire by themselves (otherwise they last until released)"), m_lockoutGroup);
    m_autoExpireCheck->setObjectName(QStringLiteral("chkLockoutAutoExpire"));
    auto* lockoutForm = new QFormLayout(m_lockoutGroup);
    lockoutForm->addRow(tr("Lock out after &threshold:"), m_thresholdSpin);
    lockoutForm->addRow(tr("Counted &within:"), m_windowSpin);
    lockoutForm->addRow(tr("&Ban for:"), m_durationSpin);
    lockoutForm->addRow(m_autoExpireCheck);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(authGroup);
    layout->addWidget(m_lockoutGroup);
    layout->addStretch(1);

    const auto modified = [this] { setModified(); };
    connect(m_relayCombo, &QComboBox::activated, this, modified);
    for (QCheckBox* box : std::as_const(m_methodChecks))
        connect(box, &QCheckBox::clicked, this, modified);
    for (QCheckBox* box : {m_submissionCheck, m_cleartextTlsCheck, m_autoExpireCheck})
        connect(box, &QCheckBox::clicked, this, modified);
    for (QSpinBox* spin : {m_thresholdSpin, m_windowSpin, m_durationSpin})
        connect(spin, &QSpinBox::valueChanged, this, modified);
    connect(m_lockoutGroup, &QGroupBox::clicked, this, modified);
    connect(m_autoExpireCheck, &QCheckBox::toggled, this, &CSecurityGeneralPage::updateControls);
}

void CSecurityGeneralPage::initPage()
{
    ReadServerNumber(m_server, nullptr, "NoUnauthenticatedRelay", m_relayRead, 0);
    ReadServerNumber(m_server, kReceiver, "SubmissionAuthRequired", m_submissionRead, 1);
    if (!ReadServerString(m_server, kReceiver, "AuthMethods", m_methodsRead, kCommandBufferSize))
        m_methodsRead = QStringLiteral("SCRAM-SHA-256, CRAM-MD5, PLAIN, LOGIN");
    ReadServerNumber(m_server, kReceiver, "AuthCleartextNeedsTls", m_cleartextTlsRead, 1);
    ReadServerNumber(m_server, kSecurity, "LockoutEnabled", m_lockoutRead, 0);
    ReadServerNumber(m_server, kSecurity, "LockoutThreshold", m_thresholdRead, 5);
    ReadServerNumber(m_server, kSecurity, "LockoutWindow", m_windowRead, 15);
    ReadServerNumber(m_server, kSecurity, "LockoutDuration", m_durationRead, 30);
    ReadServerNumber(m_server, kSecurity, "LockoutAutoExpire", m_autoExpireRead, 1);
    m_otherMethods.clear();
    for (const QString& method : splitListText(m_methodsRead)) {
        if (!securityAuthMethods().contains(method, Qt::CaseInsensitive))
            m_otherMethods.append(method);
    }
}

bool CSecurityGeneralPage::exchange(bool save)
{
    if (!save) {
        const QSignalBlocker blocker(this);
        m_relayCombo->setCurrentIndex(int(qMin<quint32>(m_relayRead, 2)));
        m_submissionCheck->setChecked(m_submissionRead != 0);
        const QStringList methods = splitListText(m_methodsRead);
        for (QCheckBox* box : std::as_const(m_methodChecks))
            box->setChecked(methods.contains(box->text(), Qt::CaseInsensitive));
        m_cleartextTlsCheck->setChecked(m_cleartextTlsRead != 0);
        m_lockoutGroup->setChecked(m_lockoutRead != 0);
        for (auto [spin, value] : {std::pair{m_thresholdSpin, m_thresholdRead}, std::pair{m_windowSpin, m_windowRead},
                                   std::pair{m_durationSpin, m_durationRead}}) {
            const QSignalBlocker spinBlocker(spin);
            spin->setValue(int(qBound<quint32>(quint32(spin->minimum()), value, quint32(spin->maximum()))));
        }
        m_autoExpireCheck->setChecked(m_autoExpireRead != 0);
        updateControls();
        return true;
    }
    const bool authRequired = m_relayCombo->currentIndex() != 0 || m_submissionCheck->isChecked();
    if (authRequired && methodsText().isEmpty()) {
        taviMessageBox(TaviString(IDS_SEC_NO_AUTH_METHOD), Mb::Ok | Mb::IconExclamation);
        m_methodChecks.first()->setFocus();
        return false;
    }
    return true;
}

QString CSecurityGeneralPage::methodsText() const
{
    QStringList methods;
    for (QCheckBox* box : std::as_const(m_methodChecks)) {
        if (box->isChecked())
            methods.append(box->text());
    }
    return joinListText(methods + m_otherMethods);
}

void CSecurityGeneralPage::updateControls()
{
    // A ban that never expires by itself has no duration.
    m_durationSpin->setEnabled(m_autoExpireCheck->isChecked());
}

bool CSecurityGeneralPage::apply()
{
    bool ok = writeChangedNumber(m_server, nullptr, "NoUnauthenticatedRelay", quint32(m_relayCombo->currentIndex()), m_relayRead);
    ok = writeChangedNumber(m_server, kReceiver, "SubmissionAuthRequired", m_submissionCheck->isChecked() ? 1 : 0,
                            m_submissionRead) && ok;
    // The methods are compared as a set: the same methods in another order are no change.
    const QString methods = methodsText();
    const auto key = [](const QString& text) {
        QStringList l = splitListText(text.toUpper());
        l.sort();
        return l;
    };
    if (key(methods) != key(m_methodsRead))
        ok = writeChangedString(m_server, kReceiver, "AuthMethods", methods, m_methodsRead) && ok;
    ok = writeChangedNumber(m_server, kReceiver, "AuthCleartextNeedsTls", m_cleartextTlsCheck->isChecked() ? 1 : 0,
                            m_cleartextTlsRead) && ok;
    ok = writeChangedNumber(m_server, kSecurity, "LockoutEnabled", m_lockoutGroup->isChecked() ? 1 : 0, m_lockoutRead) && ok;
    ok = writeChangedNumber(m_server, kSecurity, "LockoutThreshold", quint32(m_thresholdSpin->value()), m_thresholdRead) && ok;
    ok = writeChangedNumber(m_server, kSecurity, "LockoutWindow", quint32(m_windowSpin->value()), m_windowRead) && ok;
    ok = writeChangedNumber(m_server, kSecurity, "LockoutDuration", quint32(m_durationSpin->value()), m_durationRead) && ok;
    ok = writeChangedNumber(m_server, kSecurity, "LockoutAutoExpire", m_autoExpireCheck->isChecked() ? 1 : 0,
                            m_autoExpireRead) && ok;
    return ok;
}
