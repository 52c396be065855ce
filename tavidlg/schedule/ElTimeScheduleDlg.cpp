#include "schedule/ElTimeScheduleDlg.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "res/ScheduleStringIds.h"
#include "res/StringTable.h"
#include "schedule/ScheduleWidgets_p.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {
constexpr unsigned kHelpContext = 2008;
constexpr uint32_t kReadBufferSize = 4096;
// The row's cumulative time in minutes; the displayed text is only its picture.
constexpr int kMinutesRole = Qt::UserRole;

quint64 rowMinutes(const QListWidgetItem* item)
{
    return item->data(kMinutesRole).toULongLong();
}
} // namespace

RetrySchedule::DurationWords CElTimeScheduleDlg::durationWords()
{
    const auto text = [](unsigned id) { return TaviString(id).toStdString(); };
    RetrySchedule::DurationWords w;
    w.initial = text(IDS_SCHED_INITIAL_ATTEMPT);
    w.day = text(IDS_SCHED_DAY);
    w.days = text(IDS_SCHED_DAYS);
    w.hour = text(IDS_SCHED_HOUR);
    w.hours = text(IDS_SCHED_HOURS);
    w.minute = text(IDS_SCHED_MINUTE);
    w.minutes = text(IDS_SCHED_MINUTES);
    return w;
}

CElTimeScheduleDlg::CElTimeScheduleDlg(QWidget* parent, _tMailServer* server)
    : CTaviDialog(parent, server), m_words(durationWords())
{
    setObjectName(QStringLiteral("CElTimeScheduleDlg"));
    setWindowTitle(tr("Elapsed Time Delivery Schedule on %1"));

    auto* timeLabel = new QLabel(tr("&Time after the initial attempt:"), this);
    timeLabel->setObjectName(QStringLiteral("lblTime"));
    m_timeEdit = new QLineEdit(this);
    m_timeEdit->setObjectName(QStringLiteral("edtTime"));
    timeLabel->setBuddy(m_timeEdit);
    auto* example = new QLabel(tr("For example: 1 day 20 minutes, 2 hours, 3d12h"), this);
    example->setObjectName(QStringLiteral("lblTimeExample"));
    example->setEnabled(false);
    m_addButton = new QPushButton(tr("Add >>>"), this);
    m_addButton->setObjectName(QStringLiteral("btnAdd"));
    m_removeButton = new QPushButton(tr("Remove"), this);
    m_removeButton->setObjectName(QStringLiteral("btnRemove"));
    m_defaultButton = new QPushButton(tr("Default schedule"), this);
    m_defaultButton->setObjectName(QStringLiteral("btnDefaultSchedule"));
    for (QPushButton* b : {m_addButton, m_removeButton, m_defaultButton})
        b->setAutoDefault(false);

    auto* listLabel = new QLabel(tr("Delivery &attempts:"), this);
    listLabel->setObjectName(QStringLiteral("lblSchedule"));
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("lstSchedule"));
    m_list->setUniformItemSizes(true);
    m_list->setMinimumSize(fontMetrics().averageCharWidth() * 34, fontMetrics().height() * 14);
    listLabel->setBuddy(m_list);
    auto* note = new QLabel(tr("At a checked attempt the sender is told\nthat the message is delayed."), this);
    note->setObjectName(QStringLiteral("lblNotifyNote"));

    layOutScheduleEditor(this, {timeLabel, m_timeEdit, example, m_addButton, nullptr, m_removeButton, m_defaultButton},
                         listLabel, m_list, note, createButtonBox(true));
    setTabOrder(m_timeEdit, m_addButton);
    setTabOrder(m_addButton, m_removeButton);
    setTabOrder(m_removeButton, m_defaultButton);
    setTabOrder(m_defaultButton, m_list);

    connect(m_timeEdit, &QLineEdit::textChanged, this, &CElTimeScheduleDlg::updateButtons);
    connect(m_list, &QListWidget::currentRowChanged, this, &CElTimeScheduleDlg::updateButtons);
    connect(m_addButton, &QPushButton::clicked, this, &CElTimeScheduleDlg::addTime);
    connect(m_removeButton, &QPushButton::clicked, this, &CElTimeScheduleDlg::removeRow);
    connect(m_defaultButton, &QPushButton::clicked, this, &CElTimeScheduleDlg::restoreDefault);
    redirectEnter(this, {m_timeEdit}, m_addButton);
}

CElTimeScheduleDlg::~CElTimeScheduleDlg() = default;

void CElTimeScheduleDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    ReadServerString(server(), nullptr, "RetrySchedule", m_readText, kReadBufferSize);
    if (m_readText.isEmpty())
        m_readText = QString::fromStdString(RetrySchedule::defaultText());
    fillList(RetrySchedule::parse(m_readText.toStdString()));
    updateButtons();
}

QListWidgetItem* CElTimeScheduleDlg::makeRow(quint64 minutes, bool notify)
{
    auto* item = new QListWidgetItem(QString::fromStdString(RetrySchedule::formatElapsed(minutes, m_words)));
    item->setData(kMinutesRole, minutes);
    item->setCheckState(notify ? Qt::Checked : Qt::Unchecked);
    return item;
}

void CElTimeScheduleDlg::fillList(const std::vector<RetrySchedule::Entry>& entries)
{
    m_list->clear();
    // The initial attempt's box is shown but cannot be changed; the row can be selected, not removed.
    QListWidgetItem* initial = makeRow(0, false);
    initial->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    m_list->addItem(initial);
    quint64 total = 0;
    for (const RetrySchedule::Entry& entry : entries) {
        total += entry.interval;
        m_list->addItem(makeRow(total, entry.notify));
    }
}

void CElTimeScheduleDlg::updateButtons()
{
    m_addButton->setEnabled(!m_timeEdit->text().isEmpty());
    m_removeButton->setEnabled(m_list->currentRow() > 0);
}

void CElTimeScheduleDlg::addTime()
{
    if (m_list->count() >= kMaxRows) {
        taviMessageBox(TaviString(IDS_SCHED_RETRY_FULL), Mb::Ok | Mb::IconExclamation);
        return;
    }
    const QString text = m_timeEdit->text();
    const QByteArray utf8 = text.toUtf8();
    const RetrySchedule::ParsedElapsed parsed = RetrySchedule::parseElapsed(utf8.toStdString());
    if (!parsed.ok) {
        // The bad character is selected (nothing at the end of the text), without a message.
        const int at = int(QString::fromUtf8(utf8.left(qsizetype(parsed.errorPos))).size());
        platform().beep(400, 250);
        m_timeEdit->setFocus();
        m_timeEdit->setSelection(at, at < text.size() ? 1 : 0);
        if (at >= text.size())
            m_timeEdit->setCursorPosition(at);
        return;
    }
    // Rows are kept in time order: a time already listed is selected, a new one goes before the first
    // later row.
    int row = 1;
    for (; row < m_list->count(); ++row) {
        const quint64 minutes = rowMinutes(m_list->item(row));
        if (minutes == parsed.minutes)
            break;
        if (minutes > parsed.minutes) {
            m_list->insertItem(row, makeRow(parsed.minutes, false));
            break;
        }
    }
    if (row == m_list->count())
        m_list->addItem(makeRow(parsed.minutes, false));
    m_list->setCurrentRow(row);
    m_list->scrollToItem(m_list->item(row));
    m_timeEdit->clear();
    m_removeButton->setEnabled(true);
}

void CElTimeScheduleDlg::removeRow()
{
    const int row = m_list->currentRow();
    if (row > 0)
        delete m_list->takeItem(row);
    m_removeButton->setEnabled(false);
}

void CElTimeScheduleDlg::restoreDefault()
{
    fillList(RetrySchedule::defaultEntries());
    updateButtons();
}

std::vector<RetrySchedule::Entry> CElTimeScheduleDlg::entriesFromList() const
{
    std::vector<RetrySchedule::Entry> entries;
    entries.reserve(size_t(m_list->count()));
    quint64 previous = 0;
    for (int row = 1; row < m_list->count(); ++row) {
        const QListWidgetItem* item = m_list->item(row);
        const quint64 minutes = rowMinutes(item);
        entries.push_back({uint32_t(minutes - previous), item->checkState() == Qt::Checked});
        previous = minutes;
    }
    return entries;
}

void CElTimeScheduleDlg::onOK()
{
    const QString text = QString::fromStdString(RetrySchedule::format(entriesFromList()));
    // An unchanged OK closes as Cancel, so that the caller knows that nothing was written.
    if (text.compare(m_readText, Qt::CaseInsensitive) == 0) {
        closeAsCancel();
        return;
    }
    if (!WriteServerString(server(), nullptr, "RetrySchedule", text))
        ReportError(GetLastError(), TaviString(IDS_SCHED_RETRY_SAVE_ERROR));
    closeAsOK();
}
