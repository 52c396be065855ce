#include "domain/DomainGeneralPage.h"

#include "common/PlatformServices.h"
#include "common/Reminder.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "domain/DomainSheet.h"
#include "domain/DomainValues.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include <velbrook/DomainStore.h>
#include <velbrook/ListStore.h>
#include <velbrook/MailToolkit.h>

namespace {
constexpr unsigned kHelpContext = 2150;
constexpr unsigned kReminderFlags = Mb::OkCancel | Mb::IconExclamation; // 49

template <class T>
T* named(T* widget, const char* name)
{
    widget->setObjectName(QLatin1String(name));
    return widget;
}
} // namespace

CDomainGeneralPage::CDomainGeneralPage(CDomainSheet* sheet) : CTaviPropertyPage(tr("General"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CDomainGeneralPage"));
    setHelpContext(kHelpContext);
    m_quotas[DomainLimit] = {"QuotaLimit", nullptr, 0xFFFFFFFFu, IDS_DOMAIN_SET_QUOTA_LIMIT, true};
    m_quotas[DomainTrigger] = {"QuotaTrigger", nullptr, 0xFFFFFFFFu, IDS_DOMAIN_SET_QUOTA_TRIGGER, true};
    // The default-mailbox fields show a stored 4294967295 as digits once Apply has rewritten them.
    m_quotas[DefaultLimit] = {"QuotaDefaultLimit", nullptr, 0xFFFFFFFFu, IDS_DOMAIN_SET_QUOTA_LIMIT, false};
    m_quotas[DefaultTrigger] = {"QuotaDefaultTrigger", nullptr, 0xFFFFFFFFu, IDS_DOMAIN_SET_QUOTA_TRIGGER, false};
    buildControls();
}

CDomainGeneralPage::~CDomainGeneralPage() = default;

void CDomainGeneralPage::buildControls()
{
    m_mailboxRootLabel = named(new QLabel(tr("Mailbox &root directory:"), this), "lblMailInBoxDir");
    m_mailboxRootEdit = named(new QLineEdit(this), "edtMailInBoxDir");
    m_mailboxRootLabel->setBuddy(m_mailboxRootEdit);
    m_mailboxBrowse = named(new QPushButton(tr("&Browse..."), this), "btnBrowseMailInBoxDir");
    m_multiLevelCheck = named(new QCheckBox(tr("Multi-level mailbox directories"), this), "chkMultiLevelMailboxDirs");
    m_ipLabel = named(new QLabel(tr("IP &Address:"), this), "lblIpAddress");
    m_ipCombo = named(new QComboBox(this), "cboIpAddress");
    m_ipLabel->setBuddy(m_ipCombo);
    m_copyFailuresCheck = named(new QCheckBox(tr("&Copy local failure reports for this domain to postmaster "), this),
                                "chkLocalFailuresToPostmaster");
    m_statusLabel = named(new QLabel(this), "lblDomainStatus");
    m_statusLabel->setTextFormat(Qt::PlainText);
    m_statusLabel->setMinimumHeight(m_statusLabel->fontMetrics().lineSpacing() * 3);
    m_statusLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    buildQuotaGroup();

    m_maxMailboxesLabel = named(new QLabel(tr("Max mailbo&xes:"), this), "lblMaxMailboxes");
    m_maxMailboxesEdit = named(new QLineEdit(this), "edtMaxMailboxes");
    m_maxMailboxesLabel->setBuddy(m_maxMailboxesEdit);
    m_maxListsLabel = named(new QLabel(tr("Max mail &lists:"), this), "lblMaxMailLists");
    m_maxListsEdit = named(new QLineEdit(this), "edtMaxMailLists");
    m_maxListsLabel->setBuddy(m_maxListsEdit);
    for (QLineEdit* edit : {m_maxMailboxesEdit, m_maxListsEdit}) {
        edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * 14);
        edit->installEventFilter(this);
    }

    m_calendarGroup = named(new QGroupBox(tr("Calendaring"), this), "grpCalendaring");
    auto* calendarLayout = new QVBoxLayout(m_calendarGroup);
    const char* radioNames[3] = {"radCalendarAll", "radCalendarDisabled", "radCalendarConfigured"};
    const QString radioTexts[3] = {tr("Enable calendaring for all mailboxes in this domain"),
                                   tr("Disable calendaring for this domain"),
                                   tr("Enable calendaring for configured mailboxes in this domain")};
    for (int i = 0; i < 3; ++i) {
        m_calendarRadios[i] = named(new QRadioButton(radioTexts[i], m_calendarGroup), radioNames[i]);
        calendarLayout->addWidget(m_calendarRadios[i]);
        connect(m_calendarRadios[i], &QRadioButton::clicked, this, &CDomainGeneralPage::markModified);
    }

    m_listRootLabel = named(new QLabel(tr("Mail list root directory:"), this), "lblMailListDir");
    m_listRootEdit = named(new QLineEdit(this), "edtMailListDir");
    m_listRootLabel->setBuddy(m_listRootEdit);
    m_listBrowse = named(new QPushButton(tr("Browse..."), this), "btnBrowseMailListDir");

    auto* grid = new QGridLayout;
    grid->addWidget(m_mailboxRootLabel, 0, 0, 1, 3);
    grid->addWidget(m_mailboxRootEdit, 1, 0, 1, 2);
    grid->addWidget(m_mailboxBrowse, 1, 2);
    grid->addWidget(m_multiLevelCheck, 2, 0, 1, 3);
    grid->addWidget(m_ipLabel, 3, 0);
    grid->addWidget(m_ipCombo, 3, 1, 1, 2);
    grid->addWidget(m_copyFailuresCheck, 4, 0, 1, 3);
    grid->addWidget(m_statusLabel, 5, 0, 1, 3);
    grid->setColumnStretch(1, 1);

    auto* counts = new QHBoxLayout;
    counts->addWidget(m_maxMailboxesLabel);
    counts->addWidget(m_maxMailboxesEdit);
    counts->addSpacing(16);
    counts->addWidget(m_maxListsLabel);
    counts->addWidget(m_maxListsEdit);
    counts->addStretch(1);

    auto* listRoot = new QHBoxLayout;
    listRoot->addWidget(m_listRootEdit, 1);
    listRoot->addWidget(m_listBrowse);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(m_quotaGroup);
    layout->addLayout(counts);
    layout->addWidget(m_calendarGroup);
    layout->addWidget(m_listRootLabel);
    layout->addLayout(listRoot);
    layout->addStretch(1);

    connect(m_mailboxRootEdit, &QLineEdit::textEdited, this, &CDomainGeneralPage::markModified);
    connect(m_listRootEdit, &QLineEdit::textEdited, this, &CDomainGeneralPage::markModified);
    connect(m_maxMailboxesEdit, &QLineEdit::textEdited, this, &CDomainGeneralPage::markModified);
    connect(m_maxListsEdit, &QLineEdit::textEdited, this, &CDomainGeneralPage::markModified);
    connect(m_ipCombo, &QComboBox::activated, this, &CDomainGeneralPage::markModified);
    connect(m_copyFailuresCheck, &QCheckBox::clicked, this, &CDomainGeneralPage::markModified);
    connect(m_multiLevelCheck, &QCheckBox::clicked, this, &CDomainGeneralPage::onMultiLevelClicked);
    connect(m_mailboxBrowse, &QPushButton::clicked, this, [this] { browse(m_mailboxRootEdit, m_mailboxRootLabel); });
    connect(m_listBrowse, &QPushButton::clicked, this, [this] { browse(m_listRootEdit, m_listRootLabel); });

    setTabOrder(m_mailboxRootEdit, m_mailboxBrowse);
    setTabOrder(m_mailboxBrowse, m_multiLevelCheck);
    setTabOrder(m_multiLevelCheck, m_ipCombo);
    setTabOrder(m_ipCombo, m_copyFailuresCheck);
    setTabOrder(m_copyFailuresCheck, m_realTimeCheck);
    QWidget* previous = m_realTimeCheck;
    for (QuotaField& field : m_quotas) {
        setTabOrder(previous, field.combo);
        previous = field.combo;
    }
    setTabOrder(previous, m_maxMailboxesEdit);
    setTabOrder(m_maxMailboxesEdit, m_maxListsEdit);
    setTabOrder(m_maxListsEdit, m_calendarRadios[0]);
    setTabOrder(m_calendarRadios[2], m_listRootEdit);
    setTabOrder(m_listRootEdit, m_listBrowse);
}

void CDomainGeneralPage::buildQuotaGroup()
{
    m_quotaGroup = named(new QGroupBox(tr("Domain Quotas"), this), "grpDomainQuotas");
    m_quotaNote = named(new QLabel(tr("Values are for reporting purposes only and are not\nautomatically enforced"),
                                   m_quotaGroup), "lblQuotaNote");
    m_realTimeCheck = named(new QCheckBox(tr("Track domain size in real time"), m_quotaGroup), "chkQuotaRealTime");
    m_realTimeNote = named(new QLabel(tr("(not recommended for large or busy domains)"), m_quotaGroup), "lblQuotaRealTimeNote");
    m_realTimeNote->setIndent(m_realTimeCheck->style()->pixelMetric(QStyle::PM_IndicatorWidth)
                              + m_realTimeCheck->style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
    connect(m_realTimeCheck, &QCheckBox::clicked, this, &CDomainGeneralPage::markModified);
    const QString labels[QuotaFieldCount] = {tr("&Domain quota limit (kB):"), tr("D&omain warning level (kB):"),
                                             tr("Default mailbox &quota limit (kB):"),
                                             tr("Default mailbox &warning level (kB):")};
    const char* labelNames[QuotaFieldCount] = {"lblQuotaLimit", "lblQuotaTrigger", "lblQuotaDefaultLimit",
                                               "lblQuotaDefaultTrigger"};
    const char* comboNames[QuotaFieldCount] = {"cboQuotaLimit", "cboQuotaTrigger", "cboQuotaDefaultLimit",
                                               "cboQuotaDefaultTrigger"};
    auto* grid = new QGridLayout(m_quotaGroup);
    grid->addWidget(m_quotaNote, 0, 0, 1, 2);
    grid->addWidget(m_realTimeCheck, 1, 0, 1, 2);
    grid->addWidget(m_realTimeNote, 2, 0, 1, 2);
    for (int i = 0; i < QuotaFieldCount; ++i) {
        m_quotaLabels[i] = named(new QLabel(labels[i], m_quotaGroup), labelNames[i]);
        auto* combo = named(new QComboBox(m_quotaGroup), comboNames[i]);
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->addItems({TaviString(IDS_DOMAIN_QUOTA_DEFAULT), TaviString(IDS_DOMAIN_QUOTA_NONE)});
        combo->setMinimumContentsLength(10);
        m_quotaLabels[i]->setBuddy(combo);
        m_quotas[i].combo = combo;
        grid->addWidget(m_quotaLabels[i], 3 + i, 0);
        grid->addWidget(combo, 3 + i, 1);
        connect(combo->lineEdit(), &QLineEdit::textEdited, this, &CDomainGeneralPage::markModified);
        connect(combo, &QComboBox::activated, this, &CDomainGeneralPage::markModified);
    }
    grid->setColumnStretch(0, 1);
}

void CDomainGeneralPage::markModified()
{
    setModified(true);
}

void CDomainGeneralPage::load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    m_sheet->getText("MailInBoxDir", m_mailboxRoot);
    m_sheet->getText("MailListDir", m_listRoot);
    m_sheet->getText("IpAddress", m_ipAddress);
    quint32 flag = 0;
    m_sheet->getNumber("LocalFailuresToPostmaster", flag);
    m_copyFailures = flag != 0;
    m_sheet->getNumber("MaxMailboxes", m_maxMailboxes);
    m_sheet->getNumber("MaxMailLists", m_maxLists);
    for (QuotaField& field : m_quotas)
        m_sheet->getNumber(field.property, field.value);
    m_sheet->getNumber("QuotaTotSize", m_totalSize);
    m_sheet->getNumber("QuotaMsgSize", m_messageSize);
    m_sheet->getNumber("QuotaNoMsgs", m_messageCount);
    m_sheet->getNumber("QuotaLastChecked", m_lastVerified);
    flag = 0;
    m_sheet->getNumber("QuotaRealTime", flag);
    m_realTime = flag != 0;
    // The server's calendaring value is read into the buffer that holds the multi-level flag, so the
    // box starts from it whenever it can be read; Apply compares the box against this same state.
    quint32 buffer = 0;
    m_sheet->getNumber("MultiLevelMailboxDirs", buffer);
    const bool serverRead = ReadServerNumber(m_sheet->server(), "CalendarMgr", "CalendarRemit", buffer, buffer);
    m_multiLevel = buffer != 0;
    m_perDomainCalendaring = serverRead && buffer == 2;
    m_calendarMode = serverRead ? buffer : 0;
    if (m_perDomainCalendaring)
        m_sheet->getNumber("CalendarRemit", m_calendarMode);
    m_calendarSelection = m_calendarMode;
}

void CDomainGeneralPage::countObjects()
{
    const QByteArray name = m_sheet->resolvedName().toUtf8();
    uint32_t count = 0;
    if (!m_sheet->getNumber("MailboxCount", m_mailboxCount) && CountMailboxesInDomain(m_sheet->server(), name.constData(), &count))
        m_mailboxCount = count;
    count = 0;
    if (CountMailingListsInDomain(m_sheet->server(), name.constData(), &count))
        m_listCount = count;
}

void CDomainGeneralPage::hideAll(std::initializer_list<QWidget*> widgets)
{
    for (QWidget* widget : widgets)
        widget->hide();
}

void CDomainGeneralPage::initPage()
{
    CWaitCursor wait;
    load();
    const quint32 version = m_sheet->registryFormatVersion();
    m_copyFailuresCheck->setChecked(m_copyFailures);
    // A hidden box still holds the state, so that Apply finds nothing changed that was not shown.
    m_multiLevelCheck->setChecked(m_multiLevel);
    if (version < 4)
        m_multiLevelCheck->hide();
    // Hidden fields are filled all the same: their unchanged text writes nothing.
    m_mailboxRootEdit->setText(m_mailboxRoot);
    m_listRootEdit->setText(m_listRoot);
    m_mailboxRootEdit->setCursorPosition(0);
    m_listRootEdit->setCursorPosition(0);
    m_maxMailboxesEdit->setText(domainCountText(m_maxMailboxes));
    m_maxListsEdit->setText(domainCountText(m_maxLists));
    if (version < 3) {
        hideAll({m_mailboxRootLabel, m_mailboxRootEdit, m_mailboxBrowse, m_maxMailboxesLabel, m_maxMailboxesEdit,
                 m_maxListsLabel, m_maxListsEdit});
    } else if (!IsLocalMachine(m_sheet->server()) || !m_browse.Init(this)) {
        // Browsing shows this machine's folders, which mean nothing for a server elsewhere.
        hideAll({m_mailboxBrowse, m_listBrowse});
    }
    if (version < 5)
        hideAll({m_listRootLabel, m_listRootEdit, m_listBrowse});

    for (QRadioButton* radio : m_calendarRadios)
        radio->setEnabled(m_perDomainCalendaring);
    // A mode other than 0, 1 or 2 checks none of the three.
    if (m_calendarMode < 3)
        m_calendarRadios[m_calendarMode]->setChecked(true);

    fillAddressList();

    if (version >= 3) {
        m_quotaGroup->setEnabled(m_sheet->quotasEnabled());
    } else {
        m_quotaGroup->hide();
    }
    for (QuotaField& field : m_quotas)
        field.combo->setEditText(domainQuotaText(field.value, true));
    m_realTimeCheck->setChecked(m_realTime);
    countObjects();
    showStatus();
}

void CDomainGeneralPage::fillAddressList()
{
    if (m_sheet->isDefaultDomain()) {
        m_ipLabel->setEnabled(false);
        m_ipCombo->setEnabled(false);
        return;
    }
    QByteArray buffer(1024, '\0');
    uint32_t size = uint32_t(buffer.size());
    bool read = GetMailServerConstant(m_sheet->server(), "HostAddresses", buffer.data(), &size, nullptr) != 0;
    if (!read && GetLastError() == VB_ERROR_MORE_DATA) {
        buffer.resize(qsizetype(size) + 2);
        size = uint32_t(buffer.size());
        read = GetMailServerConstant(m_sheet->server(), "HostAddresses", buffer.data(), &size, nullptr) != 0;
    }
    const QSignalBlocker block(m_ipCombo);
    m_ipCombo->clear();
    for (const char* p = buffer.constData(); read && p < buffer.constData() + buffer.size() && *p; p += qstrlen(p) + 1) {
        // Only the addresses no domain is bound to yet.
        char owner[257] = {};
        if (!GetDomainFromAddress(m_sheet->server(), p, owner, sizeof owner))
            m_ipCombo->addItem(QString::fromUtf8(p));
    }
    m_ipIndex = -1;
    if (!m_ipAddress.isEmpty()) {
        m_ipCombo->addItem(m_ipAddress);
        m_ipIndex = m_ipCombo->count() - 1;
    }
    m_ipCombo->addItem(TaviString(IDS_DOMAIN_NO_ADDRESS));
    m_noneIndex = m_ipCombo->count() - 1;
    if (m_ipIndex < 0)
        m_ipIndex = m_noneIndex;
    m_ipCombo->setCurrentIndex(m_ipIndex);
}

void CDomainGeneralPage::showStatus()
{
    m_statusLabel->setText(domainStatusText(m_messageSize, m_messageCount, m_mailboxCount, m_lastVerified));
}

bool CDomainGeneralPage::eventFilter(QObject* watched, QEvent* event)
{
    // Leaving a count field below the current count is worth a note; a box popping up is not leaving.
    if (event->type() == QEvent::FocusOut && (watched == m_maxMailboxesEdit || watched == m_maxListsEdit)) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason && isInitialised())
            noteCountBelow(static_cast<QLineEdit*>(watched));
    }
    return CTaviPropertyPage::eventFilter(watched, event);
}

void CDomainGeneralPage::noteCountBelow(QLineEdit* edit)
{
    const bool mailboxes = edit == m_maxMailboxesEdit;
    const quint32 current = mailboxes ? m_mailboxCount : m_listCount;
    if (parseDomainCount(edit->text()) >= current)
        return;
    const unsigned id = mailboxes ? IDS_DOMAIN_MAILBOX_NOTE : IDS_DOMAIN_LIST_NOTE;
    taviMessageBox(TaviFormat(TaviString(id), {QString::number(current)}), Mb::Ok | Mb::IconExclamation);
}

void CDomainGeneralPage::onMultiLevelClicked(bool checked)
{
    markModified();
    if (checked)
        taviMessageBox(TaviString(IDS_DOMAIN_MULTILEVEL_WARNING), Mb::Ok | Mb::IconExclamation);
}

void CDomainGeneralPage::browse(QLineEdit* edit, QLabel* label)
{
    QString folder = edit->text();
    if (m_browse.Browse(label->text().remove(QLatin1Char('&')), folder)) {
        edit->setText(folder);
        markModified();
    }
}

bool CDomainGeneralPage::confirmUncPath(QLineEdit* edit, unsigned messageId, const char* rememberKey)
{
    const QString path = edit->text().trimmed();
    if (path.size() < 2 || isUncPath(path) || !IsClusteredConfiguration(m_sheet->server()))
        return true;
    CReminder reminder(this, messageId, QLatin1String(rememberKey), IDS_DOMAIN_UNC_CAPTION, kReminderFlags);
    if (reminder.run() != Id::Cancel)
        return true;
    edit->setFocus();
    return false;
}

bool CDomainGeneralPage::exchange(bool save)
{
    if (!save)
        return true;
    if (!confirmUncPath(m_mailboxRootEdit, IDS_DOMAIN_UNC_MAILBOX_ROOT, "DomainDirectoryReminder"))
        return false;
    if (m_sheet->registryFormatVersion() >= 5
        && !confirmUncPath(m_listRootEdit, IDS_DOMAIN_UNC_LIST_ROOT, "DomainListDirectoryReminder"))
        return false;
    m_calendarSelection = m_calendarRadios[1]->isChecked() ? 1 : m_calendarRadios[2]->isChecked() ? 2 : 0;
    return true;
}

bool CDomainGeneralPage::applyDirectory(QLineEdit* edit, const char* property, QString& member)
{
    const QString path = edit->text().trimmed();
    if (path == member)
        return true;
    if (IsLocalMachine(m_sheet->server()) && isOnNetworkDrive(path)) {
        m_sheet->setActivePage(this);
        edit->setFocus();
        taviMessageBox(TaviString(IDS_DOMAIN_NETWORK_DRIVE), Mb::Ok);
        return false;
    }
    // A failed write is silent: the field goes back to the value as stored.
    if (m_sheet->setText(property, path)) {
        member = path;
        if (m_sheet->isDefaultDomain())
            m_criticalChanged = true;
    }
    edit->setText(member);
    return true;
}

bool CDomainGeneralPage::applyCount(QLineEdit* edit, const char* property, quint32& member, unsigned failureId)
{
    const quint32 value = parseDomainCount(edit->text());
    if (value != member) {
        if (m_sheet->setNumber(property, value))
            member = value;
        else
            ReportErrorId(GetLastError(), failureId);
    }
    edit->setText(domainCountText(member));
    return true;
}

void CDomainGeneralPage::applyQuota(QuotaField& field)
{
    const QString text = field.combo->currentText().trimmed();
    field.combo->setEditText(text);
    const quint32 value = parseDomainQuota(text, true);
    if (value != field.value) {
        if (m_sheet->setNumber(field.property, value))
            field.value = value;
        else
            ReportErrorId(GetLastError(), field.failureId);
    }
    field.combo->setEditText(domainQuotaText(field.value, field.defaultAfterApply));
}

bool CDomainGeneralPage::apply()
{
    m_criticalChanged = false;
    if (!applyDirectory(m_mailboxRootEdit, "MailInBoxDir", m_mailboxRoot))
        return false;
    const auto applyFlag = [this](QCheckBox* check, const char* property, bool& member) {
        if (check->isChecked() != member && m_sheet->setNumber(property, check->isChecked() ? 1 : 0))
            member = check->isChecked();
    };
    applyFlag(m_multiLevelCheck, "MultiLevelMailboxDirs", m_multiLevel);
    applyFlag(m_copyFailuresCheck, "LocalFailuresToPostmaster", m_copyFailures);
    if (!m_sheet->isDefaultDomain() && m_ipCombo->currentIndex() != m_ipIndex) {
        const int index = m_ipCombo->currentIndex();
        const QString address = index == m_noneIndex ? QString() : m_ipCombo->currentText();
        if (m_sheet->setText("IpAddress", address)) {
            m_ipIndex = index;
            m_ipAddress = address;
        }
    }
    applyCount(m_maxMailboxesEdit, "MaxMailboxes", m_maxMailboxes, IDS_DOMAIN_SET_MAX_MAILBOXES);
    applyCount(m_maxListsEdit, "MaxMailLists", m_maxLists, IDS_DOMAIN_SET_MAX_LISTS);
    for (QuotaField& field : m_quotas)
        applyQuota(field);
    if (m_realTimeCheck->isChecked() != m_realTime) {
        if (m_sheet->setNumber("QuotaRealTime", m_realTimeCheck->isChecked() ? 1 : 0))
            m_realTime = m_realTimeCheck->isChecked();
        else
            ReportErrorId(GetLastError(), IDS_DOMAIN_SET_QUOTA_REAL_TIME);
    }
    if (m_sheet->registryFormatVersion() >= 5 && !applyDirectory(m_listRootEdit, "MailListDir", m_listRoot))
        return false;
    if (m_calendarSelection != m_calendarMode && m_calendarRadios[0]->isEnabled()
        && m_sheet->setNumber("CalendarRemit", m_calendarSelection))
        m_calendarMode = m_calendarSelection;
    if (m_criticalChanged)
        IndicateNewMailServerCriticalProperties(m_sheet->server());
    return CTaviPropertyPage::apply();
}
