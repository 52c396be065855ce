#include "server/AliasDlg.h"

#include "common/EnterRedirect.h"
#include "common/PlatformServices.h"
#include "common/SubnetCsv.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/DomainStringIds.h"
#include "res/StringTable.h"

#include <QAbstractTableModel>
#include <QDialogButtonBox>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include <velbrook/MailToolkit.h>
#include <velbrook/ServerStore.h>

#include <algorithm>

namespace {
constexpr unsigned kHelpContext = 2155;
constexpr int kMaxText = 255;

QString fold(const QString& text)
{
    return text.toLower();
}
} // namespace

// The table's rows in their stored order, with a set of the folded aliases for the duplicate test.
class CAliasTableModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }
    int columnCount(const QModelIndex& parent = QModelIndex()) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
            return {};
        const CAliasEntry& row = m_rows[size_t(index.row())];
        return index.column() == 0 ? row.alias : row.target;
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return section == 0 ? CAliasDlg::tr("Alias") : CAliasDlg::tr("Stands for");
    }

    const std::vector<CAliasEntry>& rows() const { return m_rows; }
    const CAliasEntry& row(int index) const { return m_rows[size_t(index)]; }
    bool contains(const QString& alias) const { return m_aliases.contains(fold(alias)); }

    void reset(std::vector<CAliasEntry> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        m_aliases.clear();
        m_aliases.reserve(qsizetype(m_rows.size()));
        for (const CAliasEntry& row : m_rows)
            m_aliases.insert(fold(row.alias));
        endResetModel();
    }
    void append(const CAliasEntry& entry)
    {
        const int at = int(m_rows.size());
        beginInsertRows(QModelIndex(), at, at);
        m_rows.push_back(entry);
        m_aliases.insert(fold(entry.alias));
        endInsertRows();
    }
    void replace(int index, const CAliasEntry& entry)
    {
        m_aliases.remove(fold(m_rows[size_t(index)].alias));
        m_rows[size_t(index)] = entry;
        m_aliases.insert(fold(entry.alias));
        Q_EMIT dataChanged(this->index(index, 0), this->index(index, 1));
    }
    // Removes the rows given (source rows, any order) in one pass.
    void remove(QList<int> indexes)
    {
        std::sort(indexes.begin(), indexes.end());
        if (indexes.size() == 1) {
            beginRemoveRows(QModelIndex(), indexes[0], indexes[0]);
            m_aliases.remove(fold(m_rows[size_t(indexes[0])].alias));
            m_rows.erase(m_rows.begin() + indexes[0]);
            endRemoveRows();
            return;
        }
        std::vector<CAliasEntry> kept;
        kept.reserve(m_rows.size() - size_t(indexes.size()));
        qsizetype next = 0;
        for (size_t i = 0; i < m_rows.size(); ++i) {
            if (next < indexes.size() && indexes[next] == int(i)) {
                ++next;
                continue;
            }
            kept.push_back(std::move(m_rows[i]));
        }
        reset(std::move(kept));
    }

private:
    std::vector<CAliasEntry> m_rows;
    QSet<QString> m_aliases;
};

// Sorting and filtering straight on the model's strings, which keeps 100 000 rows quick.
class CAliasFilterModel : public QSortFilterProxyModel {
public:
    CAliasFilterModel(CAliasTableModel* model, QObject* parent) : QSortFilterProxyModel(parent), m_model(model)
    {
        setSourceModel(model);
    }
    void setFilterText(const QString& text)
    {
        beginFilterChange();
        m_filter = text;
        endFilterChange();
    }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex&) const override
    {
        if (m_filter.isEmpty())
            return true;
        const CAliasEntry& row = m_model->row(sourceRow);
        return row.alias.contains(m_filter, Qt::CaseInsensitive) || row.target.contains(m_filter, Qt::CaseInsensitive);
    }
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override
    {
        const CAliasEntry& a = m_model->row(left.row());
        const CAliasEntry& b = m_model->row(right.row());
        const int column = left.column();
        const int order = QString::compare(column == 0 ? a.alias : a.target, column == 0 ? b.alias : b.target,
                                           Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left.row() < right.row();
    }

private:
    void beginFilterChange()
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 9, 0)
        QSortFilterProxyModel::beginFilterChange();
#endif
    }
    void endFilterChange() { invalidateRowsFilter(); }

    CAliasTableModel* m_model;
    QString m_filter;
};

bool isValidAliasText(const QString& text)
{
    if (text.isEmpty() || text.size() > kMaxText)
        return false;
    for (const QChar c : text) {
        if (c.isSpace() || c.category() == QChar::Other_Control || c == QLatin1Char(',') || c == QLatin1Char('"'))
            return false;
    }
    return true;
}

std::vector<CAliasEntry> parseAliasCsv(const QByteArray& text, int& errors)
{
    std::vector<CAliasEntry> entries;
    QSet<QString> seen;
    errors = 0;
    const std::string_view all(text.constData(), size_t(text.size()));
    size_t start = 0;
    while (start < all.size()) {
        size_t end = all.find('\n', start);
        if (end == std::string_view::npos)
            end = all.size();
        std::string_view line = all.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (line.empty())
            continue;
        const SubnetCsv::Field first = SubnetCsv::readField(line, 0);
        if (!first.hasNext) {
            ++errors;
            continue;
        }
        const SubnetCsv::Field second = SubnetCsv::readField(line, first.next);
        CAliasEntry entry{QString::fromUtf8(first.text).trimmed(), QString::fromUtf8(second.text).trimmed()};
        if (!isValidAliasText(entry.alias) || !isValidAliasText(entry.target) || seen.contains(fold(entry.alias))) {
            ++errors;
            continue;
        }
        seen.insert(fold(entry.alias));
        entries.push_back(std::move(entry));
    }
    return entries;
}

QByteArray aliasCsv(const std::vector<CAliasEntry>& entries)
{
    QByteArray out;
    out.reserve(qsizetype(entries.size()) * 48);
    for (const CAliasEntry& entry : entries) {
        out += entry.alias.toUtf8();
        out += ',';
        out += entry.target.toUtf8();
        out += '\n';
    }
    return out;
}

CAliasDlg::CAliasDlg(QWidget* parent, _tMailServer* server) : CTaviDialog(parent, server)
{
    setObjectName(QStringLiteral("CAliasDlg"));
    setWindowTitle(tr("Aliases on %1"));
    buildControls();
}

CAliasDlg::~CAliasDlg() = default;

const std::vector<CAliasEntry>& CAliasDlg::entries() const
{
    return m_model->rows();
}

void CAliasDlg::buildControls()
{
    const auto button = [this](const QString& text, const char* name) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(QLatin1String(name));
        b->setAutoDefault(false);
        return b;
    };
    const auto edit = [this](const char* name) {
        auto* e = new QLineEdit(this);
        e->setObjectName(QLatin1String(name));
        e->setMaxLength(kMaxText);
        return e;
    };
    auto* aliasLabel = new QLabel(tr("&Alias (address or domain):"), this);
    m_aliasEdit = edit("edtAlias");
    aliasLabel->setBuddy(m_aliasEdit);
    auto* targetLabel = new QLabel(tr("&Stands for:"), this);
    m_targetEdit = edit("edtTarget");
    targetLabel->setBuddy(m_targetEdit);
    m_addButton = button(tr("A&dd"), "btnAdd");
    m_modifyButton = button(tr("&Modify"), "btnModify");
    m_deleteButton = button(tr("De&lete"), "btnDelete");
    auto* filterLabel = new QLabel(tr("&Find:"), this);
    m_filterEdit = edit("edtFilter");
    m_filterEdit->setClearButtonEnabled(true);
    filterLabel->setBuddy(m_filterEdit);

    m_model = new CAliasTableModel(this);
    m_proxy = new CAliasFilterModel(m_model, this);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tblAliases"));
    m_table->setModel(m_proxy);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(0, Qt::AscendingOrder);
    m_table->setMinimumSize(520, 280);
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("lblCount"));
    m_importButton = button(tr("&Import..."), "btnImport");
    m_exportButton = button(tr("E&xport..."), "btnExport");

    auto* inputs = new QGridLayout;
    inputs->addWidget(aliasLabel, 0, 0);
    inputs->addWidget(targetLabel, 0, 1);
    inputs->addWidget(m_aliasEdit, 1, 0);
    inputs->addWidget(m_targetEdit, 1, 1);
    auto* editButtons = new QHBoxLayout;
    editButtons->addWidget(m_addButton);
    editButtons->addWidget(m_modifyButton);
    editButtons->addWidget(m_deleteButton);
    editButtons->addStretch(1);
    editButtons->addWidget(filterLabel);
    editButtons->addWidget(m_filterEdit);
    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(m_countLabel, 1);
    fileRow->addWidget(m_importButton);
    fileRow->addWidget(m_exportButton);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(inputs);
    layout->addLayout(editButtons);
    layout->addWidget(m_table, 1);
    layout->addLayout(fileRow);
    layout->addWidget(createButtonBox(true));

    setTabOrder(m_aliasEdit, m_targetEdit);
    setTabOrder(m_targetEdit, m_addButton);
    setTabOrder(m_addButton, m_modifyButton);
    setTabOrder(m_modifyButton, m_deleteButton);
    setTabOrder(m_deleteButton, m_filterEdit);
    setTabOrder(m_filterEdit, m_table);
    setTabOrder(m_table, m_importButton);
    setTabOrder(m_importButton, m_exportButton);

    connect(m_addButton, &QPushButton::clicked, this, &CAliasDlg::onAdd);
    connect(m_modifyButton, &QPushButton::clicked, this, &CAliasDlg::onModify);
    connect(m_deleteButton, &QPushButton::clicked, this, &CAliasDlg::onDelete);
    connect(m_importButton, &QPushButton::clicked, this, &CAliasDlg::onImport);
    connect(m_exportButton, &QPushButton::clicked, this, &CAliasDlg::onExport);
    connect(m_filterEdit, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_proxy->setFilterText(text.trimmed());
        showCount();
    });
    redirectEnter(this, {m_aliasEdit, m_targetEdit}, m_addButton);
    connect(m_aliasEdit, &QLineEdit::textChanged, this, &CAliasDlg::updateButtons);
    connect(m_targetEdit, &QLineEdit::textChanged, this, &CAliasDlg::updateButtons);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CAliasDlg::onCurrentChanged);
}

void CAliasDlg::initDialog()
{
    setHelpContext(kHelpContext);
    CTaviDialog::initDialog();
    CWaitCursor wait;
    _tAliasMapping* first = nullptr;
    std::vector<CAliasEntry> rows;
    if (LoadAliasMapping(server(), &first)) {
        for (const _tAliasMapping* a = first; a; a = a->next)
            rows.push_back({QString::fromUtf8(a->alias), QString::fromUtf8(a->target)});
        FreeAliasMapping(first);
    } else {
        // Saving an empty table over one that could not be read would lose it: nothing can be changed.
        m_loadFailed = true;
        ReportError(GetLastError(), TaviString(IDS_ALIAS_LOAD_FAILED));
        for (QWidget* w : std::initializer_list<QWidget*>{m_aliasEdit, m_targetEdit, m_importButton, m_filterEdit})
            w->setEnabled(false);
    }
    m_model->reset(std::move(rows));
    showCount();
    updateButtons();
}

void CAliasDlg::showCount()
{
    const int shown = m_proxy->rowCount(), all = m_model->rowCount();
    m_countLabel->setText(shown == all ? TaviFormat(TaviString(IDS_ALIAS_COUNT), {QString::number(all)})
                                       : TaviFormat(TaviString(IDS_ALIAS_COUNT_FILTERED),
                                                    {QString::number(shown), QString::number(all)}));
}

int CAliasDlg::currentSourceRow() const
{
    const QModelIndexList rows = m_table->selectionModel()->selectedRows();
    if (rows.size() != 1)
        return -1;
    return m_proxy->mapToSource(rows.first()).row();
}

void CAliasDlg::onCurrentChanged()
{
    const int row = currentSourceRow();
    if (row >= 0) {
        m_aliasEdit->setText(m_model->row(row).alias);
        m_targetEdit->setText(m_model->row(row).target);
    }
    updateButtons();
}

void CAliasDlg::updateButtons()
{
    const bool typed = !m_loadFailed && !m_aliasEdit->text().trimmed().isEmpty() && !m_targetEdit->text().trimmed().isEmpty();
    m_addButton->setEnabled(typed);
    m_modifyButton->setEnabled(typed && currentSourceRow() >= 0);
    m_deleteButton->setEnabled(!m_loadFailed && m_table->selectionModel()->hasSelection());
    m_exportButton->setEnabled(!m_loadFailed && m_model->rowCount() > 0);
}

bool CAliasDlg::takeInputs(QString& alias, QString& target)
{
    alias = m_aliasEdit->text().trimmed();
    target = m_targetEdit->text().trimmed();
    QLineEdit* bad = !isValidAliasText(alias) ? m_aliasEdit : !isValidAliasText(target) ? m_targetEdit : nullptr;
    if (!bad)
        return true;
    bad->setFocus();
    bad->selectAll();
    taviMessageBox(TaviString(IDS_ALIAS_INVALID), Mb::Ok | Mb::IconExclamation);
    return false;
}

void CAliasDlg::refuseDuplicate(const QString& alias)
{
    m_aliasEdit->setFocus();
    m_aliasEdit->selectAll();
    taviMessageBox(TaviFormat(TaviString(IDS_ALIAS_DUPLICATE), {alias}), Mb::Ok | Mb::IconExclamation);
}

void CAliasDlg::setChanged()
{
    m_changed = true;
    showCount();
    updateButtons();
}

void CAliasDlg::onAdd()
{
    QString alias, target;
    if (!takeInputs(alias, target))
        return;
    if (m_model->contains(alias)) {
        refuseDuplicate(alias);
        return;
    }
    m_model->append({alias, target});
    const QModelIndex added = m_proxy->mapFromSource(m_model->index(m_model->rowCount() - 1, 0));
    if (added.isValid()) {
        m_table->selectionModel()->select(added, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        m_table->scrollTo(added);
    }
    m_aliasEdit->clear();
    m_targetEdit->clear();
    m_aliasEdit->setFocus();
    setChanged();
}

void CAliasDlg::onModify()
{
    const int row = currentSourceRow();
    QString alias, target;
    if (row < 0 || !takeInputs(alias, target))
        return;
    if (fold(alias) != fold(m_model->row(row).alias) && m_model->contains(alias)) {
        refuseDuplicate(alias);
        return;
    }
    m_model->replace(row, {alias, target});
    setChanged();
}

void CAliasDlg::onDelete()
{
    QList<int> rows;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        rows.append(m_proxy->mapToSource(index).row());
    if (rows.isEmpty())
        return;
    CWaitCursor wait;
    m_model->remove(rows);
    setChanged();
}

void CAliasDlg::onImport()
{
    CFileDialogRequest request;
    request.defaultExtension = QStringLiteral("csv");
    request.filters = {{TaviString(IDS_ALIAS_FILTER_CSV), QStringLiteral("*.csv")},
                       {TaviString(IDS_ALIAS_FILTER_ALL), QStringLiteral("*")}};
    request.flags = Ofn::FileMustExist | Ofn::HideReadOnly;
    if (!platform().fileDialog(this, request))
        return;
    CWaitCursor wait;
    QFile file(request.fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        taviMessageBox(TaviFormat(TaviString(IDS_ALIAS_IO_ERRORS), {request.fileName}), Mb::Ok | Mb::IconStop);
        return;
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        taviMessageBox(TaviFormat(TaviString(IDS_ALIAS_IO_ERRORS), {request.fileName}), Mb::Ok | Mb::IconStop);
        return;
    }
    int errors = 0;
    std::vector<CAliasEntry> rows = parseAliasCsv(text, errors);
    // Like the subnet lists, an import replaces the whole list; the person may keep the old one.
    if (errors > 0
        && taviMessageBox(TaviFormat(TaviString(IDS_ALIAS_IMPORT_ERRORS), {QString::number(errors), QString::number(rows.size())}),
                          Mb::OkCancel | Mb::IconExclamation) != Id::Ok)
        return;
    m_model->reset(std::move(rows));
    setChanged();
}

void CAliasDlg::onExport()
{
    CFileDialogRequest request;
    request.save = true;
    request.defaultExtension = QStringLiteral("csv");
    request.filters = {{TaviString(IDS_ALIAS_FILTER_CSV), QStringLiteral("*.csv")},
                       {TaviString(IDS_ALIAS_FILTER_ALL), QStringLiteral("*")}};
    request.flags = Ofn::OverwritePrompt | Ofn::HideReadOnly;
    if (!platform().fileDialog(this, request))
        return;
    CWaitCursor wait;
    QFile file(request.fileName);
    const QByteArray text = aliasCsv(m_model->rows());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size() || !file.flush())
        taviMessageBox(TaviFormat(TaviString(IDS_ALIAS_IO_ERRORS), {request.fileName}), Mb::Ok | Mb::IconStop);
}

void CAliasDlg::onOK()
{
    // An unchanged OK closes as Cancel so the caller knows nothing was written.
    if (!m_changed || m_loadFailed) {
        closeAsCancel();
        return;
    }
    CWaitCursor wait;
    _tAliasMapping* first = nullptr;
    _tAliasMapping** tail = &first;
    bool built = true;
    for (const CAliasEntry& row : m_model->rows()) {
        _tAliasMapping* m = AllocAliasMapping(row.alias.toUtf8().constData(), row.target.toUtf8().constData());
        if (!m) {
            built = false;
            break;
        }
        *tail = m;
        tail = &m->next;
    }
    const bool saved = built && SaveAliasMapping(server(), first);
    const uint32_t code = GetLastError();
    FreeAliasMapping(first);
    if (!saved) {
        // The list stays as edited, so that nothing typed is lost.
        ReportError(code, TaviString(IDS_ALIAS_SAVE_FAILED));
        return;
    }
    closeAsOK();
}
