#include "domain/DomainSynonymsPage.h"

#include "common/EnterRedirect.h"
#include "common/PlatformServices.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "domain/DomainSheet.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>

#include <velbrook/DomainStore.h>
#include <velbrook/MailToolkit.h>

namespace {
constexpr unsigned kHelpContext = 2151;

// The names an enumeration yields, in its order; false when it could not be started.
bool enumerate(_tDomainEnum* e, QStringList& names)
{
    if (!e)
        return false;
    QByteArray buffer(257, '\0');
    for (;;) {
        uint32_t size = uint32_t(buffer.size());
        if (FindNextDomain(e, buffer.data(), &size)) {
            names.append(QString::fromUtf8(buffer.constData()));
            continue;
        }
        if (GetLastError() != VB_ERROR_MORE_DATA)
            break;
        buffer.resize(qsizetype(size) + 1);
    }
    CloseDomainEnumeration(e);
    return true;
}

QString fold(const QString& name)
{
    return name.toLower();
}

bool isDomainName(const QString& name)
{
    // A dotted address is a host, not a name under which a domain receives mail.
    quint32 address = 0;
    const QByteArray utf8 = name.toUtf8();
    return IsValidHostName(utf8.constData()) && !IpAddressToDword(utf8.constData(), &address);
}
} // namespace

CDomainSynonymsPage::CDomainSynonymsPage(CDomainSheet* sheet) : CTaviPropertyPage(tr("Synonyms"), sheet), m_sheet(sheet)
{
    setObjectName(QStringLiteral("CDomainSynonymsPage"));
    setHelpContext(kHelpContext);
    auto* intro = new QLabel(tr("Mail addressed to any of these names is delivered to this domain."), this);
    intro->setObjectName(QStringLiteral("lblSynonymsNote"));
    intro->setWordWrap(true);
    auto* nameLabel = new QLabel(TaviString(IDS_DOMAIN_SYNONYM_PROMPT), this);
    m_nameEdit = new QLineEdit(this);
    m_nameEdit->setObjectName(QStringLiteral("edtSynonym"));
    m_nameEdit->setMaxLength(255);
    nameLabel->setBuddy(m_nameEdit);
    m_addButton = new QPushButton(tr("A&dd"), this);
    m_addButton->setObjectName(QStringLiteral("btnAdd"));
    m_renameButton = new QPushButton(tr("Re&name"), this);
    m_renameButton->setObjectName(QStringLiteral("btnRename"));
    m_deleteButton = new QPushButton(tr("&Delete"), this);
    m_deleteButton->setObjectName(QStringLiteral("btnDelete"));
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("lstSynonyms"));
    m_list->setSortingEnabled(true);

    auto* grid = new QGridLayout;
    grid->addWidget(nameLabel, 0, 0, 1, 2);
    grid->addWidget(m_nameEdit, 1, 0);
    grid->addWidget(m_addButton, 1, 1);
    grid->addWidget(m_list, 2, 0, 3, 1);
    grid->addWidget(m_renameButton, 2, 1);
    grid->addWidget(m_deleteButton, 3, 1);
    grid->setRowStretch(4, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(grid);

    connect(m_addButton, &QPushButton::clicked, this, &CDomainSynonymsPage::onAdd);
    connect(m_renameButton, &QPushButton::clicked, this, &CDomainSynonymsPage::onRename);
    connect(m_deleteButton, &QPushButton::clicked, this, &CDomainSynonymsPage::onDelete);
    redirectEnter(this, {m_nameEdit}, m_addButton);
    connect(m_nameEdit, &QLineEdit::textChanged, this, &CDomainSynonymsPage::updateButtons);
    connect(m_list, &QListWidget::itemSelectionChanged, this, &CDomainSynonymsPage::onSelectionChanged);
}

CDomainSynonymsPage::~CDomainSynonymsPage() = default;

void CDomainSynonymsPage::initPage()
{
    reload();
}

void CDomainSynonymsPage::reload()
{
    CWaitCursor wait;
    const QByteArray name = m_sheet->resolvedName().toUtf8();
    m_stored.clear();
    if (!enumerate(StartDomainSynonymEnumeration(m_sheet->server(), name.constData()), m_stored))
        ReportErrorFormat1(GetLastError(), IDS_DOMAIN_SYNONYM_UNREADABLE, m_sheet->resolvedName());
    m_list->clear();
    m_list->addItems(m_stored);
    updateButtons();
}

const QHash<QString, QString>& CDomainSynonymsPage::namesInUse()
{
    if (m_namesInUseLoaded)
        return m_namesInUse;
    CWaitCursor wait;
    m_namesInUseLoaded = true;
    QStringList domains;
    enumerate(StartDomainEnumeration(m_sheet->server()), domains);
    const QString own = fold(m_sheet->resolvedName());
    for (const QString& domain : std::as_const(domains)) {
        m_namesInUse.insert(fold(domain), domain);
        if (fold(domain) == own)
            continue;
        QStringList synonyms;
        enumerate(StartDomainSynonymEnumeration(m_sheet->server(), domain.toUtf8().constData()), synonyms);
        for (const QString& synonym : std::as_const(synonyms))
            m_namesInUse.insert(fold(synonym), domain);
    }
    return m_namesInUse;
}

int CDomainSynonymsPage::rowOf(const QString& name) const
{
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->text().compare(name, Qt::CaseInsensitive) == 0)
            return row;
    }
    return -1;
}

QString CDomainSynonymsPage::acceptableName(int except)
{
    const QString name = m_nameEdit->text().trimmed();
    const auto refuse = [this](unsigned id, const QStringList& inserts) {
        m_nameEdit->setFocus();
        m_nameEdit->selectAll();
        taviMessageBox(TaviFormat(TaviString(id), inserts), Mb::Ok | Mb::IconExclamation);
        return QString();
    };
    if (!isDomainName(name))
        return refuse(IDS_DOMAIN_SYNONYM_INVALID, {name});
    const int row = rowOf(name);
    if (row >= 0 && row != except)
        return refuse(IDS_DOMAIN_SYNONYM_DUPLICATE, {name});
    const auto used = namesInUse().constFind(fold(name));
    if (fold(name) == fold(m_sheet->resolvedName()))
        return refuse(IDS_DOMAIN_SYNONYM_IS_DOMAIN, {name});
    if (used != m_namesInUse.cend())
        return fold(*used) == fold(name) ? refuse(IDS_DOMAIN_SYNONYM_IS_DOMAIN, {name})
                                         : refuse(IDS_DOMAIN_SYNONYM_TAKEN, {name, *used});
    return name;
}

void CDomainSynonymsPage::onAdd()
{
    const QString name = acceptableName(-1);
    if (name.isEmpty())
        return;
    auto* item = new QListWidgetItem(name, m_list);
    m_list->setCurrentItem(item);
    m_nameEdit->clear();
    setModified(true);
}

void CDomainSynonymsPage::onRename()
{
    QListWidgetItem* item = m_list->currentItem();
    if (!item)
        return;
    const QString name = acceptableName(m_list->row(item));
    if (name.isEmpty() || name == item->text())
        return;
    item->setText(name);
    m_list->sortItems();
    m_list->setCurrentItem(item);
    setModified(true);
}

void CDomainSynonymsPage::onDelete()
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    for (QListWidgetItem* item : selected)
        delete item;
    if (!selected.isEmpty())
        setModified(true);
    updateButtons();
}

void CDomainSynonymsPage::onSelectionChanged()
{
    if (QListWidgetItem* item = m_list->currentItem(); item && item->isSelected())
        m_nameEdit->setText(item->text());
    updateButtons();
}

void CDomainSynonymsPage::updateButtons()
{
    const bool typed = !m_nameEdit->text().trimmed().isEmpty();
    const bool selected = !m_list->selectedItems().isEmpty();
    m_addButton->setEnabled(typed);
    m_renameButton->setEnabled(typed && selected);
    m_deleteButton->setEnabled(selected);
}

bool CDomainSynonymsPage::apply()
{
    QSet<QString> shown, stored;
    for (const QString& name : std::as_const(m_stored))
        stored.insert(fold(name));
    QStringList added;
    for (int row = 0; row < m_list->count(); ++row) {
        const QString name = m_list->item(row)->text();
        shown.insert(fold(name));
        if (!stored.contains(fold(name)))
            added.append(name);
    }
    bool ok = true;
    // Removed names go first, so that a name moved between rows is free again when it is created.
    for (const QString& name : std::as_const(m_stored)) {
        if (shown.contains(fold(name)))
            continue;
        if (!DestroyDomainSynonym(m_sheet->server(), name.toUtf8().constData())) {
            ReportErrorFormat1(GetLastError(), IDS_DOMAIN_SYNONYM_REMOVE_FAILED, name);
            ok = false;
        }
    }
    const QByteArray domain = m_sheet->resolvedName().toUtf8();
    for (const QString& name : std::as_const(added)) {
        if (!CreateDomainSynonym(m_sheet->server(), domain.constData(), name.toUtf8().constData())) {
            ReportErrorFormat1(GetLastError(), IDS_DOMAIN_SYNONYM_ADD_FAILED, name);
            ok = false;
        }
    }
    if (!ok) {
        // Show what the store holds now, so that what failed can be entered again.
        reload();
        m_namesInUseLoaded = false;
        m_namesInUse.clear();
        return false;
    }
    m_stored.clear();
    for (int row = 0; row < m_list->count(); ++row)
        m_stored.append(m_list->item(row)->text());
    return CTaviPropertyPage::apply();
}
