#include "maillist/MailListPluginConfigPage.h"

#include "config/ErrorReport.h"
#include "maillist/MailListSheet.h"
#include "res/MailListStringIds.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>

CMailListPluginConfigPage::CMailListPluginConfigPage(CMailListSheet* sheet)
    : CTaviPropertyPage(tr("Configuration"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CMailListPluginConfigPage"));
    setHelpContext(0x2806);
    auto* intro = new QLabel(tr("&Rules that decide who receives this list's mail:"), this);
    m_rules = new QTableWidget(0, 2, this);
    m_rules->setObjectName(QStringLiteral("tblRules"));
    m_rules->setHorizontalHeaderLabels({tr("Rule"), tr("Value")});
    m_rules->horizontalHeader()->setStretchLastSection(true);
    m_rules->horizontalHeader()->resizeSection(0, 200);
    m_rules->verticalHeader()->hide();
    m_rules->setSelectionBehavior(QAbstractItemView::SelectRows);
    intro->setBuddy(m_rules);
    auto* add = new QPushButton(tr("&Add rule"), this);
    add->setObjectName(QStringLiteral("btnAddRule"));
    auto* remove = new QPushButton(tr("R&emove rule"), this);
    remove->setObjectName(QStringLiteral("btnRemoveRule"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(add);
    buttons->addWidget(remove);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(m_rules, 1);
    layout->addLayout(buttons);
    connect(add, &QPushButton::clicked, this, [this] {
        const int row = m_rules->rowCount();
        m_rules->insertRow(row);
        m_rules->setCurrentCell(row, 0);
        m_rules->editItem(m_rules->item(row, 0));
        setModified(true);
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        if (m_rules->currentRow() >= 0) {
            m_rules->removeRow(m_rules->currentRow());
            setModified(true);
        }
    });
    connect(m_rules, &QTableWidget::itemChanged, this, [this] {
        if (!m_loading)
            setModified(true);
    });
}

CMailListPluginConfigPage::~CMailListPluginConfigPage()
{
    FreeMailingListMembershipConfiguration(m_config);
}

void CMailListPluginConfigPage::initPage()
{
    m_config = LoadMailingListMembershipConfiguration(m_sheet->list());
}

bool CMailListPluginConfigPage::exchange(bool save)
{
    if (save || !m_config)
        return true;
    QByteArray buffer(1024, '\0');
    uint32_t size = uint32_t(buffer.size());
    if (!GetMailingListMembershipRules(m_config, buffer.data(), &size) && GetLastError() == VB_ERROR_MORE_DATA) {
        buffer.resize(qsizetype(size));
        GetMailingListMembershipRules(m_config, buffer.data(), &size);
    }
    QStringList items;
    for (const QByteArray& item : buffer.left(qsizetype(size)).split('\0')) {
        if (item.isEmpty())
            break;
        items.append(QString::fromUtf8(item));
    }
    m_loading = true;
    m_rules->setRowCount(0);
    m_loadedNames.clear();
    for (qsizetype i = 0; i + 1 < items.size(); i += 2) {
        const int row = m_rules->rowCount();
        m_rules->insertRow(row);
        m_rules->setItem(row, 0, new QTableWidgetItem(items[i]));
        m_rules->setItem(row, 1, new QTableWidgetItem(items[i + 1]));
        m_loadedNames.append(items[i]);
    }
    m_loading = false;
    return true;
}

bool CMailListPluginConfigPage::apply()
{
    if (!m_config)
        return true;
    auto cell = [this](int row, int column) {
        const QTableWidgetItem* item = m_rules->item(row, column);
        return item ? item->text().trimmed() : QString();
    };
    QStringList shown;
    for (int row = 0; row < m_rules->rowCount(); ++row) {
        const QString name = cell(row, 0);
        if (name.isEmpty())
            continue;
        shown.append(name.toLower());
        const QByteArray n = name.toUtf8(), v = cell(row, 1).toUtf8();
        // An empty value removes the rule.
        EditMailingListMembershipConfiguration(m_config, n.constData(), v.isEmpty() ? nullptr : v.constData());
    }
    for (const QString& name : std::as_const(m_loadedNames))
        if (!shown.contains(name.toLower()))
            EditMailingListMembershipConfiguration(m_config, name.toUtf8().constData(), nullptr);
    if (ChangedMailingListMembershipConfiguration(m_config)
        && !SaveMailingListMembershipConfiguration(m_sheet->list(), m_config)) {
        ReportErrorFormat1(GetLastError(), IDS_MAILLIST_CANNOT_SAVE_CONFIG, m_sheet->displayName());
        return false;
    }
    m_loadedNames = shown;
    return true;
}
