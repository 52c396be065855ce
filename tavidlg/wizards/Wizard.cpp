#include "wizards/Wizard.h"

#include "common/PlatformServices.h"
#include "config/MessageFormat.h"
#include "res/StringTable.h"
#include "res/WizardStringIds.h"

#include <QAbstractButton>
#include <QIcon>
#include <QKeyEvent>

namespace {
constexpr unsigned kHelpContextBase = 0x20000;
}

CWizard::CWizard(const QString& caption, QWidget* parent, int startPage, const QPixmap& header,
                 const QPixmap& watermark)
    : QWizard(parent), m_header(header), m_watermark(watermark), m_startPage(startPage)
{
    setObjectName(QStringLiteral("CWizard"));
    setWindowTitle(caption);
    setWindowIcon(QIcon(QStringLiteral(":/tavidlg/velbrook-32.png")));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWizardStyle(ModernStyle);
    setOption(NoBackButtonOnStartPage, true);
    setOption(HaveNextButtonOnLastPage, false);
    setOption(HaveHelpButton, false);
    setPixmap(LogoPixmap, m_header);

    // Back must be able to refuse and must save the page first, which QWizard's own slot does not do.
    QAbstractButton* backButton = button(BackButton);
    disconnect(backButton, nullptr, this, nullptr);
    connect(backButton, &QAbstractButton::clicked, this, &CWizard::goBack);
    button(NextButton)->setObjectName(QStringLiteral("btnNext"));
    backButton->setObjectName(QStringLiteral("btnBack"));
    button(FinishButton)->setObjectName(QStringLiteral("btnFinish"));
    button(CancelButton)->setObjectName(QStringLiteral("btnCancel"));

    connect(this, &QWizard::currentIdChanged, this, &CWizard::activate);
}

// The pages are the wizard's children and go with it, in page order.
CWizard::~CWizard() = default;

void CWizard::SetServer(_tMailServer* server)
{
    m_cache.setServer(server);
}

void CWizard::addWizardPage(CWizardPage* page)
{
    setPage(int(m_pages.size()), page);
    if (m_pages.size() == m_startPage)
        setStartId(m_startPage);
    m_pages.append(page);
}

void CWizard::prepare()
{
    if (m_prepared)
        return;
    m_prepared = true;
    // The first and the last page are the exterior ones: the watermark instead of a header.
    for (int i = 0; i < m_pages.size(); ++i) {
        CWizardPage* page = m_pages[i];
        const bool exterior = i == 0 || i == m_pages.size() - 1;
        page->setTitle(exterior ? m_pageTitle : m_headerTitle);
        page->setSubTitle(exterior ? QString() : page->subtitle());
        if (exterior)
            page->setPixmap(WatermarkPixmap, m_watermark);
    }
}

void CWizard::setVisible(bool visible)
{
    if (visible)
        prepare();
    QWizard::setVisible(visible);
}

void CWizard::activate(int id)
{
    CWizardPage* page = wizardPage(id);
    if (!page)
        return;
    prepare();
    m_pendingJump = -1;
    if (!page->m_initialised) {
        page->m_initialised = true;
        page->InitPage();
    }
    // Every activation re-reads, so a page sees what earlier pages put into the cache.
    page->LoadSettings();
    if (m_direction == Forward) {
        if (m_active != page)
            page->m_cameFrom = m_active;
        if (page->m_firstActivationPending) {
            page->m_firstActivationPending = false;
            page->RememberInitialValues();
        }
    }
    page->UpdateControls();
    m_active = page;
}

bool CWizard::validateCurrentPage()
{
    CWizardPage* page = m_active;
    if (!page)
        return true;
    CWaitCursor wait;
    if (!page->ReadControls())
        return false;
    page->SaveSettings();
    m_direction = Forward;
    CWizardPage* target = page->GetJumpTarget();
    m_pendingJump = -1;
    if (target == page) {
        // A page that steps through several items shows itself again with the next one.
        activate(currentId());
        return false;
    }
    if (target) {
        jumpWalk(page, target);
        m_pendingJump = indexOf(target);
    }
    return true;
}

int CWizard::nextId() const
{
    return m_pendingJump >= 0 ? m_pendingJump : QWizard::nextId();
}

void CWizard::jumpWalk(CWizardPage* from, CWizardPage* to)
{
    const int start = indexOf(from);
    const int end = indexOf(to);
    const int step = start < end ? 1 : -1;
    // A page jumped over that was shown before gives back what it changed; one never shown keeps
    // whatever other pages put into the cache.
    for (int i = start + step; i != end; i += step) {
        m_direction = Forward;
        CWizardPage* page = m_pages[i];
        if (!page->m_firstActivationPending)
            page->RestoreInitialValues();
    }
    m_direction = Forward;
}

void CWizard::cleanupPage(int)
{
    // Pages keep what they show when left backwards; their values live in the cache.
}

void CWizard::goBack()
{
    CWizardPage* page = m_active;
    if (!page || currentId() == startId())
        return;
    {
        CWaitCursor wait;
        if (!page->ReadControls())
            return;
        // Values typed on a page are kept even when it is left backwards.
        page->SaveSettings();
        m_direction = Back;
    }
    const QList<int> visited = visitedIds();
    CWizardPage* target = page->GetJumpTarget();
    if (target == page) {
        activate(currentId());
        return;
    }
    const int targetId = target ? indexOf(target) : -1;
    if (targetId >= 0 && visited.contains(targetId)) {
        while (currentId() != targetId && currentId() != startId())
            back();
        return;
    }
    // The history's previous page is the page this one was entered from.
    back();
}

void CWizard::done(int result)
{
    if (result != QDialog::Accepted) {
        Cancel();
        return;
    }
    if (CWizardPage* page = m_active) {
        if (!page->ReadControls())
            return;
        page->SaveSettings();
    }
    Finish();
}

void CWizard::Cancel()
{
    // The cache is simply dropped with the wizard.
    QWizard::done(QDialog::Rejected);
}

void CWizard::Finish()
{
    m_cache.commit([](const QByteArray& name, quint32) {
        taviMessageBox(TaviFormat(TaviString(IDS_WIZ_UPDATE_FAILED), {QString::fromUtf8(name)}), Mb::Ok);
    });
    // The wizard ends with OK even when some writes failed; they have been reported one by one.
    QDialog::done(QDialog::Accepted);
}

void CWizard::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        const unsigned context = m_active ? m_active->helpContext() : 0;
        platform().showHelp(this, context + kHelpContextBase);
        event->accept();
        return;
    }
    QWizard::keyPressEvent(event);
}

CWizardPage::CWizardPage(unsigned templateId, CWizard* wizard, const QString& subtitle)
    : QWizardPage(nullptr), m_wizard(wizard), m_templateId(templateId), m_subtitle(subtitle)
{
    setTitle(wizard->headerTitle());
    setSubTitle(subtitle);
}

CWizardPage::~CWizardPage() = default;

CWizardPage* CWizardPage::GetJumpTarget()
{
    return isForward() ? m_jumpTarget : nullptr;
}
