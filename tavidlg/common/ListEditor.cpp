#include "common/ListEditor.h"

#include "common/ListManager.h"
#include "common/PlatformServices.h"
#include "config/MessageFormat.h"
#include "res/ListStringIds.h"
#include "res/StringTable.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QHash>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QSaveFile>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

#include <velbrook/MailToolkit.h>

// The list box's rows: the element set in order, one pointer a row, texts rendered only for the rows
// the view paints. Every row reports the widest entry's width, which the view (uniform item sizes)
// takes as its horizontal extent.
class CListEntriesModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || index.row() >= int(m_rows.size()))
            return {};
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return m_rows[std::size_t(index.row())]->text();
        if (role == Qt::SizeHintRole && m_extent > 0)
            return QSize(m_extent, m_rowHeight);
        return {};
    }

    void reset(const CListElementSet& elements)
    {
        beginResetModel();
        m_rows.assign(elements.begin(), elements.end());
        endResetModel();
    }
    void clear()
    {
        beginResetModel();
        m_rows.clear();
        endResetModel();
    }
    // Adds a row at its sorted place.
    int insert(const CListElement* element)
    {
        const auto it = std::lower_bound(m_rows.begin(), m_rows.end(), element,
                                         [](const CListElement* a, const CListElement* b) { return a->less(*b); });
        const int row = int(it - m_rows.begin());
        beginInsertRows(QModelIndex(), row, row);
        m_rows.insert(it, element);
        endInsertRows();
        return row;
    }
    void removeText(const QString& text)
    {
        const auto it = std::lower_bound(m_rows.begin(), m_rows.end(), text,
                                         [](const CListElement* a, const QString& b) { return a->text() < b; });
        if (it == m_rows.end() || (*it)->text() != text)
            return;
        const int row = int(it - m_rows.begin());
        beginRemoveRows(QModelIndex(), row, row);
        m_rows.erase(it);
        endRemoveRows();
    }
    QString textAt(int row) const { return m_rows[std::size_t(row)]->text(); }
    const std::vector<const CListElement*>& rows() const { return m_rows; }
    void setExtent(int width, int rowHeight)
    {
        m_extent = width;
        m_rowHeight = rowHeight;
        if (!m_rows.empty())
            Q_EMIT dataChanged(index(0), index(int(m_rows.size()) - 1), {Qt::SizeHintRole});
        Q_EMIT layoutChanged();
    }
    int extent() const { return m_extent; }

private:
    std::vector<const CListElement*> m_rows;
    int m_extent = 0;
    int m_rowHeight = 0;
};

namespace {
QString joinedTexts(const CListElementSet& elements)
{
    QString joined;
    qsizetype length = 0;
    for (const CListElement* e : elements)
        length += e->text().size() + 1;
    joined.reserve(length);
    bool first = true;
    for (const CListElement* e : elements) {
        if (!first)
            joined.append(QLatin1Char(','));
        first = false;
        joined.append(e->text());
    }
    return joined;
}
} // namespace

CListEditor::CListEditor(QWidget* parent, _tMailServer* server, CListManager* manager, const QString& listName)
    : CTaviDialog(parent, server), m_manager(manager), m_requestedList(listName)
{
    setObjectName(QStringLiteral("CListEditor"));
    setWindowTitle(m_manager ? m_manager->title() : TaviString(IDS_LIST_CAPTION));

    m_selectLabel = new QLabel(tr("Select List"), this);
    m_selectLabel->setObjectName(QStringLiteral("lblSelectList"));
    m_lists = new QComboBox(this);
    m_lists->setObjectName(QStringLiteral("cboList"));
    m_lists->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_lists->setMinimumContentsLength(24);
    m_selectLabel->setBuddy(m_lists);

    m_entries = new QListView(this);
    m_entries->setObjectName(QStringLiteral("lstEntries"));
    m_entries->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_entries->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_entries->setUniformItemSizes(true);
    m_entries->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_entries->setMinimumSize(340, 260);
    m_model = new CListEntriesModel(this);
    m_entries->setModel(m_model);

    auto makeButton = [this](const QString& text, const char* name) {
        auto* b = new QPushButton(text, this);
        b->setObjectName(QLatin1String(name));
        b->setAutoDefault(false);
        return b;
    };
    m_add = makeButton(tr("&Add..."), "btnAdd");
    m_edit = makeButton(tr("&Edit..."), "btnEdit");
    m_delete = makeButton(tr("&Delete"), "btnDelete");
    m_import = makeButton(tr("&Import..."), "btnImport");
    m_export = makeButton(tr("&Export..."), "btnExport");
    m_loadDefault = makeButton(tr("Load Default"), "btnLoadDefault");
    m_hidden = new QLabel(this);
    m_hidden->setObjectName(QStringLiteral("lblHidden"));
    m_hidden->hide();

    auto* top = new QHBoxLayout;
    top->addWidget(m_selectLabel);
    top->addWidget(m_lists, 1);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* b : {m_add, m_edit, m_delete, m_import, m_export, m_loadDefault})
        buttons->addWidget(b);
    buttons->addStretch(1);
    auto* middle = new QHBoxLayout;
    middle->addWidget(m_entries, 1);
    middle->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(middle, 1);
    layout->addWidget(m_hidden);
    layout->addWidget(createButtonBox());

    setTabOrder(m_lists, m_entries);
    setTabOrder(m_entries, m_add);

    m_pendingTimer = new QTimer(this);
    m_pendingTimer->setSingleShot(true);
    m_pendingTimer->setInterval(0);
    connect(m_pendingTimer, &QTimer::timeout, this, &CListEditor::measureWidest);

    connect(m_lists, &QComboBox::activated, this, &CListEditor::onListActivated);
    connect(m_add, &QPushButton::clicked, this, &CListEditor::onAdd);
    connect(m_edit, &QPushButton::clicked, this, &CListEditor::onEdit);
    connect(m_delete, &QPushButton::clicked, this, &CListEditor::onDelete);
    connect(m_import, &QPushButton::clicked, this, &CListEditor::onImport);
    connect(m_export, &QPushButton::clicked, this, &CListEditor::onExport);
    connect(m_loadDefault, &QPushButton::clicked, this, &CListEditor::onLoadDefault);
    connect(m_entries, &QListView::doubleClicked, this, &CListEditor::onEdit);
    // The Delete key in the list box does what the Delete button does, while the button is enabled.
    auto* deleteKey = new QShortcut(QKeySequence::Delete, m_entries, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, [this] {
        if (m_delete->isEnabled())
            onDelete();
    });
    connect(m_entries->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CListEditor::onSelectionChanged);
}

CListEditor::~CListEditor() = default;

QString CListEditor::currentList() const
{
    return m_currentIndex > 0 ? m_lists->itemText(m_currentIndex) : QString();
}

void CListEditor::initDialog()
{
    CTaviDialog::initDialog();
    m_modified = false;
    m_lists->clear();
    m_lists->addItem(TaviString(IDS_LIST_SELECT_PROMPT));
    if (m_manager) {
        m_manager->determineKnownLists(m_requestedList);
        m_lists->addItems(m_manager->knownLists());
    }
    m_lists->setCurrentIndex(0);
    m_currentIndex = 0;
    noListState();
    const int requested = m_requestedList.isEmpty() ? -1 : m_lists->findText(m_requestedList, Qt::MatchExactly);
    if (requested > 0) {
        m_lists->setCurrentIndex(requested);
        switchTo(requested);
    }
    (m_currentIndex > 0 ? static_cast<QWidget*>(m_entries) : m_lists)->setFocus();
}

bool CListEditor::chooseList(const QString& name)
{
    const int index = m_lists->findText(name, Qt::MatchExactly);
    if (index < 0)
        return false;
    m_lists->setCurrentIndex(index);
    onListActivated(index);
    return m_currentIndex == index;
}

void CListEditor::onListActivated(int index)
{
    stopPendingTimer();
    if (m_modified) {
        if (taviMessageBox(TaviString(IDS_LIST_SAVE_QUESTION), Mb::YesNo | Mb::IconQuestion) == Id::Yes) {
            if (!saveList()) {
                // The list that could not be saved stays on screen with its changes.
                m_lists->setCurrentIndex(m_currentIndex);
                return;
            }
        }
        m_modified = false;
        m_rewriteNeeded = false;
    }
    switchTo(index);
}

bool CListEditor::switchTo(int index)
{
    m_removed.clear();
    m_elements.clear();
    m_model->clear();
    if (index <= 0) {
        m_currentIndex = 0;
        noListState();
        return false;
    }
    const QString name = m_lists->itemText(index);
    bool loaded = false;
    {
        CWaitCursor wait;
        loaded = m_manager && m_manager->determineKnownLists(name) && m_manager->selectList(name) && loadList();
    }
    if (!loaded) {
        const quint32 error = GetLastError();
        m_elements.clear();
        m_lists->setCurrentIndex(0);
        m_currentIndex = 0;
        noListState();
        showLoadFailure(name, error);
        return false;
    }
    m_currentIndex = index;
    refill();
    nothingSelectedState();
    return true;
}

void CListEditor::showLoadFailure(const QString& name, quint32 error)
{
    taviMessageBox(TaviFormat(TaviString(IDS_LIST_LOAD_FAILED), {name, QString::number(error)}),
                   Mb::Ok | Mb::IconExclamation);
}

bool CListEditor::loadList()
{
    QStringList items;
    if (!m_manager || !m_manager->loadItems(items))
        return false;
    m_elements.clear();
    for (const QString& item : std::as_const(items)) {
        // A stored entry is shown as stored; one that repeats another is shown once.
        m_elements.insert(makeElement(item, false));
    }
    return true;
}

void CListEditor::refill()
{
    stopPendingTimer();
    m_model->reset(m_elements);
    m_widest = 0;
    m_model->setExtent(0, 0);
    m_hidden->setText(TaviFormat(TaviString(IDS_LIST_ENTRY_COUNT), {QString::number(m_elements.size())}));
    // The widest entry is measured once the rows are on screen, so that a long list shows at once.
    if (!m_elements.isEmpty())
        m_pendingTimer->start();
}

namespace {
// Widths as the sum of the characters' advances (no kerning): exact enough for a scroll extent, and a
// table look-up a character, so that 100 000 rows are measured in a few milliseconds.
class CTextWidths {
public:
    explicit CTextWidths(const QFont& font) : m_metrics(font)
    {
        for (int c = 0; c < 128; ++c)
            m_ascii[c] = m_metrics.horizontalAdvance(QChar(c));
    }
    int width(const QString& text)
    {
        int width = 0;
        for (const QChar c : text) {
            const char16_t u = c.unicode();
            if (u < 128) {
                width += m_ascii[u];
                continue;
            }
            auto it = m_other.constFind(u);
            if (it == m_other.constEnd())
                it = m_other.insert(u, m_metrics.horizontalAdvance(c));
            width += *it;
        }
        return width;
    }
    int height() const { return m_metrics.height(); }

private:
    QFontMetrics m_metrics;
    int m_ascii[128] = {};
    QHash<char16_t, int> m_other;
};
} // namespace

void CListEditor::measureWidest()
{
    CTextWidths widths(m_entries->font());
    int widest = 0;
    for (const CListElement* e : m_model->rows())
        widest = std::max(widest, widths.width(e->text()));
    m_widest = widest;
    m_model->setExtent(widest + 8, widths.height() + 2);
}

void CListEditor::stopPendingTimer()
{
    if (m_pendingTimer->isActive()) {
        m_pendingTimer->stop();
        measureWidest();
    }
}

void CListEditor::markModified(bool rewrite)
{
    m_modified = true;
    if (rewrite)
        m_rewriteNeeded = true;
}

bool CListEditor::insertElement(std::unique_ptr<CListElement> element)
{
    return m_elements.insert(std::move(element));
}

bool CListEditor::removeElement(const QString& text)
{
    std::unique_ptr<CListElement> element = m_elements.take(text);
    if (!element) {
        SetLastError(VB_ERROR_NOT_FOUND);
        return false;
    }
    // An element added since the last save was never stored: forgetting it is enough.
    if (element->state() == CListElement::Unchanged) {
        element->setState(CListElement::Removed);
        m_removed.push_back(std::move(element));
    }
    return true;
}

bool CListEditor::addEntry(const QString& text)
{
    QString normalised = text;
    if (!normalise(normalised))
        return false;
    // A stored element removed since the last save and now added again simply stays.
    return insertElement(makeElement(normalised, true));
}

CListElement* CListEditor::newElement()
{
    SetLastError(0);
    QString text;
    if (!runEntryDialog(false, text))
        return nullptr;
    if (!normalise(text))
        return nullptr;
    return insertNew(makeElement(text, true));
}

CListElement* CListEditor::insertNew(std::unique_ptr<CListElement> element)
{
    CListElement* raw = element.get();
    return insertElement(std::move(element)) ? raw : nullptr;
}

CListElement* CListEditor::editElement(const QString& oldText)
{
    SetLastError(0);
    QString text = oldText;
    if (!runEntryDialog(true, text))
        return nullptr;
    if (!normalise(text))
        return nullptr;
    if (text == oldText) {
        SetLastError(0);
        return nullptr;
    }
    if (m_elements.find(text)) {
        SetLastError(VB_ERROR_ALREADY_EXISTS);
        return nullptr;
    }
    if (!removeElement(oldText))
        return nullptr;
    return insertNew(makeElement(text, true));
}

bool CListEditor::confirmBadRows(const QList<qint64>& lines, std::size_t accepted)
{
    if (lines.isEmpty())
        return true;
    constexpr qsizetype kListed = 20;
    QStringList shown;
    for (qsizetype i = 0; i < lines.size() && i < kListed; ++i)
        shown.append(QString::number(lines[i]));
    QString listed = shown.join(QStringLiteral(", "));
    if (lines.size() > kListed)
        listed = TaviFormat(TaviString(IDS_LIST_IMPORT_MORE_LINES), {listed, QString::number(lines.size() - kListed)});
    const QString text = TaviFormat(TaviString(IDS_LIST_IMPORT_BAD_ROWS),
                                    {QString::number(lines.size()), listed, QString::number(accepted)});
    return taviMessageBox(text, Mb::OkCancel | Mb::IconExclamation) == Id::Ok;
}

bool CListEditor::writeFile(const QString& path, const QByteArray& text)
{
    for (;;) {
        // The old file is replaced only by a complete new one.
        QSaveFile file(path);
        if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
            return true;
        if (taviMessageBox(TaviString(IDS_LIST_IO_ERRORS), Mb::RetryCancel | Mb::IconExclamation) != Id::Retry)
            return false;
    }
}

bool CListEditor::loadDefault()
{
    SetLastError(VB_ERROR_NOT_SUPPORTED);
    return false;
}

void CListEditor::onAdd()
{
    stopPendingTimer();
    CListElement* element = newElement();
    if (!element) {
        const quint32 error = GetLastError();
        if (error == VB_ERROR_ALREADY_EXISTS)
            taviMessageBox(TaviString(IDS_LIST_DUPLICATE), Mb::Ok | Mb::IconExclamation);
        else if (error != 0)
            taviMessageBox(TaviFormat(TaviString(IDS_LIST_OPERATION_FAILED), {QString::number(error)}),
                           Mb::Ok | Mb::IconExclamation);
        return;
    }
    const int row = m_model->insert(element);
    const int width = QFontMetrics(m_entries->font()).horizontalAdvance(element->text());
    if (width > m_widest) {
        m_widest = width;
        // A wider margin than the refill's, so that a few more long entries fit without a change.
        m_model->setExtent(width * 4 / 3, QFontMetrics(m_entries->font()).height() + 2);
    }
    m_entries->clearSelection();
    m_entries->setCurrentIndex(m_model->index(row));
    m_entries->scrollTo(m_model->index(row));
    m_hidden->setText(TaviFormat(TaviString(IDS_LIST_ENTRY_COUNT), {QString::number(m_elements.size())}));
    markModified(false);
}

void CListEditor::onEdit()
{
    stopPendingTimer();
    const QStringList selected = selectedTexts();
    if (selected.size() != 1)
        return;
    const QString oldText = selected.first();
    CListElement* element = editElement(oldText);
    if (!element) {
        const quint32 error = GetLastError();
        if (error == VB_ERROR_ALREADY_EXISTS) {
            taviMessageBox(TaviString(IDS_LIST_NAME_EXISTS), Mb::Ok | Mb::IconExclamation);
        } else if (error == VB_ERROR_NOT_FOUND) {
            taviMessageBox(TaviFormat(TaviString(IDS_LIST_VANISHED), {oldText}), Mb::Ok | Mb::IconExclamation);
            m_model->removeText(oldText);
        } else if (error != 0) {
            taviMessageBox(TaviFormat(TaviString(IDS_LIST_OPERATION_FAILED), {QString::number(error)}),
                           Mb::Ok | Mb::IconExclamation);
        }
        return;
    }
    m_model->removeText(oldText);
    const int row = m_model->insert(element);
    measureWidest();
    m_entries->clearSelection();
    m_entries->setCurrentIndex(m_model->index(row));
    markModified(false);
}

void CListEditor::onDelete()
{
    stopPendingTimer();
    const QStringList selected = selectedTexts();
    if (selected.isEmpty())
        return;
    for (const QString& text : selected)
        removeElement(text);
    // One refill instead of a row removal each: deleting thousands of rows stays linear.
    refill();
    m_entries->clearSelection();
    markModified(false);
    nothingSelectedState();
}

QStringList CListEditor::selectedTexts() const
{
    QStringList texts;
    const QModelIndexList rows = m_entries->selectionModel()->selectedRows();
    texts.reserve(rows.size());
    for (const QModelIndex& index : rows)
        texts.append(m_model->textAt(index.row()));
    return texts;
}

namespace {
CFileDialogRequest csvRequest(bool save)
{
    CFileDialogRequest request;
    request.save = save;
    request.defaultExtension = QStringLiteral("csv");
    request.filters = {{TaviString(IDS_LIST_FILTER_CSV), QStringLiteral("*.csv")},
                       {TaviString(IDS_LIST_FILTER_ALL), QStringLiteral("*")}};
    if (save)
        request.flags = Ofn::OverwritePrompt | Ofn::HideReadOnly;
    return request;
}
} // namespace

void CListEditor::onImport()
{
    stopPendingTimer();
    CFileDialogRequest request = csvRequest(false);
    if (!platform().fileDialog(this, request))
        return;
    if (!importFile(request.fileName))
        return;
    // Many entries at once are written back as one list rather than one store call each.
    markModified(true);
    refill();
    nothingSelectedState();
}

void CListEditor::onExport()
{
    stopPendingTimer();
    CFileDialogRequest request = csvRequest(true);
    if (!platform().fileDialog(this, request))
        return;
    exportFile(request.fileName);
}

void CListEditor::onLoadDefault()
{
    stopPendingTimer();
    if (loadDefault())
        markModified(true);
    else if (GetLastError() != 0)
        taviMessageBox(TaviString(IDS_LIST_LOAD_DEFAULT_FAILED), Mb::Ok | Mb::IconExclamation);
    refill();
    nothingSelectedState();
}

void CListEditor::onSelectionChanged()
{
    if (m_currentIndex <= 0)
        return;
    const qsizetype count = m_entries->selectionModel()->selectedRows().size();
    if (count == 0)
        nothingSelectedState();
    else if (count == 1)
        oneSelectedState();
    else
        severalSelectedState();
}

void CListEditor::onOK()
{
    stopPendingTimer();
    // Closes with OK whatever the save gave: a failed save has been reported and the person chose
    // Abort or Ignore.
    saveList();
    closeAsOK();
}

bool CListEditor::saveList()
{
    if (!m_modified)
        return true;
    for (;;) {
        bool saved = false;
        {
            CWaitCursor wait;
            saved = m_rewriteNeeded ? storeWhole() : storeEachElement();
        }
        if (saved) {
            markStored();
            m_rewriteNeeded = false;
            m_modified = false;
            return true;
        }
        const int answer = taviMessageBox(TaviString(IDS_LIST_SAVE_FAILED), Mb::AbortRetryIgnore | Mb::IconExclamation);
        if (answer == Id::Retry)
            continue;
        if (answer == Id::Ignore)
            m_modified = false;
        return false;
    }
}

bool CListEditor::storeWhole()
{
    return m_manager && m_manager->storeWhole(joinedTexts(m_elements));
}

bool CListEditor::storeEachElement()
{
    // Removals first, so that an entry deleted and added again is stored as added. Each element that
    // has been stored is marked so, and a retry after a failure goes on where the pass stopped.
    while (!m_removed.empty()) {
        if (!m_removed.back()->store(m_manager.get()))
            return false;
        m_removed.pop_back();
    }
    for (CListElement* e : m_elements) {
        if (e->state() == CListElement::Unchanged)
            continue;
        if (!e->store(m_manager.get()))
            return false;
        e->setState(CListElement::Unchanged);
    }
    return m_manager && m_manager->commit();
}

void CListEditor::markStored()
{
    m_removed.clear();
    for (CListElement* e : m_elements)
        e->setState(CListElement::Unchanged);
}

void CListEditor::enableControls(bool enable)
{
    m_entries->setEnabled(enable);
    m_import->setEnabled(enable);
    m_export->setEnabled(enable);
    m_add->setEnabled(enable);
    okButton()->setEnabled(true);
    m_lists->setEnabled(true);
    m_selectLabel->setEnabled(true);
    m_edit->setEnabled(false);
    m_delete->setEnabled(false);
    m_loadDefault->setEnabled(false);
    m_hidden->setEnabled(false);
}

void CListEditor::noListState()
{
    enableControls(false);
}

void CListEditor::nothingSelectedState()
{
    enableControls(true);
    m_loadDefault->setEnabled(m_manager && m_manager->hasDefaults());
}

void CListEditor::oneSelectedState()
{
    enableControls(true);
    m_delete->setEnabled(true);
    m_add->setEnabled(true);
    m_edit->setEnabled(true);
    m_loadDefault->setEnabled(m_manager && m_manager->hasDefaults());
}

void CListEditor::severalSelectedState()
{
    enableControls(true);
    m_delete->setEnabled(true);
    m_add->setEnabled(true);
    m_edit->setEnabled(false);
    m_loadDefault->setEnabled(m_manager && m_manager->hasDefaults());
}
