#include "wizards/WizardListEditor.h"

#include "res/StringTable.h"
#include "res/WizardStringIds.h"

#include <QAction>
#include <QHeaderView>
#include <QIcon>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

CWizardListModel::CWizardListModel(const QString& header, QObject* parent)
    : QAbstractListModel(parent), m_header(header)
{
}

void CWizardListModel::setEntries(const QStringList& entries)
{
    beginResetModel();
    m_entries = entries;
    endResetModel();
}

void CWizardListModel::insertEntry(int row, const QString& text)
{
    row = std::clamp(row, 0, int(m_entries.size()));
    beginInsertRows(QModelIndex(), row, row);
    m_entries.insert(row, text);
    endInsertRows();
}

void CWizardListModel::removeRanges(const QList<QPair<int, int>>& ranges)
{
    for (auto it = ranges.crbegin(); it != ranges.crend(); ++it) {
        beginRemoveRows(QModelIndex(), it->first, it->second);
        m_entries.remove(it->first, it->second - it->first + 1);
        endRemoveRows();
    }
}

void CWizardListModel::moveEntry(int from, int to)
{
    if (from == to || from < 0 || to < 0 || from >= m_entries.size() || to >= m_entries.size())
        return;
    // Qt names the destination as the row before which the moved row lands.
    beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to);
    m_entries.move(from, to);
    endMoveRows();
}

bool CWizardListModel::isAcceptable(const QString& text)
{
    return !text.isEmpty() && text != QLatin1String("*");
}

int CWizardListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant CWizardListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_entries.size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return m_entries.at(index.row());
    return {};
}

bool CWizardListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.row() >= m_entries.size())
        return false;
    const QString text = value.toString();
    if (!isAcceptable(text))
        return false;
    m_entries[index.row()] = text;
    Q_EMIT dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

Qt::ItemFlags CWizardListModel::flags(const QModelIndex& index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
}

QVariant CWizardListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return m_header;
    return {};
}

namespace {

// Tells the editor whether the label edit that ends was accepted.
class CLabelDelegate : public QStyledItemDelegate {
public:
    CLabelDelegate(QObject* parent, std::function<void(QWidget*, const QModelIndex&)> started,
                   std::function<void(QWidget*, bool)> committed)
        : QStyledItemDelegate(parent), m_started(std::move(started)), m_committed(std::move(committed))
    {
    }
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setObjectName(QStringLiteral("edtLabel"));
        m_started(editor, index);
        return editor;
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        auto* edit = qobject_cast<QLineEdit*>(editor);
        m_committed(editor, edit && model->setData(index, edit->text(), Qt::EditRole));
    }

private:
    std::function<void(QWidget*, const QModelIndex&)> m_started;
    std::function<void(QWidget*, bool)> m_committed;
};

} // namespace

CWizardListEditor::CWizardListEditor(const QString& header, const QString& newText, bool editable, QWidget* parent)
    : QWidget(parent), m_newText(newText)
{
    m_model = new CWizardListModel(header, this);
    m_view = new QTreeView(this);
    m_view->setObjectName(QStringLiteral("lstEntries"));
    m_view->setModel(m_model);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->header()->setStretchLastSection(true);
    m_view->header()->setSectionsMovable(false);
    m_view->setAccessibleName(header);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    if (editable) {
        m_toolBar = new QToolBar(this);
        m_toolBar->setObjectName(QStringLiteral("tbrList"));
        m_toolBar->setIconSize(QSize(16, 16));
        m_toolBar->setToolButtonStyle(Qt::ToolButtonIconOnly);
        m_add = makeAction("actAdd", IDS_WIZ_LIST_ADD, QStringLiteral("list-add-16.png"), &CWizardListEditor::addEntry);
        m_add->setShortcut(QKeySequence(Qt::Key_Insert));
        m_delete = makeAction("actDelete", IDS_WIZ_LIST_DELETE, QStringLiteral("list-delete-16.png"),
                              &CWizardListEditor::deleteSelected);
        m_delete->setShortcut(QKeySequence::Delete);
        m_up = makeAction("actUp", IDS_WIZ_LIST_UP, QStringLiteral("go-up-16.png"), &CWizardListEditor::moveUp);
        m_up->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
        m_down = makeAction("actDown", IDS_WIZ_LIST_DOWN, QStringLiteral("go-down-16.png"), &CWizardListEditor::moveDown);
        m_down->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Down));
        layout->addWidget(m_toolBar);

        m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                                QAbstractItemView::SelectedClicked);
        auto* delegate = new CLabelDelegate(
            this,
            [this](QWidget* editor, const QModelIndex& index) {
                // Editing a row again (double-click, F2, a click on the selected row) makes it an
                // ordinary row: refusing that edit keeps it.
                if (!m_adding)
                    m_justAdded = QPersistentModelIndex();
                m_editor = editor;
                m_editing = index;
                m_editAccepted = false;
            },
            [this](QWidget* editor, bool accepted) {
                if (editor == m_editor)
                    m_editAccepted = accepted;
            });
        m_view->setItemDelegate(delegate);
        connect(delegate, &QAbstractItemDelegate::closeEditor, this, &CWizardListEditor::onEditorClosed);
        connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CWizardListEditor::updateActions);
        connect(m_model, &QAbstractItemModel::modelReset, this, &CWizardListEditor::updateActions);
        connect(m_model, &QAbstractItemModel::rowsRemoved, this, &CWizardListEditor::updateActions);
        connect(m_model, &QAbstractItemModel::rowsMoved, this, &CWizardListEditor::updateActions);
    } else {
        m_view->setSelectionMode(QAbstractItemView::SingleSelection);
        m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    }
    layout->addWidget(m_view, 1);
    updateActions();
}

QAction* CWizardListEditor::makeAction(const char* name, unsigned tipId, const QString& icon,
                                       void (CWizardListEditor::*slot)())
{
    const QString tip = TaviString(tipId);
    QAction* action = m_toolBar->addAction(QIcon(QStringLiteral(":/tavidlg/") + icon), tip);
    action->setObjectName(QLatin1String(name));
    action->setToolTip(tip);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_toolBar->widgetForAction(action)->setObjectName(QStringLiteral("btn") + QLatin1String(name + 3));
    connect(action, &QAction::triggered, this, slot);
    addAction(action);
    return action;
}

void CWizardListEditor::setEntries(const QStringList& entries)
{
    m_justAdded = QPersistentModelIndex();
    m_model->setEntries(entries);
}

void CWizardListEditor::appendAndSelect(const QString& text)
{
    const int row = int(m_model->entries().size());
    m_model->insertEntry(row, text);
    selectRow(row);
}

void CWizardListEditor::setColumnShare(double share)
{
    m_columnShare = share;
    m_view->header()->setStretchLastSection(share >= 1.0);
    if (share < 1.0)
        m_view->header()->resizeSection(0, int(m_view->viewport()->width() * m_columnShare));
}

void CWizardListEditor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_columnShare < 1.0)
        m_view->header()->resizeSection(0, int(m_view->viewport()->width() * m_columnShare));
}

QList<int> CWizardListEditor::selectedRows() const
{
    QList<int> rows;
    for (const QItemSelectionRange& range : m_view->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void CWizardListEditor::selectRow(int row)
{
    const QModelIndex index = m_model->index(row, 0);
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    m_view->scrollTo(index);
}

void CWizardListEditor::editRow(int row)
{
    m_view->setFocus();
    m_view->edit(m_model->index(row, 0));
}

void CWizardListEditor::addEntry()
{
    const QList<int> rows = selectedRows();
    const int row = rows.isEmpty() ? int(m_model->entries().size()) : rows.last() + 1;
    m_model->insertEntry(row, m_newText);
    selectRow(row);
    m_justAdded = m_model->index(row, 0);
    m_adding = true;
    editRow(row);
    m_adding = false;
}

void CWizardListEditor::deleteSelected()
{
    const QList<int> rows = selectedRows();
    QList<QPair<int, int>> ranges;
    for (int row : rows) {
        if (!ranges.isEmpty() && ranges.last().second + 1 == row)
            ranges.last().second = row;
        else
            ranges.append({row, row});
    }
    m_model->removeRanges(ranges);
}

void CWizardListEditor::moveSelected(int offset)
{
    const QList<int> rows = selectedRows();
    if (rows.size() != 1)
        return;
    const int from = rows.first();
    const int to = from + offset;
    if (to < 0 || to >= m_model->entries().size())
        return;
    m_model->moveEntry(from, to);
    selectRow(to);
    m_view->setFocus();
}

void CWizardListEditor::moveUp()
{
    moveSelected(-1);
}

void CWizardListEditor::moveDown()
{
    moveSelected(1);
}

void CWizardListEditor::onEditorClosed(QWidget* editor)
{
    // An editor may report its end twice (closed, then losing the focus); only the first counts.
    if (!editor || editor != m_editor)
        return;
    m_editor = nullptr;
    const QPersistentModelIndex edited = m_editing;
    m_editing = QPersistentModelIndex();
    if (!edited.isValid() || edited != m_justAdded)
        return;
    m_justAdded = QPersistentModelIndex();
    if (m_editAccepted)
        return;
    // A row just added that was not given an acceptable text goes again (the view, connected first,
    // has let go of the editor by now).
    m_model->removeRanges({{edited.row(), edited.row()}});
}

void CWizardListEditor::updateActions()
{
    if (!m_toolBar)
        return;
    const QList<QItemSelectionRange> selection = m_view->selectionModel()->selection();
    int count = 0;
    int only = -1;
    for (const QItemSelectionRange& range : selection) {
        count += range.height();
        only = range.top();
    }
    m_delete->setEnabled(count > 0);
    m_up->setEnabled(count == 1 && only > 0);
    m_down->setEnabled(count == 1 && only + 1 < m_model->entries().size());
}
