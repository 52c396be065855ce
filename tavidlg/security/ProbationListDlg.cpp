#include "security/ProbationListDlg.h"

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"
#include "security/PropertyWrites.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QLocale>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <velbrook/ServerStore.h>

#include <algorithm>

namespace {
constexpr unsigned kHelpContext = 2115;
constexpr const char* kSection = "DHAP";
constexpr const char* kProperty = "Probation";
} // namespace

bool parseProbationElement(const QString& element, ProbationEntry& entry)
{
    const qsizetype comma = element.lastIndexOf(QLatin1Char(','));
    if (comma <= 0)
        return false;
    bool ok = false;
    const qint64 seconds = element.mid(comma + 1).trimmed().toLongLong(&ok);
    if (!ok || seconds < 0)
        return false;
    entry.address = element.left(comma).trimmed();
    entry.expires = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    entry.element = element;
    return !entry.address.isEmpty();
}

CProbationListDlg::CProbationListDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CProbationListDlg"));
    setWindowTitle(tr("Probation List on %1"));
    auto* intro = new QLabel(tr("These addresses tried too many unknown recipients. Mail from them is refused "
                                "until their probation ends."),
                             this);
    intro->setObjectName(QStringLiteral("lblIntro"));
    intro->setWordWrap(true);
    m_model = new QStandardItemModel(0, 2, this);
    m_model->setHorizontalHeaderLabels({tr("Address"), tr("On probation until")});
    m_proxy = new QSortFilterProxyModel(this);
    m_proxy->setSourceModel(m_model);
    m_proxy->setFilterKeyColumn(0);
    m_proxy->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_filterEdit = new QLineEdit(this);
    m_filterEdit->setObjectName(QStringLiteral("edtFilter"));
    m_filterEdit->setPlaceholderText(tr("part of an address"));
    m_filterEdit->setClearButtonEnabled(true);
    auto* filterLabel = new QLabel(tr("F&ind:"), this);
    filterLabel->setBuddy(m_filterEdit);
    m_view = new QTreeView(this);
    m_view->setObjectName(QStringLiteral("lstProbation"));
    m_view->setModel(m_proxy);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_view->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_view->setMinimumHeight(fontMetrics().height() * 14);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("lblCount"));
    m_releaseButton = new QPushButton(tr("&Release"), this);
    m_releaseButton->setObjectName(QStringLiteral("btnRelease"));
    m_refreshButton = new QPushButton(tr("Re&fresh"), this);
    m_refreshButton->setObjectName(QStringLiteral("btnRefresh"));
    auto* row = new QHBoxLayout;
    row->addWidget(m_countLabel, 1);
    row->addWidget(m_releaseButton);
    row->addWidget(m_refreshButton);
    auto* box = new QDialogButtonBox(this);
    box->setObjectName(QStringLiteral("buttonBox"));
    QPushButton* close = box->addButton(QDialogButtonBox::Close);
    close->setObjectName(QStringLiteral("btnCancel"));
    QPushButton* help = box->addButton(QDialogButtonBox::Help);
    help->setObjectName(QStringLiteral("btnHelp"));
    connect(box, &QDialogButtonBox::rejected, this, &CProbationListDlg::reject);
    connect(box, &QDialogButtonBox::helpRequested, this, &CProbationListDlg::showHelp);
    auto* filterRow = new QHBoxLayout;
    filterRow->addWidget(filterLabel);
    filterRow->addWidget(m_filterEdit, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(filterRow);
    layout->addWidget(m_view, 1);
    layout->addLayout(row);
    layout->addWidget(box);
    resize(480, sizeHint().height());
    connect(m_releaseButton, &QPushButton::clicked, this, &CProbationListDlg::onRelease);
    connect(m_refreshButton, &QPushButton::clicked, this, &CProbationListDlg::refresh);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CProbationListDlg::updateButtons);
    connect(m_filterEdit, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_view->clearSelection();
        m_proxy->setFilterFixedString(text.trimmed());
        updateButtons();
    });
}

CProbationListDlg::~CProbationListDlg() = default;

int CProbationListDlg::rowCount() const
{
    return m_proxy->rowCount();
}

void CProbationListDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    refresh();
}

void CProbationListDlg::refresh()
{
    CWaitCursor wait;
    QStringList elements;
    if (!readServerMultiString(server(), kSection, kProperty, elements))
        ReportErrorId(GetLastError(), IDS_SEC_PROBATION_UNREADABLE);
    const QDateTime now = platform().currentTime().toUTC();
    QList<ProbationEntry> entries;
    entries.reserve(elements.size());
    for (const QString& element : std::as_const(elements)) {
        ProbationEntry entry;
        // Expired entries are gone for the server even if it has not removed them yet.
        if (parseProbationElement(element, entry) && entry.expires > now)
            entries.append(entry);
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const ProbationEntry& a, const ProbationEntry& b) { return a.expires < b.expires; });
    m_model->removeRows(0, m_model->rowCount());
    m_model->setRowCount(int(entries.size()));
    const QLocale locale;
    for (int i = 0; i < entries.size(); ++i) {
        auto* address = new QStandardItem(entries[i].address);
        address->setData(entries[i].element, Qt::UserRole);
        m_model->setItem(i, 0, address);
        m_model->setItem(i, 1, new QStandardItem(locale.toString(entries[i].expires.toLocalTime(), QLocale::ShortFormat)));
    }
    m_countLabel->setText(TaviFormat(TaviString(IDS_SEC_PROBATION_COUNT), {QString::number(entries.size())}));
    updateButtons();
}

void CProbationListDlg::onRelease()
{
    const QModelIndexList rows = m_view->selectionModel()->selectedRows(0);
    {
        CWaitCursor wait;
        for (const QModelIndex& index : rows) {
            const QByteArray element = index.data(Qt::UserRole).toString().toUtf8();
            // One that the server let go in the meantime needs no release.
            if (!RemoveFromMailServerListProperty(server(), kSection, kProperty, element.constData())
                && GetLastError() != VB_ERROR_NOT_FOUND) {
                ReportErrorFormat1(GetLastError(), IDS_SEC_PROBATION_RELEASE_FAILED, index.data().toString());
                break;
            }
        }
    }
    refresh();
}

void CProbationListDlg::updateButtons()
{
    m_releaseButton->setEnabled(m_view->selectionModel()->hasSelection());
}
