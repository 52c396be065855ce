#include "schedule/ToDScheduleDlg.h"

#include "common/PlatformServices.h"
#include "res/StringTable.h"
#include "schedule/ScheduleWidgets_p.h"
#include "schedule/TimeOfDaySpin_p.h"
#include "schedule/ToDScheduleText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {
constexpr unsigned kHelpContext = 2040;
}

CToDScheduleDlg::CToDScheduleDlg(QWidget* parent, unsigned captionId, QString& schedule)
    : CTaviDialog(parent, nullptr), m_schedule(schedule)
{
    setObjectName(QStringLiteral("CToDScheduleDlg"));
    setUsesServerCaption(false);
    setWindowTitle(TaviString(captionId));

    auto* timeLabel = new QLabel(tr("&Time (hhmm):"), this);
    timeLabel->setObjectName(QStringLiteral("lblTime"));
    m_spin = new CTimeOfDaySpin(this);
    m_spin->setObjectName(QStringLiteral("spnTime"));
    m_spin->edit()->setObjectName(QStringLiteral("edtTime"));
    m_spin->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 40);
    timeLabel->setBuddy(m_spin);
    m_addButton = new QPushButton(tr("&Add >>>"), this);
    m_addButton->setObjectName(QStringLiteral("btnAdd"));
    m_removeButton = new QPushButton(tr("&Remove"), this);
    m_removeButton->setObjectName(QStringLiteral("btnRemove"));
    m_addButton->setAutoDefault(false);
    m_removeButton->setAutoDefault(false);

    auto* listLabel = new QLabel(tr("&Delivery times:"), this);
    listLabel->setObjectName(QStringLiteral("lblTimes"));
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("lstTimes"));
    m_list->setSortingEnabled(true);
    m_list->setUniformItemSizes(true);
    m_list->setMinimumSize(fontMetrics().averageCharWidth() * 18, fontMetrics().height() * 10);
    listLabel->setBuddy(m_list);
    auto* note = new QLabel(tr("A checked time also forces a dial-up\nconnection when no mail is waiting."), this);
    note->setObjectName(QStringLiteral("lblDialupNote"));

    layOutScheduleEditor(this, {timeLabel, m_spin, m_addButton, nullptr, m_removeButton}, listLabel, m_list, note,
                         createButtonBox(true));
    setTabOrder(m_spin, m_addButton);
    setTabOrder(m_addButton, m_removeButton);
    setTabOrder(m_removeButton, m_list);

    connect(m_addButton, &QPushButton::clicked, this, &CToDScheduleDlg::addTime);
    connect(m_removeButton, &QPushButton::clicked, this, &CToDScheduleDlg::removeTime);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &CToDScheduleDlg::updateButtons);
    redirectEnter(this, {m_spin}, m_addButton);
}

CToDScheduleDlg::~CToDScheduleDlg() = default;

void CToDScheduleDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    // Times are taken as stored (not reformatted); the list sorts them.
    const auto entries = ToDSchedule::parse(m_schedule.toStdString());
    for (const ToDSchedule::Entry& entry : entries) {
        auto* item = new QListWidgetItem(QString::fromStdString(entry.time));
        item->setCheckState(entry.dialup ? Qt::Checked : Qt::Unchecked);
        m_list->addItem(item);
    }
    updateButtons();
}

void CToDScheduleDlg::updateButtons()
{
    m_removeButton->setEnabled(!m_list->selectedItems().isEmpty());
}

void CToDScheduleDlg::addTime()
{
    QLineEdit* edit = m_spin->edit();
    const auto time = ToDSchedule::parseTime(edit->text().toStdString());
    if (!time) {
        // Not a time of day: nothing is added; the text is selected for correction.
        platform().beep(400, 250);
        m_spin->setFocus();
        m_spin->selectAll();
        return;
    }
    const QString text = QString::fromStdString(ToDSchedule::formatTime(*time));
    edit->setText(text);
    const QList<QListWidgetItem*> found = m_list->findItems(text, Qt::MatchExactly);
    QListWidgetItem* item = found.isEmpty() ? nullptr : found.first();
    if (!item) {
        item = new QListWidgetItem(text);
        item->setCheckState(Qt::Unchecked);
        m_list->addItem(item);
    }
    m_list->setCurrentItem(item);
    m_list->scrollToItem(item);
}

void CToDScheduleDlg::removeTime()
{
    const int row = m_list->currentRow();
    if (row < 0 || m_list->selectedItems().isEmpty())
        return;
    delete m_list->takeItem(row);
    if (m_list->count() > 0)
        m_list->setCurrentRow(qMin(row, m_list->count() - 1));
    updateButtons();
}

void CToDScheduleDlg::onOK()
{
    std::vector<ToDSchedule::Entry> entries;
    entries.reserve(size_t(m_list->count()));
    for (int row = 0; row < m_list->count(); ++row) {
        const QListWidgetItem* item = m_list->item(row);
        entries.push_back({item->text().toStdString(), item->checkState() == Qt::Checked});
    }
    m_schedule = QString::fromStdString(ToDSchedule::format(entries));
    closeAsOK();
}
