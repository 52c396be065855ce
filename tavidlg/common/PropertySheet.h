// Property sheets: a QDialog with one tab per page and OK, Cancel, Apply Now and Help.
//
// A page is initialised when it is first activated (initPage(), then exchange(false)). Leaving a page
// asks onKillActive() (default exchange(true)); a refusal keeps the page in front. OK and Apply Now
// validate the active page, then apply every page that was ever shown, in tab order; a page whose
// apply() fails comes to the front and the sheet stays open. Pages never shown are never written.
// Apply Now is enabled while some page is modified (setModified). cancelToClose() marks a change that
// Cancel can no longer undo: OK reads "Close" and Cancel is disabled.
#pragma once

#include "entry/TaviGlobal.h"

#include <QDialog>
#include <QList>
#include <QWidget>

#include <velbrook/StoreBase.h>

class QDialogButtonBox;
class QPushButton;
class QTabWidget;
class CTaviPropertySheet;

class TAVI_EXPORT CTaviPropertyPage : public QWidget {
    Q_OBJECT
public:
    explicit CTaviPropertyPage(const QString& title, QWidget* parent = nullptr);
    ~CTaviPropertyPage() override;

    QString title() const { return m_title; }
    CTaviPropertySheet* sheet() const { return m_sheet; }
    bool isInitialised() const { return m_initialised; }
    bool isModified() const { return m_modified; }
    void setModified(bool modified = true);
    unsigned helpContext() const { return m_helpContext; }
    void setHelpContext(unsigned context) { m_helpContext = context; }
    void cancelToClose();

protected:
    friend class CTaviPropertySheet;
    // First activation: read and prepare. Controls are then filled by exchange(false).
    virtual void initPage();
    virtual bool exchange(bool save);
    virtual void onSetActive();
    // Validation before the page is left or the sheet applied; false keeps it in front.
    virtual bool onKillActive();
    // Writes the page's changes; false keeps the sheet open with this page in front.
    virtual bool apply();
    virtual void onCancel();

private:
    void ensureInitialised();

    QString m_title;
    CTaviPropertySheet* m_sheet = nullptr;
    unsigned m_helpContext = 0;
    bool m_initialised = false;
    bool m_modified = false;
};

class TAVI_EXPORT CTaviPropertySheet : public QDialog {
    Q_OBJECT
public:
    CTaviPropertySheet(const QString& caption, QWidget* parent, _tMailServer* server = nullptr);
    ~CTaviPropertySheet() override;

    _tMailServer* server() const { return m_server; }
    // Adds a page (the sheet takes ownership).
    void addPage(CTaviPropertyPage* page);
    int pageCount() const { return int(m_pages.size()); }
    CTaviPropertyPage* page(int index) const { return m_pages.value(index); }
    CTaviPropertyPage* activePage() const;
    int activeIndex() const;
    // Activates a page after asking the current one; false when the current page refused.
    bool setActivePage(int index);
    bool setActivePage(CTaviPropertyPage* page) { return setActivePage(int(m_pages.indexOf(page))); }
    void setStartPage(int index) { m_startPage = index; }
    void setApplyButtonVisible(bool visible);
    void cancelToClose();
    bool isCancelToClose() const { return m_cancelToClose; }

    // Validates the active page and applies every page shown; true when all succeeded.
    bool applyNow();

    void setVisible(bool visible) override;

    QTabWidget* tabs() const { return m_tabs; }
    QPushButton* okButton() const { return m_ok; }
    QPushButton* cancelButton() const { return m_cancel; }
    QPushButton* applyButton() const { return m_apply; }
    QPushButton* helpButton() const { return m_help; }

public Q_SLOTS:
    void accept() override;
    void reject() override;
    void showHelp();

protected:
    // Runs before the first page is activated (open the sheet's object here).
    virtual void initSheet();
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class CTaviPropertyPage;
    void onTabChanged(int index);
    void updateApplyButton();
    void activate(CTaviPropertyPage* page);

    _tMailServer* m_server = nullptr;
    QTabWidget* m_tabs = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_apply = nullptr;
    QPushButton* m_help = nullptr;
    QList<CTaviPropertyPage*> m_pages;
    int m_current = -1;
    int m_startPage = 0;
    bool m_sheetInitialised = false;
    bool m_switching = false;
    bool m_cancelToClose = false;
};
