// The protection wizards' framework on QWizard (modern style): CWizard owns the property cache through
// which every page reads and writes, and CWizardPage is the base of every page.
//
// Rules the pages rely on:
// - each activation of a page re-reads its properties through the cache (LoadSettings), then shows
//   them (UpdateControls); the first activation going forward also keeps them as the page's
//   first-visit values (RememberInitialValues);
// - Next and Back both take the controls (ReadControls, which may refuse) and put the values into the
//   cache (SaveSettings); Finish does the same and then commits the cache; Cancel writes nothing;
// - Next goes to the page's jump target when it has one; every page jumped over that was shown before
//   puts its first-visit values back into the cache (RestoreInitialValues), pages never shown are left
//   alone; Back returns to the page the user came from.
#pragma once

#include "entry/TaviGlobal.h"
#include "wizards/PropertyCache.h"

#include <QList>
#include <QPixmap>
#include <QWizard>
#include <QWizardPage>

#include <velbrook/StoreBase.h>

class CWizardPage;

class TAVI_EXPORT CWizard : public QWizard {
    Q_OBJECT
public:
    enum Direction { Back = 0, Forward = 1 };

    // The pictures: the watermark of the first and last page, the header picture of the others.
    CWizard(const QString& caption, QWidget* parent, int startPage, const QPixmap& header,
            const QPixmap& watermark);
    ~CWizard() override;

    void SetServer(_tMailServer* server);
    _tMailServer* server() const { return m_cache.server(); }
    int GetDirection() const { return m_direction; }
    void SetDirection(int direction) { m_direction = direction; }

    // Cached property access for the pages (section may be null); see CWizardPropertyCache.
    bool GetDword(const char* name, const char* section, quint32& value) { return m_cache.getDword(name, section, value); }
    bool GetString(const char* name, const char* section, QString& value) { return m_cache.getString(name, section, value); }
    void SetDword(const char* name, const char* section, quint32 value) { m_cache.setDword(name, section, value); }
    void SetString(const char* name, const char* section, const QString& value) { m_cache.setString(name, section, value); }
    QStringList GetStringList(const char* name, const char* section) const { return m_cache.getStringList(name, section); }
    const CWizardPropertyCache& cache() const { return m_cache; }

    // Shown by every page: the title of the exterior pages, the header title of the interior ones.
    QString pageTitle() const { return m_pageTitle; }
    QString headerTitle() const { return m_headerTitle; }

    int wizardPageCount() const { return int(m_pages.size()); }
    CWizardPage* wizardPage(int index) const { return m_pages.value(index); }
    int indexOf(const CWizardPage* page) const { return int(m_pages.indexOf(const_cast<CWizardPage*>(page))); }
    CWizardPage* activeWizardPage() const { return m_active; }

    int nextId() const override;
    bool validateCurrentPage() override;
    void cleanupPage(int id) override;
    void done(int result) override;
    void setVisible(bool visible) override;

    // Ends the wizard without writing anything.
    virtual void Cancel();
    // Commits the cache (newest entry first; each failed write is reported by name), then ends with OK.
    virtual void Finish();

public Q_SLOTS:
    // The Back button: takes the page's controls into the cache, then returns to the came-from page.
    void goBack();

protected:
    void setPageTitle(const QString& title) { m_pageTitle = title; }
    void setHeaderTitle(const QString& title) { m_headerTitle = title; }
    // Adds the next page in page order (the wizard owns it).
    void addWizardPage(CWizardPage* page);
    void keyPressEvent(QKeyEvent* event) override;

private:
    void prepare();
    void activate(int id);
    void jumpWalk(CWizardPage* from, CWizardPage* to);

    int m_direction = Forward;
    CWizardPropertyCache m_cache;
    QString m_pageTitle;
    QString m_headerTitle;
    QPixmap m_header;
    QPixmap m_watermark;
    QList<CWizardPage*> m_pages;
    CWizardPage* m_active = nullptr;
    int m_pendingJump = -1;
    int m_startPage = 0;
    bool m_prepared = false;
};

class TAVI_EXPORT CWizardPage : public QWizardPage {
    Q_OBJECT
public:
    // templateId: the page's number, also its help context; subtitle: the page's name, shown in the
    // header of interior pages.
    CWizardPage(unsigned templateId, CWizard* wizard, const QString& subtitle);
    ~CWizardPage() override;

    CWizard* sheet() const { return m_wizard; }
    unsigned templateId() const { return m_templateId; }
    unsigned helpContext() const { return m_templateId; }
    QString subtitle() const { return m_subtitle; }
    CWizardPage* cameFrom() const { return m_cameFrom; }
    bool isFirstActivationPending() const { return m_firstActivationPending; }

protected:
    friend class CWizard;

    // One-time set-up before the first activation.
    virtual void InitPage() {}
    // Shows the page's working values.
    virtual void UpdateControls() {}
    // Takes the controls into working values; false keeps the page open (the page has said why).
    virtual bool ReadControls() { return true; }
    // Reads the page's properties through the wizard's cache.
    virtual void LoadSettings() {}
    // Puts the page's new values into the cache.
    virtual void SaveSettings() {}
    virtual void RememberInitialValues() {}
    // Puts the first-visit values back into the cache (the page was jumped over).
    virtual void RestoreInitialValues() {}
    // The page Next goes to instead of the following one; by default the jump target while going
    // forward, else none.
    virtual CWizardPage* GetJumpTarget();

    void setJumpTarget(CWizardPage* page) { m_jumpTarget = page; }
    bool isForward() const { return m_wizard->GetDirection() == CWizard::Forward; }

private:
    CWizard* m_wizard = nullptr;
    CWizardPage* m_cameFrom = nullptr;
    CWizardPage* m_jumpTarget = nullptr;
    unsigned m_templateId = 0;
    QString m_subtitle;
    bool m_firstActivationPending = true;
    bool m_initialised = false;
};
