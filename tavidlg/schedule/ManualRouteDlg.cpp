#include "schedule/ManualRouteDlg.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "res/ScheduleStringIds.h"
#include "res/StringTable.h"
#include "schedule/ScheduleWidgets_p.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>

#include <algorithm>

namespace {
constexpr unsigned kHelpContext = 2061;
}

CManualRouteDlg::CManualRouteDlg(QWidget* parent, _tManualRoute* route)
    : CTaviDialog(parent, nullptr), m_route(route)
{
    setObjectName(QStringLiteral("CManualRouteDlg"));
    setUsesServerCaption(false);
    setWindowTitle(tr("Routes for %1").arg(QString::fromUtf8(route->domainMask)));

    m_list = new QTreeWidget(this);
    m_list->setObjectName(QStringLiteral("lstHosts"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setHeaderLabels({tr("Host"), tr("Port"), tr("Preference")});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->resizeSection(1, fontMetrics().horizontalAdvance(QStringLiteral("65535")) + 30);
    m_list->header()->resizeSection(2, fontMetrics().horizontalAdvance(tr("Preference")) + 30);
    m_list->setMinimumSize(fontMetrics().averageCharWidth() * 56, fontMetrics().height() * 9);

    const auto makeEdit = [this](const char* name, int length) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QLatin1String(name));
        edit->setMaxLength(length);
        return edit;
    };
    m_hostEdit = makeEdit("edtHost", kMaxHostLength);
    m_portEdit = makeEdit("edtPort", 10);
    m_preferenceEdit = makeEdit("edtPreference", 10);
    const int numberWidth = fontMetrics().averageCharWidth() * 12;
    m_portEdit->setMaximumWidth(numberWidth);
    m_preferenceEdit->setMaximumWidth(numberWidth);
    auto* hostLabel = new QLabel(tr("&Host:"), this);
    hostLabel->setBuddy(m_hostEdit);
    auto* portLabel = new QLabel(tr("P&ort:"), this);
    portLabel->setBuddy(m_portEdit);
    auto* preferenceLabel = new QLabel(tr("P&reference:"), this);
    preferenceLabel->setBuddy(m_preferenceEdit);
    m_addButton = new QPushButton(tr("Add"), this);
    m_addButton->setObjectName(QStringLiteral("btnAddModify"));
    m_deleteButton = new QPushButton(tr("&Delete"), this);
    m_deleteButton->setObjectName(QStringLiteral("btnDelete"));
    m_addButton->setAutoDefault(false);
    m_deleteButton->setAutoDefault(false);
    // "Modify" is the longer label; the button keeps one width.
    m_addButton->setMinimumWidth(qMax(m_addButton->sizeHint().width(),
                                      fontMetrics().horizontalAdvance(tr("Modify")) + 24));

    auto* grid = new QGridLayout;
    grid->addWidget(hostLabel, 0, 0);
    grid->addWidget(m_hostEdit, 0, 1, 1, 3);
    grid->addWidget(portLabel, 1, 0);
    grid->addWidget(m_portEdit, 1, 1);
    grid->addWidget(preferenceLabel, 1, 2, Qt::AlignRight);
    grid->addWidget(m_preferenceEdit, 1, 3);
    grid->setColumnStretch(2, 1);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_addButton);
    buttons->addWidget(m_deleteButton);
    buttons->addStretch(1);
    auto* editRow = new QHBoxLayout;
    editRow->addLayout(grid, 1);
    editRow->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addLayout(editRow);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_list, m_hostEdit);
    setTabOrder(m_hostEdit, m_portEdit);
    setTabOrder(m_portEdit, m_preferenceEdit);
    setTabOrder(m_preferenceEdit, m_addButton);
    setTabOrder(m_addButton, m_deleteButton);

    for (QLineEdit* edit : {m_hostEdit, m_portEdit, m_preferenceEdit})
        connect(edit, &QLineEdit::textEdited, m_addButton, [this] { m_addButton->setEnabled(true); });
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &CManualRouteDlg::showSelection);
    connect(m_addButton, &QPushButton::clicked, this, &CManualRouteDlg::addOrModify);
    connect(m_deleteButton, &QPushButton::clicked, this, &CManualRouteDlg::deleteHost);
    redirectEnter(this, {m_hostEdit, m_portEdit, m_preferenceEdit}, m_addButton);
}

CManualRouteDlg::~CManualRouteDlg() = default;

void CManualRouteDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    for (const _tManualRouteMx* mx = m_route->hosts; mx; mx = mx->next)
        m_hosts.push_back({QString::fromUtf8(mx->host), mx->port == 0 ? kStandardPort : mx->port, mx->preference});
    fillList();
}

void CManualRouteDlg::fillList()
{
    // Lower preferences first, compared as numbers; equal ones keep their order.
    std::stable_sort(m_hosts.begin(), m_hosts.end(),
                     [](const Host& a, const Host& b) { return a.preference < b.preference; });
    const QSignalBlocker block(m_list);
    m_list->clear();
    QList<QTreeWidgetItem*> rows;
    for (const Host& host : m_hosts)
        rows.append(new QTreeWidgetItem(QStringList{host.name, QString::number(host.port), QString::number(host.preference)}));
    m_list->addTopLevelItems(rows);
    showSelection();
}

int CManualRouteDlg::selectedRow() const
{
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? -1 : m_list->indexOfTopLevelItem(selected.first());
}

void CManualRouteDlg::showSelection()
{
    const int row = selectedRow();
    if (row >= 0) {
        const Host& host = m_hosts[size_t(row)];
        m_hostEdit->setText(host.name);
        m_portEdit->setText(QString::number(host.port));
        m_preferenceEdit->setText(QString::number(host.preference));
        m_addButton->setText(tr("Modify"));
    } else {
        m_hostEdit->clear();
        m_portEdit->setText(QString::number(kStandardPort));
        m_preferenceEdit->clear();
        m_addButton->setText(tr("Add"));
    }
    m_deleteButton->setEnabled(row >= 0);
    // Nothing to add or modify until an edit changes.
    m_addButton->setEnabled(false);
}

void CManualRouteDlg::addOrModify()
{
    Host host;
    host.name = m_hostEdit->text().trimmed();
    if (host.name.isEmpty() || host.name.toUtf8().size() > kMaxHostLength) {
        inputBeep(m_hostEdit);
        return;
    }
    if (!parseUnsigned(m_portEdit->text(), 1, 65535, host.port)) {
        inputBeep(m_portEdit);
        return;
    }
    if (!parseUnsigned(m_preferenceEdit->text(), 0, 65535, host.preference)) {
        inputBeep(m_preferenceEdit);
        return;
    }
    const int row = selectedRow();
    if (row >= 0)
        m_hosts[size_t(row)] = host;
    else
        m_hosts.push_back(host);
    m_modified = true;
    fillList();
    m_hostEdit->setFocus();
}

void CManualRouteDlg::deleteHost()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    m_hosts.erase(m_hosts.begin() + row);
    m_modified = true;
    fillList();
}

void CManualRouteDlg::onOK()
{
    if (!m_modified) {
        closeAsOK();
        return;
    }
    _tManualRouteMx* first = nullptr;
    _tManualRouteMx** tail = &first;
    for (const Host& host : m_hosts) {
        // The standard port is stored as 0.
        const uint32_t port = host.port == kStandardPort ? 0 : host.port;
        _tManualRouteMx* mx = AllocManualRouteMx(host.name.toUtf8().constData(), port, host.preference);
        if (!mx) {
            // The route keeps its hosts as they were; the edited rows stay for another try.
            const uint32_t error = GetLastError();
            FreeManualRouteMxs(first);
            ReportError(error, TaviString(IDS_ROUTE_HOSTS_ERROR));
            return;
        }
        *tail = mx;
        tail = &mx->next;
    }
    FreeManualRouteMxs(m_route->hosts);
    m_route->hosts = first;
    m_replaced = true;
    closeAsOK();
}
