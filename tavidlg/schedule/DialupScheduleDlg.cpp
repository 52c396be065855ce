#include "schedule/DialupScheduleDlg.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/ScheduleStringIds.h"
#include "res/StringTable.h"
#include "schedule/ToDScheduleDlg.h"
#include "schedule/ToDScheduleText.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <velbrook/ServerCommon.h>

namespace {
constexpr unsigned kHelpContext = 2041;
constexpr uint32_t kScheduleBufferSize = 1024;

QLabel* makeSummaryLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(parent->fontMetrics().averageCharWidth() * 44);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMargin(4);
    return label;
}

QString readableTime(const std::string& time)
{
    // Times written by the dialog are four digits; anything else is shown as stored.
    if (time.size() == 4)
        return QString::fromStdString(time.substr(0, 2) + ":" + time.substr(2));
    return QString::fromStdString(time);
}
} // namespace

CDialupScheduleDlg::CDialupScheduleDlg(QWidget* parent, _tMailServer* server)
    : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CDialupScheduleDlg"));
    setWindowTitle(tr("Time-of-day Delivery Schedule on %1"));
    m_weekday = {"WeekdaySchedule", IDS_SCHED_WEEKDAY_CAPTION, {}, {}, makeSummaryLabel("lblWeekdaySchedule", this)};
    m_weekend = {"WeekendSchedule", IDS_SCHED_WEEKEND_CAPTION, {}, {}, makeSummaryLabel("lblWeekendSchedule", this)};

    auto* group = new QGroupBox(tr("Delivery times"), this);
    group->setObjectName(QStringLiteral("grpSchedules"));
    auto* weekdayCaption = new QLabel(tr("Monday to Friday:"), group);
    auto* weekendCaption = new QLabel(tr("Saturday and Sunday:"), group);
    auto* weekdayButton = new QPushButton(tr("Week&days..."), group);
    weekdayButton->setObjectName(QStringLiteral("btnWeekday"));
    auto* weekendButton = new QPushButton(tr("Week&ends..."), group);
    weekendButton->setObjectName(QStringLiteral("btnWeekend"));
    m_weekday.label->setParent(group);
    m_weekend.label->setParent(group);
    auto* grid = new QGridLayout(group);
    grid->addWidget(weekdayCaption, 0, 0, 1, 2);
    grid->addWidget(m_weekday.label, 1, 0);
    grid->addWidget(weekdayButton, 1, 1, Qt::AlignTop);
    grid->addWidget(weekendCaption, 2, 0, 1, 2);
    grid->addWidget(m_weekend.label, 3, 0);
    grid->addWidget(weekendButton, 3, 1, Qt::AlignTop);
    grid->setColumnStretch(0, 1);

    auto* link = new QGroupBox(tr("Dial-up link"), this);
    link->setObjectName(QStringLiteral("grpDialup"));
    auto* stateCaption = new QLabel(tr("State:"), link);
    m_stateLabel = new QLabel(link);
    m_stateLabel->setObjectName(QStringLiteral("lblDialupState"));
    m_connectButton = new QPushButton(tr("&Connect"), link);
    m_connectButton->setObjectName(QStringLiteral("btnConnect"));
    m_disconnectButton = new QPushButton(tr("D&isconnect"), link);
    m_disconnectButton->setObjectName(QStringLiteral("btnDisconnect"));
    auto* row = new QHBoxLayout(link);
    row->addWidget(stateCaption);
    row->addWidget(m_stateLabel, 1);
    row->addWidget(m_connectButton);
    row->addWidget(m_disconnectButton);

    for (QPushButton* b : {weekdayButton, weekendButton, m_connectButton, m_disconnectButton})
        b->setAutoDefault(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addWidget(link);
    layout->addStretch(1);
    layout->addWidget(createButtonBox(true));

    connect(weekdayButton, &QPushButton::clicked, this, [this] { editSchedule(m_weekday); });
    connect(weekendButton, &QPushButton::clicked, this, [this] { editSchedule(m_weekend); });
    connect(m_connectButton, &QPushButton::clicked, this,
            [this] { dialupAction(VB_DIALUP_CONNECT, IDS_SCHED_DIALUP_CONNECT_ERROR); });
    connect(m_disconnectButton, &QPushButton::clicked, this,
            [this] { dialupAction(VB_DIALUP_DISCONNECT, IDS_SCHED_DIALUP_DISCONNECT_ERROR); });
}

CDialupScheduleDlg::~CDialupScheduleDlg() = default;

QString CDialupScheduleDlg::summary(const QString& schedule, int shown)
{
    const auto entries = ToDSchedule::parse(schedule.toStdString());
    if (entries.empty())
        return TaviString(IDS_SCHED_TOD_NONE);
    QStringList parts;
    for (const ToDSchedule::Entry& entry : entries) {
        if (parts.size() == shown)
            break;
        const QString time = readableTime(entry.time);
        parts << (entry.dialup ? TaviFormat(TaviString(IDS_SCHED_TOD_DIALUP), {time}) : time);
    }
    if (int(entries.size()) > shown)
        parts << TaviFormat(TaviString(IDS_SCHED_TOD_MORE), {QString::number(entries.size() - size_t(shown))});
    return parts.join(QStringLiteral(", "));
}

void CDialupScheduleDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    for (Schedule* s : {&m_weekday, &m_weekend}) {
        ReadServerString(server(), nullptr, s->property, s->read, kScheduleBufferSize);
        s->current = s->read;
        s->label->setText(summary(s->current));
    }
    refreshState();
}

void CDialupScheduleDlg::editSchedule(Schedule& schedule)
{
    CToDScheduleDlg dialog(this, schedule.captionId, schedule.current);
    dialog.exec();
    schedule.label->setText(summary(schedule.current));
}

void CDialupScheduleDlg::refreshState()
{
    uint32_t state = 0;
    static const unsigned kStateText[] = {IDS_SCHED_DIALUP_DISCONNECTED, IDS_SCHED_DIALUP_CONNECTING,
                                          IDS_SCHED_DIALUP_CONNECTED, IDS_SCHED_DIALUP_DISCONNECTING};
    const bool known = GetDialupStatus(server(), &state) && state <= VB_DIALUP_DISCONNECTING;
    m_stateLabel->setText(TaviString(known ? kStateText[state] : IDS_SCHED_DIALUP_UNKNOWN));
    // An unknown state leaves both actions open.
    m_connectButton->setEnabled(!known || state == VB_DIALUP_DISCONNECTED || state == VB_DIALUP_DISCONNECTING);
    m_disconnectButton->setEnabled(!known || state == VB_DIALUP_CONNECTED || state == VB_DIALUP_CONNECTING);
}

void CDialupScheduleDlg::dialupAction(uint32_t action, unsigned errorId)
{
    bool ok = false;
    {
        CWaitCursor wait;
        ok = DialupAction(server(), action) != 0;
    }
    if (!ok)
        ReportErrorId(GetLastError(), errorId);
    refreshState();
}

void CDialupScheduleDlg::onOK()
{
    // Each schedule is written only when its text changed; letter case counts ("u" and "U").
    for (Schedule* s : {&m_weekday, &m_weekend}) {
        if (s->current == s->read)
            continue;
        if (WriteServerString(server(), nullptr, s->property, s->current))
            s->read = s->current;
        else
            ReportPropertyWriteFailure(s->property);
    }
    closeAsOK();
}
