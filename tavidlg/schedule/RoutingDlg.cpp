#include "schedule/RoutingDlg.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/ScheduleStringIds.h"
#include "res/StringTable.h"
#include "schedule/ScheduleWidgets_p.h"
#include "schedule/ManualRouteDlg.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>

namespace {
constexpr unsigned kHelpContext = 2060;
constexpr int kMoreAfter = 100;

QPushButton* makeButton(const QString& text, const char* name, QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}
} // namespace

CRoutingDlg::CRoutingDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CRoutingDlg"));
    setWindowTitle(tr("Routing on %1"));

    m_list = new QTreeWidget(this);
    m_list->setObjectName(QStringLiteral("lstRoutes"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setHeaderLabels({tr("Domain mask"), tr("Rule for using")});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->resizeSection(1, fontMetrics().horizontalAdvance(tr("Rule for using")) + 40);
    m_list->setMinimumSize(fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 14);

    auto* maskLabel = new QLabel(tr("Domain mas&k:"), this);
    maskLabel->setObjectName(QStringLiteral("lblDomainMask"));
    m_maskEdit = new QLineEdit(this);
    m_maskEdit->setObjectName(QStringLiteral("edtDomainMask"));
    maskLabel->setBuddy(m_maskEdit);
    auto* ruleGroup = new QGroupBox(tr("Rule for using the routes"), this);
    ruleGroup->setObjectName(QStringLiteral("grpRule"));
    m_forceRadio = new QRadioButton(tr("&Force"), ruleGroup);
    m_forceRadio->setObjectName(QStringLiteral("radForce"));
    m_defaultRadio = new QRadioButton(tr("Defaul&t"), ruleGroup);
    m_defaultRadio->setObjectName(QStringLiteral("radDefault"));
    m_additionalRadio = new QRadioButton(tr("Additiona&l"), ruleGroup);
    m_additionalRadio->setObjectName(QStringLiteral("radAdditional"));
    m_forceRadio->setChecked(true);
    auto* ruleLayout = new QHBoxLayout(ruleGroup);
    ruleLayout->addWidget(m_forceRadio);
    ruleLayout->addWidget(m_defaultRadio);
    ruleLayout->addWidget(m_additionalRadio);
    ruleLayout->addStretch(1);

    m_addButton = makeButton(tr("&Add"), "btnAdd", this);
    m_deleteButton = makeButton(tr("D&elete"), "btnDelete", this);
    m_upButton = makeButton(tr("&Up"), "btnUp", this);
    m_downButton = makeButton(tr("&Down"), "btnDown", this);
    m_routesButton = makeButton(tr("&Routes..."), "btnRoutes", this);

    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {m_addButton, m_deleteButton, m_upButton, m_downButton, m_routesButton})
        buttons->addWidget(b);
    buttons->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(m_list, 1);
    top->addLayout(buttons);
    auto* maskRow = new QHBoxLayout;
    maskRow->addWidget(maskLabel);
    maskRow->addWidget(m_maskEdit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(maskRow);
    layout->addWidget(ruleGroup);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_list, m_addButton);
    setTabOrder(m_addButton, m_deleteButton);
    setTabOrder(m_deleteButton, m_upButton);
    setTabOrder(m_upButton, m_downButton);
    setTabOrder(m_downButton, m_routesButton);
    setTabOrder(m_routesButton, m_maskEdit);
    setTabOrder(m_maskEdit, m_forceRadio);

    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &CRoutingDlg::showSelection);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, &CRoutingDlg::editHosts);
    connect(m_addButton, &QPushButton::clicked, this, &CRoutingDlg::addRoute);
    connect(m_deleteButton, &QPushButton::clicked, this, &CRoutingDlg::deleteRoute);
    connect(m_upButton, &QPushButton::clicked, this, [this] { moveRoute(-1); });
    connect(m_downButton, &QPushButton::clicked, this, [this] { moveRoute(1); });
    connect(m_routesButton, &QPushButton::clicked, this, &CRoutingDlg::editHosts);
    redirectEnter(this, {m_maskEdit}, m_addButton);
}

CRoutingDlg::~CRoutingDlg()
{
    // The table is freed whether or not it was saved.
    for (_tManualRoute* route : m_routes)
        FreeManualRoutes(route);
}

QString CRoutingDlg::ruleText(uint32_t rule)
{
    switch (rule) {
    case VB_ROUTE_FORCE: return TaviString(IDS_ROUTE_RULE_FORCE);
    case VB_ROUTE_DEFAULT: return TaviString(IDS_ROUTE_RULE_DEFAULT);
    default: return TaviString(IDS_ROUTE_RULE_ADDITIONAL);
    }
}

QString CRoutingDlg::hostlessMaskList(const QStringList& masks)
{
    // The list is deliberately not cut off, only marked, so that every mask can still be found.
    QString text;
    for (const QString& mask : masks) {
        if (text.size() > kMoreAfter)
            text += TaviString(IDS_ROUTE_MORE);
        text += mask;
        text += QLatin1Char('\n');
    }
    return text;
}

QTreeWidgetItem* CRoutingDlg::makeRow(const _tManualRoute* route) const
{
    return new QTreeWidgetItem(QStringList{QString::fromUtf8(route->domainMask), ruleText(route->rule)});
}

void CRoutingDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    _tManualRoute* first = nullptr;
    uint32_t error = 0;
    {
        CWaitCursor wait;
        if (!LoadManualRoutes(server(), &first))
            error = GetLastError();
        QList<QTreeWidgetItem*> rows;
        for (_tManualRoute* route = first; route; route = route->next) {
            m_routes.push_back(route);
            rows.append(makeRow(route));
        }
        linkRoutes(false);
        m_list->addTopLevelItems(rows);
    }
    if (error) {
        // Saving a table that could not be read would replace it with an empty one.
        m_loadFailed = true;
        ReportError(error, TaviString(IDS_ROUTE_LOAD_ERROR));
        for (QWidget* w : std::initializer_list<QWidget*>{m_addButton, m_maskEdit, m_forceRadio, m_defaultRadio, m_additionalRadio})
            w->setEnabled(false);
    }
    showSelection();
}

void CRoutingDlg::linkRoutes(bool link)
{
    for (size_t i = 0; i < m_routes.size(); ++i)
        m_routes[i]->next = link && i + 1 < m_routes.size() ? m_routes[i + 1] : nullptr;
}

int CRoutingDlg::selectedRow() const
{
    const QList<QTreeWidgetItem*> selected = m_list->selectedItems();
    return selected.isEmpty() ? -1 : m_list->indexOfTopLevelItem(selected.first());
}

uint32_t CRoutingDlg::checkedRule() const
{
    if (m_forceRadio->isChecked())
        return VB_ROUTE_FORCE;
    if (m_defaultRadio->isChecked())
        return VB_ROUTE_DEFAULT;
    return VB_ROUTE_ADDITIONAL;
}

void CRoutingDlg::showSelection()
{
    const int row = selectedRow();
    const bool any = row >= 0 && !m_loadFailed;
    m_deleteButton->setEnabled(any);
    m_upButton->setEnabled(any && row > 0);
    m_downButton->setEnabled(any && row + 1 < int(m_routes.size()));
    m_routesButton->setEnabled(any);
    if (!any)
        return;
    const _tManualRoute* route = m_routes[size_t(row)];
    m_maskEdit->setText(QString::fromUtf8(route->domainMask));
    QRadioButton* radio = route->rule == VB_ROUTE_FORCE ? m_forceRadio
        : route->rule == VB_ROUTE_DEFAULT               ? m_defaultRadio
                                                        : m_additionalRadio;
    radio->setChecked(true);
}

void CRoutingDlg::addRoute()
{
    const QString mask = m_maskEdit->text().trimmed();
    if (mask.isEmpty()) {
        inputBeep(m_maskEdit);
        return;
    }
    _tManualRoute* route = AllocManualRoute(mask.toUtf8().constData(), checkedRule());
    if (!route) {
        inputBeep(m_maskEdit);
        return;
    }
    const int row = selectedRow();
    if (row >= 0) {
        // The selected route takes the typed mask and rule and keeps its hosts.
        _tManualRoute* old = m_routes[size_t(row)];
        route->hosts = old->hosts;
        old->hosts = nullptr;
        FreeManualRoutes(old);
        m_routes[size_t(row)] = route;
        QTreeWidgetItem* item = m_list->topLevelItem(row);
        item->setText(0, mask);
        item->setText(1, ruleText(route->rule));
    } else {
        m_routes.push_back(route);
        QTreeWidgetItem* item = makeRow(route);
        m_list->addTopLevelItem(item);
        m_list->setCurrentItem(item);
        m_list->scrollToItem(item);
    }
    m_modified = true;
    showSelection();
}

void CRoutingDlg::deleteRoute()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    FreeManualRoutes(m_routes[size_t(row)]);
    m_routes.erase(m_routes.begin() + row);
    delete m_list->takeTopLevelItem(row);
    // Nothing stays selected, so that the next Add adds a route.
    m_list->clearSelection();
    m_list->setCurrentItem(nullptr);
    m_maskEdit->clear();
    m_modified = true;
    showSelection();
}

void CRoutingDlg::moveRoute(int by)
{
    const int row = selectedRow();
    const int to = row + by;
    if (row < 0 || to < 0 || to >= int(m_routes.size()))
        return;
    std::swap(m_routes[size_t(row)], m_routes[size_t(to)]);
    QTreeWidgetItem* item = m_list->takeTopLevelItem(row);
    m_list->insertTopLevelItem(to, item);
    m_list->setCurrentItem(item);
    m_list->scrollToItem(item);
    m_modified = true;
    showSelection();
}

void CRoutingDlg::editHosts()
{
    const int row = selectedRow();
    if (row < 0 || m_loadFailed)
        return;
    CManualRouteDlg dialog(this, m_routes[size_t(row)]);
    if (dialog.exec() == Id::Ok && dialog.hostsReplaced())
        m_modified = true;
}

void CRoutingDlg::onOK()
{
    // An untouched table is not rewritten; the dialog ends as if cancelled.
    if (!m_modified || m_loadFailed) {
        closeAsCancel();
        return;
    }
    QStringList hostless;
    for (const _tManualRoute* route : m_routes) {
        if (!route->hosts)
            hostless << QString::fromUtf8(route->domainMask);
    }
    if (!hostless.isEmpty()) {
        taviMessageBox(TaviFormat(TaviString(IDS_ROUTE_NO_HOSTS), {hostlessMaskList(hostless)}),
                       Mb::Ok | Mb::IconExclamation);
        return;
    }
    uint32_t error = 0;
    {
        CWaitCursor wait;
        linkRoutes(true);
        if (!SaveManualRoutes(server(), m_routes.empty() ? nullptr : m_routes.front()))
            error = GetLastError();
        linkRoutes(false);
    }
    if (error)
        ReportError(error, TaviString(IDS_ROUTE_SAVE_ERROR));
    closeAsOK();
}
