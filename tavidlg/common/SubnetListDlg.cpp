#include "common/SubnetListDlg.h"

#include "common/Ip4AddressEdit.h"
#include "common/PlatformServices.h"
#include "common/SubnetCsv.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/SubnetStringIds.h"
#include "res/StringTable.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QTreeView>
#include <QVBoxLayout>

#include <new>
#include <vector>

namespace {
constexpr int kSubnetColumnWidth = 110;
constexpr int kCommentLimit = 256;
constexpr qint64 kReadChunk = 256 * 1024;
constexpr qint64 kProgressIntervalMs = 40;

QList<QPair<QString, QString>> csvFilters()
{
    return {{TaviString(IDS_SUBNET_FILTER_CSV), QStringLiteral("*.csv")},
            {TaviString(IDS_SUBNET_FILTER_ALL), QStringLiteral("*")}};
}
} // namespace

// The rows of the list view: one per element of the working copy, in list order. Texts are rendered
// only for the rows a view asks for, so that 100 000 rows cost a pointer each.
class CSubnetListModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || index.row() >= int(m_rows.size()) || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
            return {};
        const _tIp4Subnet* element = m_rows[std::size_t(index.row())];
        if (index.column() == 0)
            return subnetText(element);
        return QString::fromUtf8(element->comment);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return TaviString(section == 0 ? IDS_SUBNET_COLUMN_SUBNET : IDS_SUBNET_COLUMN_COMMENT);
    }

    static QString subnetText(const _tIp4Subnet* element)
    {
        char text[VB_SUBNET_TEXT_SIZE] = {};
        GetSubnetString(element->address, element->mask, text);
        return QString::fromLatin1(text);
    }

    const _tIp4Subnet* element(int row) const { return m_rows[std::size_t(row)]; }

    // Shows every element of a list (null: none).
    void reset(const _tIp4Subnet* first)
    {
        beginResetModel();
        m_rows.clear();
        for (const _tIp4Subnet* p = first; p; p = p->next)
            m_rows.push_back(p);
        endResetModel();
    }
    void append(const _tIp4Subnet* element) { insert(int(m_rows.size()), element); }
    void insert(int row, const _tIp4Subnet* element)
    {
        beginInsertRows({}, row, row);
        m_rows.insert(m_rows.begin() + row, element);
        endInsertRows();
    }
    void replace(int row, const _tIp4Subnet* element)
    {
        m_rows[std::size_t(row)] = element;
        Q_EMIT dataChanged(index(row, 0), index(row, 1));
    }
    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        m_rows.erase(m_rows.begin() + row);
        endRemoveRows();
    }

private:
    std::vector<const _tIp4Subnet*> m_rows;
};

CSubnetListDlg::CSubnetListDlg(QWidget* parent, _tIp4Subnet** list, unsigned captionId, unsigned helpContext)
    : CTaviDialog(parent, nullptr), m_callerList(list), m_captionId(captionId), m_subnetHelpContext(helpContext)
{
    setObjectName(QStringLiteral("CSubnetListDlg"));
    setUsesServerCaption(false);
    setWindowTitle(TaviString(IDS_SUBNET_DEFAULT_CAPTION));
    // The dialog edits a copy; the caller's list stays as it is until OK.
    _tIp4Subnet* first = list ? FindFirstNode(*list) : nullptr;
    if (first && !CopySubnetList(first, &m_working))
        throw std::bad_alloc();
    buildWidgets();
}

CSubnetListDlg::~CSubnetListDlg()
{
    releaseWorkingCopy();
}

void CSubnetListDlg::buildWidgets()
{
    // Built in tab order: the three inputs, their buttons, the list and its buttons, OK and Cancel.
    auto* networkLabel = new QLabel(tr("&Network Address:"), this);
    networkLabel->setObjectName(QStringLiteral("lblNetwork"));
    m_networkEdit = new CIp4AddressEdit(this);
    m_networkEdit->setObjectName(QStringLiteral("ipNetwork"));
    networkLabel->setBuddy(m_networkEdit);
    auto* maskLabel = new QLabel(tr("Subnet Mas&k:"), this);
    maskLabel->setObjectName(QStringLiteral("lblMask"));
    m_maskEdit = new CIp4AddressEdit(this);
    m_maskEdit->setObjectName(QStringLiteral("ipMask"));
    maskLabel->setBuddy(m_maskEdit);
    auto* commentLabel = new QLabel(tr("C&omment:"), this);
    commentLabel->setObjectName(QStringLiteral("lblComment"));
    m_commentEdit = new QLineEdit(this);
    m_commentEdit->setObjectName(QStringLiteral("edtComment"));
    m_commentEdit->setMaxLength(kCommentLimit);
    commentLabel->setBuddy(m_commentEdit);

    m_addButton = new QPushButton(tr("&Add"), this);
    m_addButton->setObjectName(QStringLiteral("btnAdd"));
    m_modifyButton = new QPushButton(tr("&Modify"), this);
    m_modifyButton->setObjectName(QStringLiteral("btnModify"));
    m_modifyButton->setEnabled(false);
    auto* clearButton = new QPushButton(tr("C&lear"), this);
    clearButton->setObjectName(QStringLiteral("btnClear"));

    m_model = new CSubnetListModel(this);
    m_listView = new QTreeView(this);
    m_listView->setObjectName(QStringLiteral("lstSubnets"));
    m_listView->setModel(m_model);
    m_listView->setRootIsDecorated(false);
    m_listView->setUniformRowHeights(true);
    m_listView->setAllColumnsShowFocus(true);
    m_listView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_listView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_listView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_listView->header()->setStretchLastSection(true);
    m_listView->header()->setSectionsMovable(false);
    m_listView->setMinimumSize(fontMetrics().averageCharWidth() * 60, fontMetrics().lineSpacing() * 12);

    auto* deleteButton = new QPushButton(tr("&Delete"), this);
    deleteButton->setObjectName(QStringLiteral("btnDelete"));
    auto* importButton = new QPushButton(tr("&Import..."), this);
    importButton->setObjectName(QStringLiteral("btnImport"));
    auto* exportButton = new QPushButton(tr("&Export..."), this);
    exportButton->setObjectName(QStringLiteral("btnExport"));
    // The Delete key in the list does what the Delete button does.
    auto* deleteKey = new QAction(m_listView);
    deleteKey->setShortcut(QKeySequence::Delete);
    deleteKey->setShortcutContext(Qt::WidgetShortcut);
    m_listView->addAction(deleteKey);

    auto* inputs = new QGridLayout;
    inputs->addWidget(networkLabel, 0, 0);
    inputs->addWidget(m_networkEdit, 0, 1, Qt::AlignLeft);
    inputs->addWidget(maskLabel, 1, 0);
    inputs->addWidget(m_maskEdit, 1, 1, Qt::AlignLeft);
    inputs->addWidget(commentLabel, 2, 0);
    inputs->addWidget(m_commentEdit, 2, 1);
    inputs->setColumnStretch(1, 1);
    auto* inputButtons = new QVBoxLayout;
    inputButtons->addWidget(m_addButton);
    inputButtons->addWidget(m_modifyButton);
    inputButtons->addWidget(clearButton);
    auto* top = new QHBoxLayout;
    top->addLayout(inputs, 1);
    top->addLayout(inputButtons);
    auto* listButtons = new QVBoxLayout;
    listButtons->addWidget(deleteButton);
    listButtons->addWidget(importButton);
    listButtons->addWidget(exportButton);
    listButtons->addStretch(1);
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_listView, 1);
    middle->addLayout(listButtons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(middle, 1);
    layout->addWidget(createButtonBox(false));

    connect(m_addButton, &QPushButton::clicked, this, &CSubnetListDlg::onAdd);
    connect(m_modifyButton, &QPushButton::clicked, this, &CSubnetListDlg::onModify);
    connect(clearButton, &QPushButton::clicked, this, &CSubnetListDlg::onClear);
    connect(deleteButton, &QPushButton::clicked, this, &CSubnetListDlg::onDelete);
    connect(deleteKey, &QAction::triggered, this, &CSubnetListDlg::onDelete);
    connect(importButton, &QPushButton::clicked, this, &CSubnetListDlg::onImport);
    connect(exportButton, &QPushButton::clicked, this, &CSubnetListDlg::onExport);
    connect(m_listView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CSubnetListDlg::onSelectionChanged);
}

int CSubnetListDlg::rowCount() const
{
    return m_model->rowCount();
}

void CSubnetListDlg::initDialog()
{
    setHelpContext(m_subnetHelpContext);
    CTaviDialog::initDialog();
    const QString caption = TaviString(m_captionId);
    if (!caption.isEmpty())
        setWindowTitle(caption);
    m_listView->header()->resizeSection(0, kSubnetColumnWidth);
    m_model->reset(m_working);
    m_networkEdit->setFocus();
}

void CSubnetListDlg::releaseWorkingCopy()
{
    // The rows point into the working copy: forget them before it goes.
    if (m_model)
        m_model->reset(nullptr);
    FreeIp4SubnetList(m_working);
    m_working = nullptr;
}

int CSubnetListDlg::selectedRow() const
{
    const QModelIndexList rows = m_listView->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.constFirst().row();
}

int CSubnetListDlg::positionOf(quint32 address, quint32 mask) const
{
    int position = 0;
    for (const _tIp4Subnet* p = m_working; p; p = p->next, ++position) {
        if (p->address == address && p->mask == mask)
            return position;
    }
    return -1;
}

bool CSubnetListDlg::selectedSubnet(int row, uint32_t& address, uint32_t& mask) const
{
    if (row < 0)
        return false;
    // The row's text is parsed back, as the person sees it.
    const QByteArray subnet = CSubnetListModel::subnetText(m_model->element(row)).toLatin1();
    return ParseIp4Subnet(subnet.constData(), '/', &address, &mask) != 0;
}

void CSubnetListDlg::onSelectionChanged()
{
    const int row = selectedRow();
    uint32_t address = 0;
    uint32_t mask = 0;
    if (!selectedSubnet(row, address, mask))
        return;
    m_networkEdit->setAddress(address);
    m_maskEdit->setAddress(mask);
    m_commentEdit->setText(QString::fromUtf8(m_model->element(row)->comment));
    m_modifyButton->setEnabled(true);
}

bool CSubnetListDlg::readInputs(quint32& address, quint32& mask, QByteArray& comment)
{
    QWidget* fault = nullptr;
    if (!m_networkEdit->isComplete())
        fault = m_networkEdit;
    else if (!m_maskEdit->isComplete())
        fault = m_maskEdit;
    if (!fault) {
        address = m_networkEdit->address();
        mask = m_maskEdit->address();
        comment = m_commentEdit->text().toUtf8();
        if (!IsValidIp4Subnet(address, mask))
            fault = m_networkEdit;
        else if (comment.contains('\0') || !IsValidIp4CommentString(comment.constData()))
            fault = m_commentEdit;
    }
    if (!fault)
        return true;
    taviMessageBox(TaviString(IDS_SUBNET_INVALID), Mb::Ok | Mb::IconExclamation);
    fault->setFocus();
    return false;
}

void CSubnetListDlg::onAdd()
{
    quint32 address = 0;
    quint32 mask = 0;
    QByteArray comment;
    if (!readInputs(address, mask, comment))
        return;
    if (m_working && Ip4SubnetMatchIpSubnet(m_working, address, mask)) {
        taviMessageBox(TaviString(IDS_SUBNET_DUPLICATE), Mb::Ok | Mb::IconExclamation);
        m_networkEdit->setFocus();
        return;
    }
    const _tIp4Subnet* element = AppendIp4Subnet(&m_working, address, mask, comment.constData());
    if (!element) {
        ReportError(GetLastError(), TaviString(IDS_SUBNET_INVALID));
        return;
    }
    m_model->append(element);
    m_listView->clearSelection();
    m_listView->scrollTo(m_model->index(m_model->rowCount() - 1, 0));
    m_modifyButton->setEnabled(false);
}

void CSubnetListDlg::onModify()
{
    const int row = selectedRow();
    if (row < 0) {
        m_modifyButton->setEnabled(false);
        return;
    }
    quint32 address = 0;
    quint32 mask = 0;
    QByteArray comment;
    if (!readInputs(address, mask, comment))
        return;
    auto* old = const_cast<_tIp4Subnet*>(m_model->element(row));
    const quint32 oldAddress = old->address;
    const quint32 oldMask = old->mask;
    // Changing an entry into another one already listed would hold the same subnet twice.
    if ((address != oldAddress || mask != oldMask) && Ip4SubnetMatchIpSubnet(m_working, address, mask)) {
        taviMessageBox(TaviString(IDS_SUBNET_DUPLICATE), Mb::Ok | Mb::IconExclamation);
        m_networkEdit->setFocus();
        return;
    }
    const _tIp4Subnet* fresh = InsertAfterIp4Subnet(&m_working, old, address, mask, comment.constData());
    if (!fresh) {
        ReportError(GetLastError(), TaviString(IDS_SUBNET_INVALID));
        return;
    }
    // The old entry is removed by its subnet, which takes the first entry that has it: the selected one
    // unless the list came in holding that subnet more than once. The rows follow the list either way.
    const int removed = positionOf(oldAddress, oldMask);
    DeleteIp4Subnet(&m_working, oldAddress, oldMask);
    if (removed == row) {
        m_model->replace(row, fresh);
    } else {
        m_model->insert(row + 1, fresh);
        m_model->remove(removed);
    }
}

void CSubnetListDlg::onDelete()
{
    const int row = selectedRow();
    uint32_t address = 0;
    uint32_t mask = 0;
    if (!selectedSubnet(row, address, mask))
        return;
    const int removed = positionOf(address, mask);
    if (removed < 0 || !DeleteIp4Subnet(&m_working, address, mask))
        return;
    m_model->remove(removed);
    m_listView->clearSelection();
    m_modifyButton->setEnabled(false);
}

void CSubnetListDlg::onClear()
{
    m_networkEdit->clear();
    m_maskEdit->clear();
    m_commentEdit->clear();
    m_listView->clearSelection();
    m_modifyButton->setEnabled(false);
    m_networkEdit->setFocus();
}

CSubnetListDlg::ReadOutcome CSubnetListDlg::readImportFile(const QString& path, SubnetCsv::Importer& importer)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return ReadOutcome::Failed;
    const qint64 total = file.size();
    const auto progress = platform().beginProgress(
        this, TaviFormat(TaviString(IDS_SUBNET_IMPORTING), {QFileInfo(path).fileName()}));
    QByteArray chunk(kReadChunk, Qt::Uninitialized);
    qint64 done = 0;
    QElapsedTimer sinceReport;
    sinceReport.start();
    bool reported = false;
    for (;;) {
        const qint64 got = file.read(chunk.data(), chunk.size());
        if (got < 0)
            return ReadOutcome::Failed;
        if (got == 0)
            break;
        importer.feed(std::string_view(chunk.constData(), std::size_t(got)));
        done += got;
        // The progress keeps the window alive; asking it after every chunk of a large file would cost
        // more than the reading.
        if (!reported || sinceReport.elapsed() >= kProgressIntervalMs) {
            reported = true;
            sinceReport.restart();
            if (!progress->setProgress(done, qMax(total, done)))
                return ReadOutcome::Cancelled;
        }
    }
    if (file.error() != QFileDevice::NoError)
        return ReadOutcome::Failed;
    importer.finish();
    progress->setProgress(done, qMax(total, done));
    return ReadOutcome::Complete;
}

void CSubnetListDlg::onImport()
{
    CFileDialogRequest request;
    request.defaultExtension = QStringLiteral("csv");
    request.filters = csvFilters();
    if (!platform().fileDialog(this, request))
        return;
    SubnetCsv::Importer importer;
    for (;;) {
        importer.reset();
        const ReadOutcome outcome = readImportFile(request.fileName, importer);
        if (outcome == ReadOutcome::Cancelled)
            return;
        if (outcome == ReadOutcome::Failed) {
            const int answer = taviMessageBox(TaviString(IDS_SUBNET_IO_ERRORS), Mb::AbortRetryIgnore | Mb::IconExclamation);
            if (answer == Id::Retry)
                continue; // read again from the start into a new list
            if (answer == Id::Ignore)
                break; // keep what was read so far
            return;
        }
        if (importer.errorCount() > 0) {
            const QString text = TaviFormat(TaviString(IDS_SUBNET_IMPORT_ERRORS), {QString::number(importer.errorCount())});
            if (taviMessageBox(text, Mb::OkCancel | Mb::IconExclamation) == Id::Cancel)
                return;
        }
        break;
    }
    // Only a list with something in it replaces what is shown; import never merges.
    _tIp4Subnet* imported = importer.takeList();
    if (!imported)
        return;
    releaseWorkingCopy();
    m_working = imported;
    m_model->reset(m_working);
    m_modifyButton->setEnabled(false);
}

bool CSubnetListDlg::writeExportFile(const QString& path, const QByteArray& text)
{
    // Written to a temporary file that replaces the old one only when complete, so that a failed
    // export never leaves half a file behind.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    if (file.write(text) != text.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

void CSubnetListDlg::onExport()
{
    CFileDialogRequest request;
    request.save = true;
    request.defaultExtension = QStringLiteral("csv");
    request.filters = csvFilters();
    request.flags = Ofn::HideReadOnly | Ofn::OverwritePrompt;
    if (!platform().fileDialog(this, request))
        return;
    QByteArray text;
    {
        CWaitCursor wait;
        // The rows in the order shown, which is the list's order.
        const std::string lines = SubnetCsv::exportList(m_working);
        text = QByteArray(lines.data(), qsizetype(lines.size()));
    }
    for (;;) {
        if (writeExportFile(request.fileName, text))
            return;
        const int answer = taviMessageBox(TaviString(IDS_SUBNET_IO_ERRORS), Mb::AbortRetryIgnore | Mb::IconExclamation);
        if (answer != Id::Retry)
            return;
    }
}

void CSubnetListDlg::onOK()
{
    m_model->reset(nullptr);
    if (m_callerList) {
        _tIp4Subnet* former = *m_callerList;
        *m_callerList = m_working;
        m_working = nullptr;
        FreeIp4SubnetList(former);
    }
    releaseWorkingCopy();
    closeAsOK();
}

void CSubnetListDlg::onCancel()
{
    releaseWorkingCopy();
    closeAsCancel();
}
