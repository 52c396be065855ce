#include "security/SecurityDhapPage.h"

#include "config/AccessLayer.h"
#include "security/PropertyWrites.h"
#include "security/ProbationListDlg.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
constexpr unsigned kHelpContext = 2112;
constexpr const char* kSection = "DHAP";
} // namespace

CSecurityDhapPage::CSecurityDhapPage(_tMailServer* server)
    : CTaviPropertyPage(tr("Harvest Protection")), m_server(server)
{
    setObjectName(QStringLiteral("CSecurityDhapPage"));
    setHelpContext(kHelpContext);
    auto* intro = new QLabel(tr("A directory harvest attack tries many made-up recipient addresses to find out "
                                "which exist. An address that tries too many unknown recipients is put on "
                                "probation: mail from it is refused until the probation ends."),
                             this);
    intro->setObjectName(QStringLiteral("lblIntro"));
    intro->setWordWrap(true);
    m_enabledGroup = new QGroupBox(tr("&Protect against directory harvest attacks"), this);
    m_enabledGroup->setObjectName(QStringLiteral("grpDhapEnabled"));
    m_enabledGroup->setCheckable(true);
    const auto spin = [this](const char* name, int min, int max, const QString& suffix) {
        auto* s = new QSpinBox(m_enabledGroup);
        s->setObjectName(QLatin1String(name));
        s->setRange(min, max);
        s->setSuffix(suffix);
        connect(s, &QSpinBox::valueChanged, this, [this] { setModified(); });
        return s;
    };
    m_perConnectionSpin = spin("spnMaxInvalidPerConnection", 1, 1000, tr(" unknown recipients"));
    m_perWindowSpin = spin("spnMaxInvalidPerWindow", 1, 100000, tr(" unknown recipients"));
    m_windowSpin = spin("spnWindowMinutes", 1, 1440, tr(" minutes"));
    m_probationSpin = spin("spnProbationMinutes", 1, 525600, tr(" minutes"));
    m_friendsCheck = new QCheckBox(tr("Do not check &friendly sites"), m_enabledGroup);
    m_friendsCheck->setObjectName(QStringLiteral("chkNoDhapForFriends"));
    auto* perConnection = new QLabel(tr("In one &connection, at most:"), m_enabledGroup);
    perConnection->setBuddy(m_perConnectionSpin);
    auto* perWindow = new QLabel(tr("From one address, at &most:"), m_enabledGroup);
    perWindow->setBuddy(m_perWindowSpin);
    auto* within = new QLabel(tr("&within"), m_enabledGroup);
    within->setBuddy(m_windowSpin);
    auto* probation = new QLabel(tr("Then put the address on p&robation for:"), m_enabledGroup);
    probation->setBuddy(m_probationSpin);
    auto* grid = new QGridLayout(m_enabledGroup);
    grid->addWidget(perConnection, 0, 0);
    grid->addWidget(m_perConnectionSpin, 0, 1);
    grid->addWidget(perWindow, 1, 0);
    grid->addWidget(m_perWindowSpin, 1, 1);
    grid->addWidget(within, 1, 2);
    grid->addWidget(m_windowSpin, 1, 3);
    grid->addWidget(probation, 2, 0);
    grid->addWidget(m_probationSpin, 2, 1);
    grid->addWidget(m_friendsCheck, 3, 0, 1, 4);
    grid->setColumnStretch(4, 1);
    m_probationButton = new QPushButton(tr("Probation &List..."), this);
    m_probationButton->setObjectName(QStringLiteral("btnProbationList"));
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch(1);
    buttonRow->addWidget(m_probationButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(m_enabledGroup);
    layout->addLayout(buttonRow);
    layout->addStretch(1);
    connect(m_enabledGroup, &QGroupBox::clicked, this, [this] { setModified(); });
    connect(m_friendsCheck, &QCheckBox::clicked, this, [this] { setModified(); });
    connect(m_probationButton, &QPushButton::clicked, this, &CSecurityDhapPage::onProbationList);
}

void CSecurityDhapPage::initPage()
{
    ReadServerNumber(m_server, kSection, "Enabled", m_enabledRead, 0);
    ReadServerNumber(m_server, kSection, "MaxInvalidPerConnection", m_perConnectionRead, 10);
    ReadServerNumber(m_server, kSection, "MaxInvalidPerWindow", m_perWindowRead, 50);
    ReadServerNumber(m_server, kSection, "WindowMinutes", m_windowRead, 60);
    ReadServerNumber(m_server, kSection, "ProbationMinutes", m_probationRead, 60);
    ReadServerNumber(m_server, kSection, "NoDhapForFriends", m_friendsRead, 1);
}

bool CSecurityDhapPage::exchange(bool save)
{
    if (save)
        return true;
    m_enabledGroup->setChecked(m_enabledRead != 0);
    for (auto [spin, value] : {std::pair{m_perConnectionSpin, m_perConnectionRead}, std::pair{m_perWindowSpin, m_perWindowRead},
                               std::pair{m_windowSpin, m_windowRead}, std::pair{m_probationSpin, m_probationRead}}) {
        const QSignalBlocker blocker(spin);
        spin->setValue(int(qBound<quint32>(quint32(spin->minimum()), value, quint32(spin->maximum()))));
    }
    m_friendsCheck->setChecked(m_friendsRead != 0);
    return true;
}

bool CSecurityDhapPage::apply()
{
    bool ok = writeChangedNumber(m_server, kSection, "Enabled", m_enabledGroup->isChecked() ? 1 : 0, m_enabledRead);
    ok = writeChangedNumber(m_server, kSection, "MaxInvalidPerConnection", quint32(m_perConnectionSpin->value()),
                            m_perConnectionRead) && ok;
    ok = writeChangedNumber(m_server, kSection, "MaxInvalidPerWindow", quint32(m_perWindowSpin->value()), m_perWindowRead) && ok;
    ok = writeChangedNumber(m_server, kSection, "WindowMinutes", quint32(m_windowSpin->value()), m_windowRead) && ok;
    ok = writeChangedNumber(m_server, kSection, "ProbationMinutes", quint32(m_probationSpin->value()), m_probationRead) && ok;
    ok = writeChangedNumber(m_server, kSection, "NoDhapForFriends", m_friendsCheck->isChecked() ? 1 : 0, m_friendsRead) && ok;
    return ok;
}

void CSecurityDhapPage::onProbationList()
{
    CProbationListDlg dialog(this, m_server);
    dialog.exec();
}
