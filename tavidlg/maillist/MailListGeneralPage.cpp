#include "maillist/MailListGeneralPage.h"

#include "common/PlatformServices.h"
#include "common/Reminder.h"
#include "config/AccessLayer.h"
#include "maillist/MailListSheet.h"
#include "res/MailListStringIds.h"
#include "res/StringTable.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

const char* const kFlagNames[] = {"LocalLanguageJournal", "LogRequestCommands", "NoMultipleCommands",
                                  "ModeratorControlJoin", "ModeratorControlLeave", "NotifyOnNewMember",
                                  "NotifyOnMemberLeave", "Disable", "ConfirmToSender", "SecureSubmission",
                                  "ModeratorControlContent"};
constexpr qint64 kMaxMessageSize = 100000000;

QCheckBox* makeCheck(QWidget* parent, const QString& text, const char* name)
{
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(QLatin1String(name));
    return box;
}

QRadioButton* makeRadio(QWidget* parent, const QString& text, const char* name)
{
    auto* radio = new QRadioButton(text, parent);
    radio->setObjectName(QLatin1String(name));
    return radio;
}

QLineEdit* makeEdit(QWidget* parent, const char* name)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    return edit;
}

} // namespace

CMailListGeneralPage::CMailListGeneralPage(CMailListSheet* sheet) : CTaviPropertyPage(tr("General"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CMailListGeneralPage"));
    setHelpContext(0x2800);
    buildControls();
}

void CMailListGeneralPage::buildControls()
{
    m_replyToList = makeCheck(this, tr("Repl&y to list"), "chkReplyToList");
    m_force = makeCheck(this, tr("&Force"), "chkForce");
    m_moderatorEdit = makeEdit(this, "edtModerators");
    auto* moderatorLabel = new QLabel(tr("&Moderators:"), this);
    moderatorLabel->setBuddy(m_moderatorEdit);

    auto* bounces = new QGroupBox(tr("Non-delivery reports"), this);
    m_returnToSender = makeRadio(bounces, tr("&Return to sender"), "radReturnToSender");
    m_sendTo = makeRadio(bounces, tr("&Send to:"), "radSendTo");
    m_sendToEdit = makeEdit(bounces, "edtBouncesTo");
    auto* bounceLayout = new QGridLayout(bounces);
    bounceLayout->addWidget(m_returnToSender, 0, 0, 1, 2);
    bounceLayout->addWidget(m_sendTo, 1, 0);
    bounceLayout->addWidget(m_sendToEdit, 1, 1);

    m_whoLabel = new QLabel(tr("Who can post:"), this);
    m_whoLabel->setObjectName(QStringLiteral("lblWhoCanPost"));
    m_anyone = makeRadio(this, tr("&Anyone"), "radAnyone");
    m_members = makeRadio(this, tr("Mem&bers"), "radMembers");
    m_membersDigesters = makeRadio(this, tr("Members and d&igesters"), "radMembersDigesters");
    m_moderatorsOnly = makeRadio(this, tr("M&oderators"), "radModerators");
    auto* who = new QButtonGroup(this);
    for (QRadioButton* r : {m_anyone, m_members, m_membersDigesters, m_moderatorsOnly})
        who->addButton(r);

    m_controlLabel = new QLabel(tr("Moderator controls:"), this);
    m_controlLabel->setObjectName(QStringLiteral("lblModeratorControls"));
    m_flagBoxes[ModeratorControlJoin] = makeCheck(this, tr("&Joining"), "chkModeratorControlJoin");
    m_flagBoxes[ModeratorControlLeave] = makeCheck(this, tr("&Leaving"), "chkModeratorControlLeave");
    m_flagBoxes[ModeratorControlContent] = makeCheck(this, tr("Con&tent"), "chkModeratorControlContent");
    m_notifyLabel = new QLabel(tr("Notify moderator on:"), this);
    m_notifyLabel->setObjectName(QStringLiteral("lblNotify"));
    m_flagBoxes[NotifyOnNewMember] = makeCheck(this, tr("Joi&ning"), "chkNotifyOnNewMember");
    m_flagBoxes[NotifyOnMemberLeave] = makeCheck(this, tr("Lea&ving"), "chkNotifyOnMemberLeave");

    m_agents = new QGroupBox(tr("Agents"), this);
    m_agents->setObjectName(QStringLiteral("grpAgents"));
    m_agentEdit = makeEdit(m_agents, "edtCommandLine");
    m_processorEdit = makeEdit(m_agents, "edtRequestCommandLine");
    auto* agentForm = new QFormLayout(m_agents);
    agentForm->addRow(tr("Mail list ag&ent:"), m_agentEdit);
    agentForm->addRow(tr("Mail list &processor agent:"), m_processorEdit);

    m_sizeEdit = makeEdit(this, "edtMaxMessageSize");
    m_sizeLabel = new QLabel(tr("Ma&x message size (bytes):"), this);
    m_sizeLabel->setObjectName(QStringLiteral("lblMaxMessageSize"));
    m_sizeLabel->setBuddy(m_sizeEdit);

    m_flagBoxes[ConfirmToSender] = makeCheck(this, tr("Confirmation message to sender"), "chkConfirmToSender");
    m_flagBoxes[Disable] = makeCheck(this, tr("Disable mail list"), "chkDisable");
    m_flagBoxes[LogRequestCommands] = makeCheck(this, tr("Lo&g list processor commands"), "chkLogRequestCommands");
    m_flagBoxes[NoMultipleCommands] = makeCheck(this, tr("Disallow multiple &commands"), "chkNoMultipleCommands");
    m_flagBoxes[LocalLanguageJournal] = makeCheck(this, tr("Journal in your local lang&uage"), "chkLocalLanguageJournal");
    m_flagBoxes[SecureSubmission] = makeCheck(this, tr("Poster must use SMTP authentication"), "chkSecureSubmission");

    auto* grid = new QGridLayout;
    grid->addWidget(moderatorLabel, 0, 0);
    grid->addWidget(m_moderatorEdit, 0, 1, 1, 3);
    grid->addWidget(m_replyToList, 1, 0);
    grid->addWidget(m_force, 1, 1);
    grid->addWidget(m_whoLabel, 2, 0);
    grid->addWidget(m_anyone, 2, 1);
    grid->addWidget(m_members, 2, 2);
    grid->addWidget(m_moderatorsOnly, 3, 1);
    grid->addWidget(m_membersDigesters, 3, 2);
    grid->addWidget(m_controlLabel, 4, 0);
    grid->addWidget(flagBox(ModeratorControlJoin), 4, 1);
    grid->addWidget(flagBox(ModeratorControlLeave), 4, 2);
    grid->addWidget(flagBox(ModeratorControlContent), 4, 3);
    grid->addWidget(m_notifyLabel, 5, 0);
    grid->addWidget(flagBox(NotifyOnNewMember), 5, 1);
    grid->addWidget(flagBox(NotifyOnMemberLeave), 5, 2);
    grid->addWidget(m_sizeLabel, 6, 0);
    grid->addWidget(m_sizeEdit, 6, 1);

    auto* options = new QGridLayout;
    options->addWidget(flagBox(ConfirmToSender), 0, 0);
    options->addWidget(flagBox(Disable), 0, 1);
    options->addWidget(flagBox(LogRequestCommands), 1, 0);
    options->addWidget(flagBox(NoMultipleCommands), 1, 1);
    options->addWidget(flagBox(SecureSubmission), 2, 0);
    options->addWidget(flagBox(LocalLanguageJournal), 2, 1);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(bounces);
    layout->addWidget(m_agents);
    layout->addLayout(options);
    layout->addStretch(1);

    // Filling the controls never reacts nor marks the page modified.
    auto modified = [this] {
        if (!m_loading)
            setModified(true);
    };
    auto react = [this, modified](void (CMailListGeneralPage::*reaction)()) {
        return [this, modified, reaction] {
            if (m_loading)
                return;
            (this->*reaction)();
            modified();
        };
    };
    connect(m_replyToList, &QCheckBox::toggled, this, react(&CMailListGeneralPage::updateForce));
    connect(flagBox(ModeratorControlJoin), &QCheckBox::toggled, this, react(&CMailListGeneralPage::updateNotify));
    connect(flagBox(ModeratorControlLeave), &QCheckBox::toggled, this, react(&CMailListGeneralPage::updateNotify));
    for (QRadioButton* r : {m_anyone, m_members, m_membersDigesters, m_moderatorsOnly})
        connect(r, &QRadioButton::toggled, this, react(&CMailListGeneralPage::updateSecureSubmission));
    connect(m_moderatorEdit, &QLineEdit::textEdited, this, [this, modified] { filterEdit(m_moderatorEdit, true); modified(); });
    connect(m_sendToEdit, &QLineEdit::textEdited, this, [this, modified] { filterEdit(m_sendToEdit, false); modified(); });
    for (QCheckBox* box : {m_force, flagBox(ModeratorControlContent), flagBox(NotifyOnNewMember),
                           flagBox(NotifyOnMemberLeave), flagBox(ConfirmToSender), flagBox(Disable),
                           flagBox(LogRequestCommands), flagBox(NoMultipleCommands), flagBox(LocalLanguageJournal),
                           flagBox(SecureSubmission)})
        connect(box, &QCheckBox::toggled, this, modified);
    for (QRadioButton* r : {m_returnToSender, m_sendTo})
        connect(r, &QRadioButton::toggled, this, modified);
    for (QLineEdit* e : {m_agentEdit, m_processorEdit, m_sizeEdit})
        connect(e, &QLineEdit::textEdited, this, modified);
}

void CMailListGeneralPage::initPage()
{
    m_version = m_sheet->formatVersion();
    m_digest = m_sheet->isDigestList();
    m_hasDigest = m_sheet->hasDigestList();
    m_joinAllowed = m_sheet->readNumber("UserJoinAllowed");
    m_leaveAllowed = m_sheet->readNumber("UserLeaveAllowed");
    m_contentModeration = m_version > 2 && !m_digest;
    m_replyMode = m_sheet->readNumber("ReplyToList");
    m_moderators = m_sheet->readString("Moderator");
    m_bouncesTo = m_sheet->readString("BouncesTo");
    m_bounceAction = m_sheet->readNumber("BounceAction");
    m_whoCanSend = m_sheet->readNumber("WhoCanSend");
    m_commandLine = m_sheet->readString("CommandLine");
    m_requestCommandLine = m_sheet->readString("RequestCommandLine");
    m_maxMessageSize = m_sheet->readNumber("MaxMessageSize");
    for (int f = 0; f < FlagCount; ++f)
        m_flags[f] = m_sheet->readNumber(kFlagNames[f]);
}

bool CMailListGeneralPage::exchange(bool save)
{
    if (save)
        return true; // validation and writing happen in onKillActive() and apply()
    m_loading = true;
    m_replyToList->setChecked(m_replyMode != 0);
    m_force->setChecked(m_replyMode == 2);
    m_moderatorEdit->setText(m_moderators);
    m_returnToSender->setChecked(m_bounceAction == 1);
    m_sendTo->setChecked(m_bounceAction != 1);
    m_sendToEdit->setText(m_bouncesTo);
    m_anyone->setChecked(m_whoCanSend == 2);
    m_members->setChecked(m_whoCanSend == 1);
    m_membersDigesters->setChecked(m_whoCanSend == 4);
    m_moderatorsOnly->setChecked(m_whoCanSend == 3);
    m_agentEdit->setText(m_commandLine);
    m_processorEdit->setText(m_requestCommandLine);
    m_sizeEdit->setText(QString::number(qint32(m_maxMessageSize)));
    for (int f = 0; f < FlagCount; ++f)
        m_flagBoxes[f]->setChecked(m_flags[f] != 0);
    applyVisibility();
    m_loading = false;
    return true;
}

void CMailListGeneralPage::applyVisibility()
{
    const bool v2 = m_version >= 2, v3 = m_version >= 3;
    m_force->setVisible(v2);
    m_force->setEnabled(m_replyMode != 0 && !m_digest);
    const bool posters = !(m_digest && v2);
    for (QWidget* w : {static_cast<QWidget*>(m_anyone), static_cast<QWidget*>(m_members),
                       static_cast<QWidget*>(m_moderatorsOnly), static_cast<QWidget*>(m_whoLabel)})
        w->setEnabled(posters);
    m_membersDigesters->setEnabled(m_hasDigest && v2);
    flagBox(ModeratorControlContent)->setVisible(v3);
    flagBox(ModeratorControlJoin)->setEnabled(m_joinAllowed != 0);
    flagBox(ModeratorControlLeave)->setEnabled(m_leaveAllowed != 0);
    flagBox(ModeratorControlContent)->setEnabled(m_contentModeration);
    m_controlLabel->setEnabled(m_joinAllowed || m_leaveAllowed || m_contentModeration);
    for (QWidget* w : {static_cast<QWidget*>(m_notifyLabel), static_cast<QWidget*>(flagBox(NotifyOnNewMember)),
                       static_cast<QWidget*>(flagBox(NotifyOnMemberLeave))})
        w->setVisible(v3);
    flagBox(NotifyOnNewMember)->setEnabled(m_joinAllowed && !m_flags[ModeratorControlJoin]);
    flagBox(NotifyOnMemberLeave)->setEnabled(m_leaveAllowed && !m_flags[ModeratorControlLeave]);
    m_notifyLabel->setEnabled(m_joinAllowed || m_leaveAllowed);
    m_agents->setVisible(v2);
    m_sizeLabel->setVisible(v2);
    m_sizeEdit->setVisible(v2);
    flagBox(ConfirmToSender)->setVisible(v3);
    flagBox(ConfirmToSender)->setEnabled(!m_digest && v3);
    flagBox(Disable)->setVisible(v3);
    flagBox(LogRequestCommands)->setVisible(v2);
    flagBox(NoMultipleCommands)->setVisible(v2);
    // Never shown, yet read and written back like the other flags.
    flagBox(LocalLanguageJournal)->setVisible(false);
    flagBox(SecureSubmission)->setEnabled(!m_digest && m_whoCanSend != 2);
}

void CMailListGeneralPage::updateForce()
{
    const bool on = m_replyToList->isChecked() && !m_digest;
    m_force->setEnabled(on);
    if (!on)
        m_force->setChecked(false);
}

void CMailListGeneralPage::updateNotify()
{
    const struct {
        Flag control, notify;
        quint32 allowed;
    } pairs[] = {{ModeratorControlJoin, NotifyOnNewMember, m_joinAllowed},
                 {ModeratorControlLeave, NotifyOnMemberLeave, m_leaveAllowed}};
    for (const auto& p : pairs) {
        if (flagBox(p.control)->isChecked()) {
            flagBox(p.notify)->setChecked(false);
            flagBox(p.notify)->setEnabled(false);
        } else if (p.allowed) {
            flagBox(p.notify)->setEnabled(true);
        }
    }
}

void CMailListGeneralPage::updateSecureSubmission()
{
    flagBox(SecureSubmission)->setEnabled(!m_anyone->isChecked());
}

bool CMailListGeneralPage::filterAddress(QString& text, bool allowComma)
{
    static const QString forbidden = QStringLiteral("<>()[]\\;:\"");
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (forbidden.contains(c) || c.unicode() < 33 || c.unicode() == 127 || (!allowComma && c == QLatin1Char(','))) {
            text.remove(i, 1);
            return true;
        }
    }
    return false;
}

void CMailListGeneralPage::filterEdit(QLineEdit* edit, bool allowComma)
{
    QString text = edit->text();
    const int cursor = edit->cursorPosition();
    if (!filterAddress(text, allowComma))
        return;
    const QSignalBlocker blocker(edit);
    edit->setText(text);
    edit->setCursorPosition(qMax(0, cursor - 1));
    platform().beep(400, 250);
}

qint64 CMailListGeneralPage::parseSize(const QString& text)
{
    const QString t = text.trimmed();
    qsizetype i = 0;
    bool negative = false;
    if (i < t.size() && (t[i] == QLatin1Char('-') || t[i] == QLatin1Char('+')))
        negative = t[i++] == QLatin1Char('-');
    qint64 value = 0;
    for (; i < t.size() && t[i].isDigit() && t[i].unicode() < 128; ++i)
        value = qMin<qint64>(value * 10 + (t[i].unicode() - '0'), kMaxMessageSize + 1);
    return negative ? -value : value;
}

quint32 CMailListGeneralPage::whoCanSendFromControls() const
{
    if (m_anyone->isChecked())
        return 2;
    if (m_members->isChecked())
        return 1;
    if (m_membersDigesters->isChecked())
        return 4;
    if (m_moderatorsOnly->isChecked())
        return 3;
    return m_whoCanSend;
}

bool CMailListGeneralPage::uncReminderAccepted(QLineEdit* edit, unsigned messageId, const char* key)
{
    QString path = edit->text();
    while (path.startsWith(QLatin1Char(' ')) || path.startsWith(QLatin1Char('\t')))
        path.remove(0, 1);
    if (path.size() < 2 || path.startsWith(QLatin1String("\\\\")))
        return true;
    CReminder reminder(this, messageId, QLatin1String(key), IDS_MAILLIST_UNC_CAPTION, 49);
    if (reminder.run() != Id::Cancel)
        return true;
    edit->setFocus();
    return false;
}

bool CMailListGeneralPage::onKillActive()
{
    const QString moderators = m_moderatorEdit->text().trimmed();
    if (m_moderatorsOnly->isChecked() && moderators.isEmpty()) {
        m_moderatorEdit->setFocus();
        taviMessageBox(TaviString(IDS_MAILLIST_NO_MODERATOR_TO_SEND), Mb::Ok | Mb::IconExclamation);
        return false;
    }
    if (moderators.isEmpty()
        && (flagBox(ModeratorControlJoin)->isChecked() || flagBox(ModeratorControlLeave)->isChecked()
            || flagBox(ModeratorControlContent)->isChecked())) {
        m_moderatorEdit->setFocus();
        taviMessageBox(TaviString(IDS_MAILLIST_NO_MODERATOR_TO_CONTROL), Mb::Ok | Mb::IconExclamation);
        return false;
    }
    const qint64 size = parseSize(m_sizeEdit->text());
    if (size < 0 || size > kMaxMessageSize) {
        m_sizeEdit->setFocus();
        m_sizeEdit->selectAll();
        taviMessageBox(TaviString(IDS_MAILLIST_BAD_SIZE), Mb::Ok | Mb::IconExclamation);
        return false;
    }
    if (m_sendTo->isChecked() && m_sendToEdit->text().trimmed().isEmpty()) {
        CReminder reminder(this, IDS_MAILLIST_NO_BOUNCE_ADDRESS, QStringLiteral("NoMailListBouncesReminder"),
                           IDS_MAILLIST_NO_BOUNCE_ADDRESS_CAPTION, 49);
        if (reminder.run() == Id::Cancel) {
            m_sendToEdit->setFocus();
            return false;
        }
    }
    if (IsClusteredConfiguration(m_sheet->server())) {
        if (!uncReminderAccepted(m_agentEdit, IDS_MAILLIST_AGENT_UNC, "MailListAgentReminder"))
            return false;
        if (!uncReminderAccepted(m_processorEdit, IDS_MAILLIST_PROCESSOR_AGENT_UNC, "MailListProcessorAgentReminder"))
            return false;
    }
    return true;
}

bool CMailListGeneralPage::apply()
{
    CWaitCursor wait;
    const quint32 reply = !m_replyToList->isChecked() ? 0 : m_force->isChecked() ? 2 : 1;
    m_sheet->writeIfChanged("ReplyToList", reply, m_replyMode);
    m_sheet->writeIfChanged("Moderator", m_moderatorEdit->text().trimmed(), m_moderators);
    m_sheet->writeIfChanged("BouncesTo", m_sendToEdit->text().trimmed(), m_bouncesTo);
    m_sheet->writeIfChanged("BounceAction", m_returnToSender->isChecked() ? 1u : 0u, m_bounceAction);
    m_sheet->writeIfChanged("WhoCanSend", whoCanSendFromControls(), m_whoCanSend);
    m_sheet->writeIfChanged("MaxMessageSize", quint32(parseSize(m_sizeEdit->text())), m_maxMessageSize);
    m_sheet->writeIfChanged("CommandLine", m_agentEdit->text().trimmed(), m_commandLine);
    m_sheet->writeIfChanged("RequestCommandLine", m_processorEdit->text().trimmed(), m_requestCommandLine);
    for (int f = 0; f < FlagCount; ++f)
        m_sheet->writeFlagIfChanged(kFlagNames[f], m_flagBoxes[f]->isChecked() ? 1 : 0, m_flags[f]);
    return true;
}
