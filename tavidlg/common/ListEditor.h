// The generic "List Editor": a drop-down of the owner's named lists, the selected list's entries in
// ascending order in a multi-selection list box, and Add, Edit, Delete, Import, Export, "Load Default",
// OK and Cancel.
//
// A concrete editor supplies the manager (which lists exist and where they are stored), the element
// type (makeElement, normalise), the Add and Edit dialog (runEntryDialog) and the file formats
// (importFile, exportFile). It is constructed with its manager, which the editor owns and deletes, and
// the name of the list to show first (empty: none); it sets its help context in its constructor.
//
// Saving: an import or "Load Default" makes the next save rewrite the list whole (one store call);
// otherwise each added and removed element is stored by itself. OK saves and closes with 1 whatever
// the save gave: the person has already been asked about a failed save.
#pragma once

#include "common/ListElement.h"
#include "common/TaviDialog.h"

#include <memory>
#include <vector>

class CListManager;
class CListEntriesModel;
class QComboBox;
class QLabel;
class QListView;
class QPushButton;
class QTimer;

class TAVI_EXPORT CListEditor : public CTaviDialog {
    Q_OBJECT
public:
    CListEditor(QWidget* parent, _tMailServer* server, CListManager* manager, const QString& listName);
    ~CListEditor() override;

    CListManager* manager() const { return m_manager.get(); }
    const CListElementSet& elements() const { return m_elements; }
    bool isModified() const { return m_modified; }
    bool isRewriteNeeded() const { return m_rewriteNeeded; }
    // The list shown ("" when none).
    QString currentList() const;
    // Chooses a list as the drop-down does (with the save question); false when it was not loaded.
    bool chooseList(const QString& name);

    // ---- the editor's operations ------------------------------------------------------------------
    // Removes the element with this text; fails with 1168 when there is none. A stored element is kept
    // as removed until the save stores its removal.
    virtual bool removeElement(const QString& text);
    // Saves the current list, asking Abort/Retry/Ignore on failure; true when saved (or nothing to save).
    virtual bool saveList();
    // Loads the manager's selected list into the element set.
    virtual bool loadList();
    // Replaces the element set by the list's defaults; the base has none and fails with 50.
    virtual bool loadDefault();
    // Runs the Add dialog, makes the element and inserts it. Null with the last error 0 (cancelled),
    // 183 (duplicate) or another code.
    virtual CListElement* newElement();
    // Runs the Edit dialog over the element with oldText and replaces it. Null with the last error 0
    // (cancelled or unchanged), 183 (the new text exists) or 1168 (the old element is gone).
    virtual CListElement* editElement(const QString& oldText);
    // Normalises and inserts one entry (import); false with 13 for a refused text, 183 for a duplicate.
    virtual bool addEntry(const QString& text);

protected:
    void initDialog() override;
    void onOK() override;

    virtual void enableControls(bool enable);
    virtual bool importFile(const QString& path) = 0;
    virtual bool exportFile(const QString& path) = 0;
    virtual void noListState();
    virtual void nothingSelectedState();
    virtual void oneSelectedState();
    virtual void severalSelectedState();
    virtual std::unique_ptr<CListElement> makeElement(const QString& text, bool added) = 0;
    // Normalises text in place; false with the last error 13 (invalid data) when it is refused.
    virtual bool normalise(QString& text) = 0;
    // Asks for an entry's text (initial: the old text on Edit); false when cancelled.
    virtual bool runEntryDialog(bool edit, QString& text) = 0;
    // Writes the whole list through the manager (after an import or "Load Default").
    virtual bool storeWhole();

    // For concrete editors: the set they fill, flags, and the list box's refill.
    CListElementSet& mutableElements() { return m_elements; }
    bool insertElement(std::unique_ptr<CListElement> element);
    // Inserts and returns the element, or null (the last error 183 for a duplicate).
    CListElement* insertNew(std::unique_ptr<CListElement> element);
    // After an import with refused rows: names their lines and asks whether to keep the accepted ones.
    bool confirmBadRows(const QList<qint64>& lines, std::size_t accepted);
    // Writes an export file whole (never half), offering Retry when it cannot be written.
    bool writeFile(const QString& path, const QByteArray& text);
    void markModified(bool rewrite);
    void refill();
    QPushButton* loadDefaultButton() const { return m_loadDefault; }
    QLabel* hintLabel() const { return m_hidden; }

private Q_SLOTS:
    void onListActivated(int index);
    void onAdd();
    void onEdit();
    void onDelete();
    void onImport();
    void onExport();
    void onLoadDefault();
    void onSelectionChanged();
    void measureWidest();

private:
    bool switchTo(int index);
    void stopPendingTimer();
    bool storeEachElement();
    void markStored();
    QStringList selectedTexts() const;
    void showLoadFailure(const QString& name, quint32 error);

    bool m_rewriteNeeded = false;
    bool m_modified = false;
    int m_currentIndex = 0;
    int m_widest = 0;
    QTimer* m_pendingTimer = nullptr;
    CListElementSet m_elements;
    // Stored elements deleted since the last save, their removal still to be stored.
    std::vector<std::unique_ptr<CListElement>> m_removed;
    std::unique_ptr<CListManager> m_manager;
    QString m_requestedList;

    QLabel* m_selectLabel = nullptr;
    QComboBox* m_lists = nullptr;
    QListView* m_entries = nullptr;
    CListEntriesModel* m_model = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_edit = nullptr;
    QPushButton* m_delete = nullptr;
    QPushButton* m_import = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_loadDefault = nullptr;
    QLabel* m_hidden = nullptr;
};
