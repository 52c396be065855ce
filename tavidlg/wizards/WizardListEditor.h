// The list of the wizards' list pages: one column of entries edited in place, with a tool bar to add,
// delete and move entries. "" and "*" are never accepted as an entry; a row added and then not given
// an acceptable text disappears again. Built on a model over a string list so that 100 000 entries
// load, show and save at once.
#pragma once

#include "entry/TaviGlobal.h"

#include <QAbstractListModel>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QStringList>
#include <QWidget>

class QAction;
class QToolBar;
class QTreeView;

class TAVI_EXPORT CWizardListModel : public QAbstractListModel {
    Q_OBJECT
public:
    CWizardListModel(const QString& header, QObject* parent);

    void setEntries(const QStringList& entries);
    const QStringList& entries() const { return m_entries; }
    void insertEntry(int row, const QString& text);
    // Removes the rows of sorted, disjoint ranges [first, last], from the bottom up.
    void removeRanges(const QList<QPair<int, int>>& ranges);
    void moveEntry(int from, int to);

    // The rule of an edited label: anything but "" and "*".
    static bool isAcceptable(const QString& text);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList m_entries;
    QString m_header;
};

class TAVI_EXPORT CWizardListEditor : public QWidget {
    Q_OBJECT
public:
    // newText: the text of an added row ("new service", "new domain"); editable false: a list to look
    // at, without tool bar.
    CWizardListEditor(const QString& header, const QString& newText, bool editable, QWidget* parent);

    void setEntries(const QStringList& entries);
    QStringList entries() const { return m_model->entries(); }
    // Adds a row at the end and selects it (the well-known services of the blacklist page).
    void appendAndSelect(const QString& text);
    // The column takes this share of the list's width (1: all of it).
    void setColumnShare(double share);

    QTreeView* view() const { return m_view; }
    CWizardListModel* model() const { return m_model; }
    QToolBar* toolBar() const { return m_toolBar; }
    int justAddedRow() const { return m_justAdded.isValid() ? m_justAdded.row() : -1; }

public Q_SLOTS:
    void addEntry();
    void deleteSelected();
    void moveUp();
    void moveDown();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QList<int> selectedRows() const;
    void selectRow(int row);
    void editRow(int row);
    void moveSelected(int offset);
    void onEditorClosed(QWidget* editor);
    void updateActions();
    QAction* makeAction(const char* name, unsigned tipId, const QString& icon, void (CWizardListEditor::*slot)());

    CWizardListModel* m_model = nullptr;
    QTreeView* m_view = nullptr;
    QToolBar* m_toolBar = nullptr;
    QAction* m_add = nullptr;
    QAction* m_delete = nullptr;
    QAction* m_up = nullptr;
    QAction* m_down = nullptr;
    QString m_newText;
    double m_columnShare = 1.0;
    QPersistentModelIndex m_justAdded;
    QPointer<QWidget> m_editor;
    QPersistentModelIndex m_editing;
    bool m_editAccepted = false;
    bool m_adding = false;
};
