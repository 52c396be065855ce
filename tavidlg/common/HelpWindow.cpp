#include "common/HelpWindow.h"

#include "common/PlatformServices.h"
#include "res/Translation.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <memory>

namespace {

constexpr unsigned kHelpRequestBase = 0x20000;
constexpr int kPageRole = Qt::UserRole;
constexpr int kHeadingRole = Qt::UserRole + 1;

CHelpPage readPage(const QString& path)
{
    CHelpPage page;
    page.name = QFileInfo(path).completeBaseName();
    page.path = path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return page;
    page.text = QString::fromUtf8(file.readAll());
    const QStringList lines = page.text.split(QLatin1Char('\n'));
    if (!lines.isEmpty())
        page.contexts = CHelpCatalog::parseHelpLine(lines.first()).value_or(QList<unsigned>());
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (page.title.isEmpty() && line.startsWith(QLatin1String("# ")))
            page.title = line.mid(2).trimmed();
        else if (line.startsWith(QLatin1String("## ")))
            page.headings.append(line.mid(3).trimmed());
    }
    if (page.title.isEmpty())
        page.title = page.name;
    return page;
}

QUrl pageUrl(const CHelpPage& page)
{
    if (page.path.startsWith(QLatin1Char(':')))
        return QUrl(QStringLiteral("qrc") + page.path);
    return QUrl::fromLocalFile(page.path);
}

QStringList pageFiles(const QString& folder)
{
    return QDir(folder).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
}

QListWidgetItem* addItem(QListWidget* list, const QString& text, const CHelpPage& page,
                         const QString& heading = QString())
{
    auto* item = new QListWidgetItem(text, list);
    item->setData(kPageRole, page.name);
    item->setData(kHeadingRole, heading);
    item->setToolTip(page.title);
    return item;
}

} // namespace

CHelpCatalog::CHelpCatalog(const QString& folder, const QString& fallback)
{
    const QStringList files = pageFiles(folder);
    for (const QString& file : files)
        m_pages.append(readPage(folder + QLatin1Char('/') + file));
    if (fallback.isEmpty())
        return;
    for (const QString& file : pageFiles(fallback)) {
        if (!files.contains(file))
            m_pages.append(readPage(fallback + QLatin1Char('/') + file));
    }
}

const CHelpCatalog& CHelpCatalog::builtIn()
{
    static std::map<QString, std::unique_ptr<CHelpCatalog>> catalogs;
    const QString english = QStringLiteral(":/tavidlg/help");
    const QString language = TaviTranslationLanguage().section(QLatin1Char('_'), 0, 0);
    const QString folder = english + QLatin1Char('/') + language;
    std::unique_ptr<CHelpCatalog>& catalog = catalogs[language];
    if (!catalog) {
        catalog = !language.isEmpty() && QDir(folder).exists() ? std::make_unique<CHelpCatalog>(folder, english)
                                                                : std::make_unique<CHelpCatalog>(english);
    }
    return *catalog;
}

std::optional<QList<unsigned>> CHelpCatalog::parseHelpLine(const QString& line)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^\s*<!--\s*help:([^>]*)-->\s*$)"));
    const QRegularExpressionMatch match = pattern.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    QList<unsigned> contexts;
    const QString list = match.captured(1).trimmed();
    if (list.isEmpty())
        return contexts;
    for (const QString& part : list.split(QLatin1Char(','))) {
        bool ok = false;
        const unsigned context = part.trimmed().toUInt(&ok, 10);
        if (!ok)
            return std::nullopt;
        contexts.append(context);
    }
    return contexts;
}

const CHelpPage* CHelpCatalog::pageForContext(unsigned context) const
{
    for (const CHelpPage& page : m_pages) {
        if (page.contexts.contains(context))
            return &page;
    }
    return nullptr;
}

const CHelpPage* CHelpCatalog::pageNamed(const QString& name) const
{
    for (const CHelpPage& page : m_pages) {
        if (page.name == name)
            return &page;
    }
    return nullptr;
}

QList<const CHelpPage*> CHelpCatalog::search(const QString& words) const
{
    // A word matches the beginning of a word of the page: "quota" finds "quotas", not "function".
    QList<QRegularExpression> wanted;
    for (const QString& word : words.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts))
        wanted.append(QRegularExpression(QStringLiteral("\\b") + QRegularExpression::escape(word),
                                         QRegularExpression::CaseInsensitiveOption));
    QList<const CHelpPage*> inTitle;
    QList<const CHelpPage*> inText;
    if (wanted.isEmpty())
        return inTitle;
    for (const CHelpPage& page : m_pages) {
        const bool all = std::all_of(wanted.begin(), wanted.end(),
                                     [&](const QRegularExpression& word) { return word.match(page.text).hasMatch(); });
        if (!all)
            continue;
        const bool titled = std::any_of(wanted.begin(), wanted.end(),
                                        [&](const QRegularExpression& word) { return word.match(page.title).hasMatch(); });
        (titled ? inTitle : inText).append(&page);
    }
    return inTitle + inText;
}

CHelpWindow::CHelpWindow(QWidget* parent, const CHelpCatalog& catalog) : QDialog(parent), m_catalog(catalog)
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Velbrook Help"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMinMaxButtonsHint, true);
    setSizeGripEnabled(true);

    // Tab order: the navigation pane, then the page, then the tool bar.
    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabNavigation"));
    buildContents();
    buildIndex();
    buildSearch();
    m_browser = new QTextBrowser(this);
    m_browser->setObjectName(QStringLiteral("txtPage"));
    // Links name pages ("CQuotasDlg.md"); the catalog finds them, in English where a translated page
    // links to one that has no translation yet.
    m_browser->setOpenLinks(false);

    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_tabs);
    splitter->addWidget(m_browser);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({330, 610});
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buildToolBar());
    layout->addWidget(splitter, 1);
    resize(960, 620);

    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QToolButton::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QToolButton::setEnabled);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &CHelpWindow::sourceChanged);
    connect(m_browser, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        if (const CHelpPage* page = m_catalog.pageNamed(QFileInfo(link.path()).completeBaseName()))
            showPage(*page, link.fragment());
    });
    for (QListWidget* list : {m_contents, m_index, m_results}) {
        connect(list, &QListWidget::itemActivated, this, &CHelpWindow::openItem);
        connect(list, &QListWidget::itemClicked, this, &CHelpWindow::openItem);
    }
}

QLayout* CHelpWindow::buildToolBar()
{
    auto makeButton = [this](const char* name, const QString& text, QStyle::StandardPixmap icon) {
        auto* button = new QToolButton(this);
        button->setObjectName(QLatin1String(name));
        button->setText(text);
        button->setIcon(style()->standardIcon(icon));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        return button;
    };
    m_back = makeButton("btnBack", tr("&Back"), QStyle::SP_ArrowBack);
    m_forward = makeButton("btnForward", tr("&Forward"), QStyle::SP_ArrowForward);
    QToolButton* home = makeButton("btnHome", tr("S&tart Page"), QStyle::SP_DirHomeIcon);
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    connect(m_back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
    connect(home, &QToolButton::clicked, this, [this] {
        if (const CHelpPage* start = m_catalog.pageNamed(QStringLiteral("index")))
            showPage(*start);
    });
    // The browser's own keys as well (Alt+Left and Alt+Right).
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, m_back, &QToolButton::click);
    connect(new QShortcut(QKeySequence::Forward, this), &QShortcut::activated, m_forward, &QToolButton::click);
    auto* bar = new QHBoxLayout;
    bar->addWidget(m_back);
    bar->addWidget(m_forward);
    bar->addWidget(home);
    bar->addStretch();
    return bar;
}

void CHelpWindow::buildSearch()
{
    auto* searchPage = new QWidget(m_tabs);
    m_searchEdit = new QLineEdit(searchPage);
    m_searchEdit->setObjectName(QStringLiteral("edtSearch"));
    m_searchEdit->setPlaceholderText(tr("Words to look for"));
    auto* searchButton = new QPushButton(tr("&List Topics"), searchPage);
    searchButton->setObjectName(QStringLiteral("btnSearch"));
    searchButton->setAutoDefault(false);
    m_results = new QListWidget(searchPage);
    m_results->setObjectName(QStringLiteral("lstResults"));
    auto* searchLayout = new QVBoxLayout(searchPage);
    searchLayout->addWidget(m_searchEdit);
    searchLayout->addWidget(searchButton);
    searchLayout->addWidget(m_results);
    m_tabs->addTab(searchPage, tr("&Search"));
    connect(m_searchEdit, &QLineEdit::returnPressed, this, &CHelpWindow::runSearch);
    connect(searchButton, &QPushButton::clicked, this, &CHelpWindow::runSearch);
}

CHelpWindow::~CHelpWindow() = default;

void CHelpWindow::buildContents()
{
    m_contents = new QListWidget(m_tabs);
    m_contents->setObjectName(QStringLiteral("lstContents"));
    QList<const CHelpPage*> pages;
    for (const CHelpPage& page : m_catalog.pages()) {
        if (page.name != QLatin1String("index"))
            pages.append(&page);
    }
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(pages.begin(), pages.end(),
              [&](const CHelpPage* a, const CHelpPage* b) { return collator.compare(a->title, b->title) < 0; });
    if (const CHelpPage* start = m_catalog.pageNamed(QStringLiteral("index")))
        pages.prepend(start);
    for (const CHelpPage* page : pages)
        addItem(m_contents, page->title, *page);
    m_tabs->addTab(m_contents, tr("&Contents"));
}

void CHelpWindow::buildIndex()
{
    auto* indexPage = new QWidget(m_tabs);
    m_indexEdit = new QLineEdit(indexPage);
    m_indexEdit->setObjectName(QStringLiteral("edtIndex"));
    m_indexEdit->setPlaceholderText(tr("Type the first letters of a word"));
    m_index = new QListWidget(indexPage);
    m_index->setObjectName(QStringLiteral("lstIndex"));
    // Titles and headings of every page; a heading says which page it belongs to.
    for (const CHelpPage& page : m_catalog.pages()) {
        addItem(m_index, page.title, page);
        for (const QString& heading : page.headings)
            addItem(m_index, tr("%1 (%2)").arg(heading, page.title), page, heading);
    }
    m_index->setSortingEnabled(true);
    m_index->sortItems();
    auto* layout = new QVBoxLayout(indexPage);
    layout->addWidget(m_indexEdit);
    layout->addWidget(m_index);
    m_tabs->addTab(indexPage, tr("&Index"));
    connect(m_indexEdit, &QLineEdit::textEdited, this, &CHelpWindow::filterIndex);
    connect(m_indexEdit, &QLineEdit::returnPressed, this, [this] { openItem(m_index->currentItem()); });
}

void CHelpWindow::filterIndex(const QString& text)
{
    // Like a book's index: the first entry starting with the letters typed becomes current.
    for (int row = 0; row < m_index->count(); ++row) {
        QListWidgetItem* item = m_index->item(row);
        if (item->text().startsWith(text.trimmed(), Qt::CaseInsensitive)) {
            m_index->setCurrentItem(item);
            m_index->scrollToItem(item, QAbstractItemView::PositionAtTop);
            return;
        }
    }
}

void CHelpWindow::runSearch()
{
    m_results->clear();
    const QList<const CHelpPage*> found = m_catalog.search(m_searchEdit->text());
    for (const CHelpPage* page : found)
        addItem(m_results, page->title, *page);
    if (found.isEmpty())
        new QListWidgetItem(tr("No topic holds these words."), m_results);
    else
        m_results->setCurrentRow(0);
}

void CHelpWindow::openItem(QListWidgetItem* item)
{
    if (!item)
        return;
    if (const CHelpPage* page = m_catalog.pageNamed(item->data(kPageRole).toString())) {
        QString heading = item->data(kHeadingRole).toString();
        if (heading.isEmpty() && item->listWidget() == m_results)
            heading = m_searchEdit->text().split(QLatin1Char(' '), Qt::SkipEmptyParts).value(0);
        showPage(*page, heading);
    }
}

void CHelpWindow::showPage(const CHelpPage& page, const QString& heading)
{
    const QUrl url = pageUrl(page);
    if (m_browser->source() != url)
        m_browser->setSource(url, QTextDocument::MarkdownResource);
    QTextCursor top(m_browser->document());
    m_browser->setTextCursor(top);
    if (!heading.isEmpty())
        m_browser->find(heading);
    m_browser->ensureCursorVisible();
    m_browser->setFocus();
}

QString CHelpWindow::currentPage() const
{
    const QString path = m_browser->source().path();
    return path.isEmpty() ? QString() : QFileInfo(path).completeBaseName();
}

void CHelpWindow::sourceChanged(const QUrl& url)
{
    // The contents follow the page shown, also after Back, Forward and links between pages. (The
    // browser tells before its source() is the new one.)
    const QString name = QFileInfo(url.path()).completeBaseName();
    for (int row = 0; row < m_contents->count(); ++row) {
        if (m_contents->item(row)->data(kPageRole).toString() == name) {
            const QSignalBlocker block(m_contents);
            m_contents->setCurrentRow(row);
            break;
        }
    }
    if (const CHelpPage* page = m_catalog.pageNamed(name))
        setWindowTitle(tr("%1 - Velbrook Help").arg(page->title));
}

CHelpWindow* openHelp(QWidget* owner, unsigned request)
{
    const CHelpCatalog& catalog = CHelpCatalog::builtIn();
    const unsigned context = request >= kHelpRequestBase ? request - kHelpRequestBase : request;
    QWidget* window = owner ? owner->window() : nullptr;
    const CHelpPage* page = context != 0 ? catalog.pageForContext(context) : nullptr;
    if (!page && window)
        page = catalog.pageNamed(QString::fromLatin1(window->metaObject()->className()));
    if (!page) {
        taviMessageBox(CHelpWindow::tr("There is no help page for topic %1.").arg(request),
                       Mb::Ok | Mb::IconInformation);
        return nullptr;
    }
    // A child of the asking window, so that a modal dialog does not block it and it ends with it.
    auto* help = window ? window->findChild<CHelpWindow*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    if (!help) {
        help = new CHelpWindow(window);
        help->setAttribute(Qt::WA_DeleteOnClose);
    }
    help->showPage(*page);
    help->show();
    help->raise();
    help->activateWindow();
    return help;
}
