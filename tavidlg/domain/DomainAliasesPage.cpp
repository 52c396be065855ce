#include "domain/DomainAliasesPage.h"

#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "domain/DomainSheet.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QVBoxLayout>

#include <velbrook/DomainStore.h>
#include <velbrook/MailToolkit.h>

namespace {
constexpr unsigned kHelpContext = 2152;
} // namespace

CDomainAliasesPage::CDomainAliasesPage(CDomainSheet* sheet) : CTaviPropertyPage(tr("Aliases"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CDomainAliasesPage"));
    setHelpContext(kHelpContext);
    auto* note = new QLabel(tr("Other names of this domain's mailboxes. Aliases are added and removed on the "
                               "mailbox they belong to."), this);
    note->setObjectName(QStringLiteral("lblAliasesNote"));
    note->setWordWrap(true);
    auto* filterLabel = new QLabel(tr("&Find:"), this);
    m_filterEdit = new QLineEdit(this);
    m_filterEdit->setObjectName(QStringLiteral("edtFilter"));
    m_filterEdit->setClearButtonEnabled(true);
    filterLabel->setBuddy(m_filterEdit);
    m_model = new QStringListModel(this);
    m_proxy = new QSortFilterProxyModel(this);
    m_proxy->setSourceModel(m_model);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list = new QListView(this);
    m_list->setObjectName(QStringLiteral("lstAliases"));
    m_list->setModel(m_proxy);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setUniformItemSizes(true);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("lblAliasCount"));
    m_principalLabel = new QLabel(this);
    m_principalLabel->setObjectName(QStringLiteral("lblAliasPrincipal"));
    m_principalLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(filterLabel);
    filterRow->addWidget(m_filterEdit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note);
    layout->addLayout(filterRow);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_countLabel);
    layout->addWidget(m_principalLabel);

    connect(m_filterEdit, &QLineEdit::textChanged, this, &CDomainAliasesPage::onFilterChanged);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &CDomainAliasesPage::onCurrentChanged);
}

CDomainAliasesPage::~CDomainAliasesPage() = default;

void CDomainAliasesPage::initPage()
{
    CWaitCursor wait;
    const QByteArray domain = m_sheet->resolvedName().toUtf8();
    uint32_t size = 0;
    QByteArray buffer;
    bool read = GetDomainAliasNames(m_sheet->server(), domain.constData(), nullptr, &size) != 0
                || GetLastError() == VB_ERROR_MORE_DATA;
    if (read) {
        buffer.resize(qsizetype(size) + 2);
        size = uint32_t(buffer.size());
        read = GetDomainAliasNames(m_sheet->server(), domain.constData(), buffer.data(), &size) != 0;
    }
    QStringList names;
    if (!read) {
        ReportErrorFormat1(GetLastError(), IDS_DOMAIN_ALIASES_UNREADABLE, m_sheet->resolvedName());
    } else {
        for (const char* p = buffer.constData(); p < buffer.constData() + buffer.size() && *p; p += qstrlen(p) + 1)
            names.append(QString::fromUtf8(p));
    }
    m_model->setStringList(names);
    m_proxy->sort(0, Qt::AscendingOrder);
    showCount();
}

void CDomainAliasesPage::onFilterChanged(const QString& text)
{
    m_proxy->setFilterFixedString(text.trimmed());
    showCount();
}

void CDomainAliasesPage::showCount()
{
    m_countLabel->setText(TaviFormat(TaviString(IDS_DOMAIN_ALIAS_COUNT),
                                     {QString::number(m_proxy->rowCount()), QString::number(m_model->rowCount())}));
}

void CDomainAliasesPage::onCurrentChanged()
{
    const QString alias = m_list->currentIndex().data().toString();
    if (alias.isEmpty()) {
        m_principalLabel->clear();
        return;
    }
    const QByteArray address = (alias + QLatin1Char('@') + m_sheet->resolvedName()).toUtf8();
    char principal[520] = {};
    if (GetAliasPrincipalName(m_sheet->server(), address.constData(), principal, sizeof principal))
        m_principalLabel->setText(tr("%1 delivers to %2").arg(alias, QString::fromUtf8(principal)));
    else
        m_principalLabel->setText(tr("%1: the mailbox cannot be read").arg(alias));
}
