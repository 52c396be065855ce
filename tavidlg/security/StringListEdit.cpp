#include "security/StringListEdit.h"

#include "common/PlatformServices.h"
#include "res/SecurityStrings.h"
#include "res/StringTable.h"
#include "config/MessageFormat.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

CStringListEdit::CStringListEdit(const QString& name, QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("sle") + name);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("lst") + name);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setUniformItemSizes(true);
    m_edit = new QLineEdit(this);
    m_edit->setObjectName(QStringLiteral("edt") + name);
    m_edit->setMaxLength(256);
    m_add = new QPushButton(tr("A&dd"), this);
    m_add->setObjectName(QStringLiteral("btnAdd") + name);
    m_add->setEnabled(false);
    m_remove = new QPushButton(tr("Re&move"), this);
    m_remove->setObjectName(QStringLiteral("btnRemove") + name);
    m_up = new QPushButton(tr("Up"), this);
    m_up->setObjectName(QStringLiteral("btnUp") + name);
    m_up->setToolTip(tr("Move the selected entry up the list"));
    m_down = new QPushButton(tr("Down"), this);
    m_down->setObjectName(QStringLiteral("btnDown") + name);
    m_down->setToolTip(tr("Move the selected entry down the list"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_edit, 0, 0);
    grid->addWidget(m_add, 0, 1);
    grid->addWidget(m_list, 1, 0, 4, 1);
    grid->addWidget(m_remove, 1, 1);
    grid->addWidget(m_up, 2, 1);
    grid->addWidget(m_down, 3, 1);
    grid->setRowStretch(4, 1);
    connect(m_add, &QPushButton::clicked, this, &CStringListEdit::onAdd);
    connect(m_edit, &QLineEdit::returnPressed, this, &CStringListEdit::onAdd);
    connect(m_edit, &QLineEdit::textChanged, this, &CStringListEdit::updateButtons);
    connect(m_remove, &QPushButton::clicked, this, &CStringListEdit::onRemove);
    connect(m_up, &QPushButton::clicked, this, [this] { move(-1); });
    connect(m_down, &QPushButton::clicked, this, [this] { move(1); });
    connect(m_list, &QListWidget::itemSelectionChanged, this, &CStringListEdit::updateButtons);
    setTabOrder(m_edit, m_add);
    setTabOrder(m_add, m_list);
    setTabOrder(m_list, m_remove);
    setTabOrder(m_remove, m_up);
    setTabOrder(m_up, m_down);
    updateButtons();
}

void CStringListEdit::setPlaceholderText(const QString& text)
{
    m_edit->setPlaceholderText(text);
}

void CStringListEdit::setEntries(const QStringList& entries)
{
    m_list->clear();
    m_keys.clear();
    QStringList unique;
    unique.reserve(entries.size());
    for (const QString& e : entries) {
        if (!m_keys.contains(e.toLower())) {
            m_keys.insert(e.toLower());
            unique.append(e);
        }
    }
    m_list->addItems(unique);
    updateButtons();
}

QStringList CStringListEdit::entries() const
{
    QStringList out;
    out.reserve(m_list->count());
    for (int i = 0; i < m_list->count(); ++i)
        out.append(m_list->item(i)->text());
    return out;
}

int CStringListEdit::appendEntries(const QStringList& entries, int* refused)
{
    QStringList added;
    int bad = 0;
    for (const QString& raw : entries) {
        const QString entry = raw.trimmed();
        if (entry.isEmpty())
            continue;
        if (m_check && !m_check(entry).isEmpty()) {
            ++bad;
            continue;
        }
        if (m_keys.contains(entry.toLower()))
            continue;
        m_keys.insert(entry.toLower());
        added.append(entry);
    }
    m_list->addItems(added);
    if (refused)
        *refused = bad;
    if (!added.isEmpty())
        emit changed();
    updateButtons();
    return int(added.size());
}

int CStringListEdit::count() const
{
    return m_list->count();
}

void CStringListEdit::onAdd()
{
    const QString entry = m_edit->text().trimmed();
    if (entry.isEmpty())
        return;
    QString refusal = m_check ? m_check(entry) : QString();
    if (refusal.isEmpty() && m_keys.contains(entry.toLower()))
        refusal = TaviFormat(TaviString(IDS_SEC_LIST_DUPLICATE), {entry});
    if (!refusal.isEmpty()) {
        taviMessageBox(refusal, Mb::Ok | Mb::IconExclamation);
        m_edit->setFocus();
        m_edit->selectAll();
        return;
    }
    // After the last selected entry, or at the end.
    int row = -1;
    for (QListWidgetItem* item : m_list->selectedItems())
        row = qMax(row, m_list->row(item) + 1);
    if (row < 0)
        row = m_list->count();
    m_list->insertItem(row, entry);
    m_keys.insert(entry.toLower());
    m_list->clearSelection();
    m_list->setCurrentRow(row);
    m_edit->clear();
    m_edit->setFocus();
    emit changed();
}

void CStringListEdit::onRemove()
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    if (selected.isEmpty())
        return;
    for (QListWidgetItem* item : selected) {
        m_keys.remove(item->text().toLower());
        delete item;
    }
    emit changed();
}

void CStringListEdit::move(int delta)
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    if (selected.size() != 1)
        return;
    const int row = m_list->row(selected.first());
    const int to = row + delta;
    if (to < 0 || to >= m_list->count())
        return;
    QListWidgetItem* item = m_list->takeItem(row);
    m_list->insertItem(to, item);
    m_list->clearSelection();
    m_list->setCurrentItem(item);
    emit changed();
}

void CStringListEdit::updateButtons()
{
    const QList<QListWidgetItem*> selected = m_list->selectedItems();
    const int row = selected.size() == 1 ? m_list->row(selected.first()) : -1;
    m_add->setEnabled(!m_edit->text().trimmed().isEmpty());
    m_remove->setEnabled(!selected.isEmpty());
    m_up->setEnabled(row > 0);
    m_down->setEnabled(row >= 0 && row + 1 < m_list->count());
}
