#include "common/PropertySheet.h"

#include "common/PlatformServices.h"
#include "res/StringIds.h"
#include "res/StringTable.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

CTaviPropertyPage::CTaviPropertyPage(const QString& title, QWidget* parent) : QWidget(parent), m_title(title)
{
}

CTaviPropertyPage::~CTaviPropertyPage() = default;

void CTaviPropertyPage::setModified(bool modified)
{
    m_modified = modified;
    if (m_sheet)
        m_sheet->updateApplyButton();
}

void CTaviPropertyPage::cancelToClose()
{
    if (m_sheet)
        m_sheet->cancelToClose();
}

void CTaviPropertyPage::initPage() {}
bool CTaviPropertyPage::exchange(bool) { return true; }
void CTaviPropertyPage::onSetActive() {}
bool CTaviPropertyPage::onKillActive() { return exchange(true); }
bool CTaviPropertyPage::apply() { return true; }
void CTaviPropertyPage::onCancel() {}

void CTaviPropertyPage::ensureInitialised()
{
    if (m_initialised)
        return;
    m_initialised = true;
    initPage();
    exchange(false);
}

CTaviPropertySheet::CTaviPropertySheet(const QString& caption, QWidget* parent, _tMailServer* server)
    : QDialog(parent), m_server(server)
{
    setWindowTitle(caption);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowIcon(QIcon(QStringLiteral(":/tavidlg/velbrook-32.png")));
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabPages"));
    auto* box = new QDialogButtonBox(this);
    box->setObjectName(QStringLiteral("buttonBox"));
    m_ok = box->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    m_ok->setObjectName(QStringLiteral("btnOK"));
    m_ok->setDefault(true);
    m_cancel = box->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    m_cancel->setObjectName(QStringLiteral("btnCancel"));
    m_apply = box->addButton(TaviString(IDS_TAVI_APPLY_NOW), QDialogButtonBox::ApplyRole);
    m_apply->setObjectName(QStringLiteral("btnApply"));
    m_apply->setEnabled(false);
    m_apply->setAutoDefault(false);
    m_help = box->addButton(tr("&Help"), QDialogButtonBox::HelpRole);
    m_help->setObjectName(QStringLiteral("btnHelp"));
    m_help->setAutoDefault(false);
    connect(box, &QDialogButtonBox::accepted, this, &CTaviPropertySheet::accept);
    connect(box, &QDialogButtonBox::rejected, this, &CTaviPropertySheet::reject);
    connect(box, &QDialogButtonBox::helpRequested, this, &CTaviPropertySheet::showHelp);
    connect(m_apply, &QPushButton::clicked, this, [this] { applyNow(); });
    connect(m_tabs, &QTabWidget::currentChanged, this, &CTaviPropertySheet::onTabChanged);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(box);
}

CTaviPropertySheet::~CTaviPropertySheet() = default;

void CTaviPropertySheet::addPage(CTaviPropertyPage* page)
{
    page->m_sheet = this;
    m_pages.append(page);
    const QSignalBlocker blocker(m_tabs);
    m_tabs->addTab(page, page->title());
    m_tabs->setCurrentIndex(m_current < 0 ? 0 : m_current);
}

CTaviPropertyPage* CTaviPropertySheet::activePage() const
{
    return m_pages.value(m_current);
}

int CTaviPropertySheet::activeIndex() const
{
    return m_current;
}

void CTaviPropertySheet::initSheet() {}

void CTaviPropertySheet::activate(CTaviPropertyPage* page)
{
    m_current = int(m_pages.indexOf(page));
    {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->setCurrentIndex(m_current);
    }
    page->ensureInitialised();
    page->onSetActive();
}

bool CTaviPropertySheet::setActivePage(int index)
{
    if (index < 0 || index >= m_pages.size())
        return false;
    if (index == m_current && m_pages[index]->isInitialised())
        return true;
    if (CTaviPropertyPage* current = activePage(); current && current->isInitialised() && !current->onKillActive()) {
        const QSignalBlocker blocker(m_tabs);
        m_tabs->setCurrentIndex(m_current);
        return false;
    }
    activate(m_pages[index]);
    return true;
}

void CTaviPropertySheet::onTabChanged(int index)
{
    if (m_switching)
        return;
    m_switching = true;
    setActivePage(index);
    m_switching = false;
}

void CTaviPropertySheet::setVisible(bool visible)
{
    if (visible && !m_sheetInitialised) {
        m_sheetInitialised = true;
        initSheet();
        if (!m_pages.isEmpty())
            activate(m_pages[qBound(0, m_startPage, int(m_pages.size()) - 1)]);
    }
    QDialog::setVisible(visible);
}

void CTaviPropertySheet::updateApplyButton()
{
    bool any = false;
    for (const CTaviPropertyPage* page : std::as_const(m_pages))
        any = any || page->isModified();
    m_apply->setEnabled(any);
}

void CTaviPropertySheet::setApplyButtonVisible(bool visible)
{
    m_apply->setVisible(visible);
}

void CTaviPropertySheet::cancelToClose()
{
    m_cancelToClose = true;
    m_ok->setText(TaviString(IDS_TAVI_CLOSE));
    m_cancel->setEnabled(false);
}

bool CTaviPropertySheet::applyNow()
{
    if (CTaviPropertyPage* current = activePage(); current && current->isInitialised() && !current->onKillActive())
        return false;
    for (CTaviPropertyPage* page : std::as_const(m_pages)) {
        if (!page->isInitialised())
            continue;
        if (!page->apply()) {
            if (page != activePage())
                activate(page);
            return false;
        }
        page->m_modified = false;
    }
    updateApplyButton();
    return true;
}

void CTaviPropertySheet::accept()
{
    if (applyNow())
        done(Id::Ok);
}

void CTaviPropertySheet::reject()
{
    // After cancelToClose() Escape and the close box still end the sheet, as Cancel.
    for (CTaviPropertyPage* page : std::as_const(m_pages)) {
        if (page->isInitialised())
            page->onCancel();
    }
    done(Id::Cancel);
}

void CTaviPropertySheet::showHelp()
{
    const CTaviPropertyPage* page = activePage();
    platform().showHelp(this, (page ? page->helpContext() : 0) + 0x20000);
}

void CTaviPropertySheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        showHelp();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}
