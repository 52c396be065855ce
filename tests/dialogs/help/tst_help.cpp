// F1 help: every dialog of the library has its page, the pages are well formed, and the help window
// finds, shows and moves between them.
#include "DialogHarness.h"
#include "PlainEntryPoints.h"

#include "common/HelpWindow.h"
#include "common/SubnetListDlg.h"
#include "res/Translation.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSet>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>

namespace {

QString sourceRoot()
{
    // TAVI_PUBLIC_HEADER is <root>/tavidlg/include/TaviDlg.h.
    QDir dir = QFileInfo(QStringLiteral(TAVI_PUBLIC_HEADER)).dir();
    dir.cdUp();
    dir.cdUp();
    return dir.absolutePath();
}

// Every source file of the library with its text.
QList<QPair<QString, QString>> librarySources(const QStringList& patterns)
{
    QList<QPair<QString, QString>> files;
    QDirIterator it(sourceRoot() + QStringLiteral("/tavidlg"), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly))
            files.append({file.fileName(), QString::fromUtf8(file.readAll())});
    }
    return files;
}

// The body of the class declared at `at` (from its opening brace to the matching one).
QString classBody(const QString& text, qsizetype at)
{
    const qsizetype open = text.indexOf(QLatin1Char('{'), at);
    int depth = 0;
    for (qsizetype i = open; open >= 0 && i < text.size(); ++i) {
        if (text[i] == QLatin1Char('{'))
            ++depth;
        else if (text[i] == QLatin1Char('}') && --depth == 0)
            return text.mid(open, i - open + 1);
    }
    return QString();
}

} // namespace

class tst_Help : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void helpLine_data();
    void helpLine();
    void pagesAreWellFormed();
    void translatedPagesMatchTheirOriginals();
    void pagesInTheLanguageOfTheTranslation();
    void everyContextInTheSourcesHasAPage();
    void everyDialogClassHasAPage();
    void f1InEveryEntryPointFindsAPage_data();
    void f1InEveryEntryPointFindsAPage();
    void opensAtTheRequestedPage_data();
    void opensAtTheRequestedPage();
    void pageOfTheAskingClass();
    void unknownTopicIsToldAndOpensNothing();
    void oneWindowPerOwnerWithBackAndForward();
    void indexJumpsToTheFirstMatch();
    void searchFindsPagesWithEveryWord_data();
    void searchFindsPagesWithEveryWord();
};

void tst_Help::helpLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QList<unsigned>>("contexts");
    QTest::newRow("one") << "<!-- help: 2013 -->" << true << QList<unsigned>{2013};
    QTest::newRow("several, blanks") << "  <!--help:2005 , 2010,2047-->" << true << QList<unsigned>{2005, 2010, 2047};
    QTest::newRow("none") << "<!-- help: -->" << true << QList<unsigned>{};
    QTest::newRow("not a number") << "<!-- help: 20x3 -->" << false << QList<unsigned>{};
    QTest::newRow("hexadecimal is not decimal") << "<!-- help: 0x7DD -->" << false << QList<unsigned>{};
    QTest::newRow("a title") << "# Quotas" << false << QList<unsigned>{};
    QTest::newRow("another comment") << "<!-- helps: 1 -->" << false << QList<unsigned>{};
}

void tst_Help::helpLine()
{
    QFETCH(QString, line);
    QFETCH(bool, valid);
    QFETCH(QList<unsigned>, contexts);
    const auto parsed = CHelpCatalog::parseHelpLine(line);
    QCOMPARE(parsed.has_value(), valid);
    if (valid)
        QCOMPARE(*parsed, contexts);
}

void tst_Help::pagesAreWellFormed()
{
    // The built-in pages are docs/help as it stands: none lost, none added by the build.
    const CHelpCatalog& catalog = CHelpCatalog::builtIn();
    const QStringList sources = QDir(sourceRoot() + QStringLiteral("/docs/help")).entryList({QStringLiteral("*.md")});
    QCOMPARE(catalog.pages().size(), sources.size());
    QVERIFY(catalog.pageNamed(QStringLiteral("index")));
    QMap<unsigned, QString> owners;
    static const QRegularExpression link(QStringLiteral(R"(\]\(([^)#:]+)\.md(#[^)]*)?\))"));
    for (const CHelpPage& page : catalog.pages()) {
        const QString firstLine = page.text.section(QLatin1Char('\n'), 0, 0);
        QVERIFY2(CHelpCatalog::parseHelpLine(firstLine), qPrintable(page.name + QStringLiteral(": ") + firstLine));
        QVERIFY2(page.title != page.name, qPrintable(page.name + QStringLiteral(" has no # title")));
        for (unsigned context : page.contexts) {
            // Two pages for one context: F1 would open one of them at random.
            QVERIFY2(!owners.contains(context), qPrintable(QStringLiteral("%1 in %2 and %3")
                                                               .arg(context).arg(owners.value(context), page.name)));
            owners.insert(context, page.name);
        }
        for (auto it = link.globalMatch(page.text); it.hasNext();) {
            const QString target = it.next().captured(1);
            QVERIFY2(catalog.pageNamed(target), qPrintable(page.name + QStringLiteral(" links to ") + target));
        }
    }
}

void tst_Help::translatedPagesMatchTheirOriginals()
{
    // docs/help/<lang>/X.md answers exactly what docs/help/X.md answers, and its links lead to a page
    // (in English when that page has no translation).
    const QString root = sourceRoot() + QStringLiteral("/docs/help");
    const CHelpCatalog english(root);
    static const QRegularExpression link(QStringLiteral(R"(\]\(([^)#:]+)\.md(#[^)]*)?\))"));
    const QStringList languages = QDir(root).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QVERIFY(languages.contains(QStringLiteral("de")));
    for (const QString& language : languages) {
        const CHelpCatalog translated(root + QLatin1Char('/') + language);
        const CHelpCatalog withFallback(root + QLatin1Char('/') + language, root);
        for (const CHelpPage& page : translated.pages()) {
            const QString where = language + QLatin1Char('/') + page.name;
            const CHelpPage* original = english.pageNamed(page.name);
            QVERIFY2(original, qPrintable(where + QStringLiteral(" translates no page")));
            QVERIFY2(page.contexts == original->contexts, qPrintable(where + QStringLiteral(": other help contexts")));
            QVERIFY2(page.title != page.name, qPrintable(where + QStringLiteral(" has no # title")));
            for (auto it = link.globalMatch(page.text); it.hasNext();) {
                const QString target = it.next().captured(1);
                QVERIFY2(withFallback.pageNamed(target), qPrintable(where + QStringLiteral(" links to ") + target));
            }
        }
    }
}

void tst_Help::pagesInTheLanguageOfTheTranslation()
{
    // German texts get German pages; the window follows the language in force when it opens.
    QDialog owner;
    QVERIFY(TaviInstallTranslators(QLocale(QLocale::German, QLocale::Germany)));
    CHelpWindow* help = openHelp(&owner, 0x20000 + 2013);
    const QString german = Harness::control<QTextBrowser>(help, "txtPage")->toPlainText();
    delete help;
    TaviInstallTranslators(QLocale(QLocale::English, QLocale::UnitedStates));
    QVERIFY2(german.startsWith(QLatin1String("Kontingente\n")), qPrintable(german.left(40)));
    help = openHelp(&owner, 0x20000 + 2013);
    QVERIFY(Harness::control<QTextBrowser>(help, "txtPage")->toPlainText().startsWith(QLatin1String("Quotas\n")));
}

void tst_Help::everyContextInTheSourcesHasAPage()
{
    // Contexts as dialogs write them: constexpr unsigned kHelpContext... = N; or setHelpContext(N).
    static const QRegularExpression constant(QStringLiteral(R"(\bkHelpContext\w*\s*=\s*(\d+)\s*;)"));
    static const QRegularExpression literal(QStringLiteral(R"(\bsetHelpContext\(\s*(\d+)\s*\))"));
    const CHelpCatalog& catalog = CHelpCatalog::builtIn();
    int found = 0;
    for (const auto& [path, text] : librarySources({QStringLiteral("*.cpp"), QStringLiteral("*.h")})) {
        for (const QRegularExpression* pattern : {&constant, &literal}) {
            for (auto it = pattern->globalMatch(text); it.hasNext(); ++found) {
                const unsigned context = it.next().captured(1).toUInt();
                QVERIFY2(catalog.pageForContext(context),
                         qPrintable(QStringLiteral("help context %1 of %2 has no page in docs/help").arg(context).arg(path)));
            }
        }
    }
    QVERIFY2(found >= 7, "the scan found fewer help contexts than the server dialogs alone have");
}

void tst_Help::everyDialogClassHasAPage()
{
    // Every dialog, page and wizard page class needs docs/help/<ClassName>.md; abstract bases do not,
    // nor do sheets and wizards, whose F1 opens the page of the page in front.
    static const QRegularExpression declaration(
        QStringLiteral(R"(\bclass\s+(?:TAVI_EXPORT\s+)?(C\w*?(?:Dlg|Page|Wizard(?:_\d+)+))\s*(?:final\s*)?:)"));
    static const QRegularExpression pureVirtual(QStringLiteral(R"(\)\s*(?:const\s*)?(?:override\s*)?=\s*0\s*;)"));
    static const QSet<QString> bases{QStringLiteral("CTaviPropertyPage")};
    static const QRegularExpression fixedContext(QStringLiteral(R"(\bkHelpContext\w*\s*=\s*(\d+)\s*;)"));
    const CHelpCatalog& catalog = CHelpCatalog::builtIn();
    // Classes other dialog classes derive from are bases, shown only as what derives from them.
    static const QRegularExpression derived(QStringLiteral(R"(:\s*public\s+(C\w+))"));
    const auto headers = librarySources({QStringLiteral("*.h")});
    QSet<QString> derivedFrom;
    for (const auto& [path, text] : headers) {
        for (auto it = derived.globalMatch(text); it.hasNext();)
            derivedFrom.insert(it.next().captured(1));
    }
    QStringList classes;
    for (const auto& [path, text] : headers) {
        for (auto it = declaration.globalMatch(text); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            const QString name = match.captured(1);
            if (bases.contains(name) || derivedFrom.contains(name)
                || classBody(text, match.capturedEnd()).contains(pureVirtual))
                continue;
            classes.append(name);
            // A page named after the class, or (for a page class beside its sheet) the page of the help
            // context its source file sets.
            QFile source(path.chopped(2) + QStringLiteral(".cpp"));
            const QString code = source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
            const QRegularExpressionMatch context = fixedContext.match(code);
            const bool answered = context.hasMatch() && catalog.pageForContext(context.captured(1).toUInt());
            QVERIFY2(catalog.pageNamed(name) || answered,
                     qPrintable(QStringLiteral("%1 (%2) has no docs/help/%1.md").arg(name, path)));
        }
    }
    QVERIFY2(classes.contains(QStringLiteral("CQuotasDlg")) && classes.contains(QStringLiteral("CSubnetListDlg")),
             qPrintable(classes.join(QLatin1Char(' '))));
}

void tst_Help::f1InEveryEntryPointFindsAPage_data()
{
    QTest::addColumn<QString>("entry");
    const QStringList entries = Harness::plainEntryPoints();
    QVERIFY(!entries.isEmpty());
    for (const QString& name : entries)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_Help::f1InEveryEntryPointFindsAPage()
{
    // The dialog behind each entry point, as an administrator reaches it: F1 must lead to a page.
    QFETCH(QString, entry);
    QString className;
    Harness::runEntry(entry.toLatin1().constData(), 0, m_store->server(), [&](QDialog* d) {
        className = QString::fromLatin1(d->metaObject()->className());
        Harness::pressKey(d, Qt::Key_F1);
        Harness::pressKey(d, Qt::Key_Escape);
    });
    const auto help = m_platform->callsOf(QStringLiteral("help"));
    QCOMPARE(help.size(), 1);
    QVERIFY(help[0].style >= 0x20000);
    const CHelpCatalog& catalog = CHelpCatalog::builtIn();
    QVERIFY2(catalog.pageForContext(help[0].style - 0x20000) || catalog.pageNamed(className),
             qPrintable(QStringLiteral("%1 asks for help %2").arg(entry).arg(help[0].style)));
}

void tst_Help::opensAtTheRequestedPage_data()
{
    QTest::addColumn<unsigned>("request");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("title");
    QTest::newRow("directories") << 133077u << "CDirectoriesDlg" << "Mail directory locations";
    QTest::newRow("quotas") << 133085u << "CQuotasDlg" << "Quotas";
    QTest::newRow("service control") << 133082u << "CServiceDlg" << "Service control";
    QTest::newRow("plain context, no 0x20000") << 2047u << "CFileLogConfigDlg" << "File log";
}

void tst_Help::opensAtTheRequestedPage()
{
    QFETCH(unsigned, request);
    QFETCH(QString, page);
    QFETCH(QString, title);
    QDialog owner;
    CHelpWindow* help = openHelp(&owner, request);
    QVERIFY(help);
    QCOMPARE(help->parentWidget(), &owner);
    QCOMPARE(help->currentPage(), page);
    const auto* browser = Harness::control<QTextBrowser>(help, "txtPage");
    // The Markdown is rendered: the title is there, the help line and the # are not.
    QVERIFY(browser->toPlainText().startsWith(title));
    QVERIFY(!browser->toPlainText().contains(QLatin1String("help:")));
    QVERIFY(help->windowTitle().startsWith(title));
    // The contents follow the page shown.
    const auto* contents = Harness::control<QListWidget>(help, "lstContents");
    QCOMPARE(contents->currentItem()->text(), title);
    QCOMPARE(m_platform->messages(), QStringList());
}

void tst_Help::pageOfTheAskingClass()
{
    // The subnet list editor's callers give no context; its page is found by its class.
    _tIp4Subnet* list = nullptr;
    CSubnetListDlg dialog(nullptr, &list, 0, 0);
    CHelpWindow* help = openHelp(&dialog, 0x20000);
    QVERIFY(help);
    QCOMPARE(help->currentPage(), QStringLiteral("CSubnetListDlg"));
}

void tst_Help::unknownTopicIsToldAndOpensNothing()
{
    QDialog owner;
    QVERIFY(!openHelp(&owner, 0x20000 + 65535));
    QCOMPARE(owner.findChildren<CHelpWindow*>().size(), 0);
    QCOMPARE(m_platform->messages(), QStringList{QStringLiteral("There is no help page for topic 196607.")});
    QCOMPARE(m_platform->callsOf(QStringLiteral("messageBox"))[0].style, unsigned(Mb::Ok | Mb::IconInformation));
}

void tst_Help::oneWindowPerOwnerWithBackAndForward()
{
    QDialog owner;
    CHelpWindow* first = openHelp(&owner, 0x20000 + 2013);
    CHelpWindow* second = openHelp(&owner, 0x20000 + 2056);
    QCOMPARE(second, first);
    QCOMPARE(owner.findChildren<CHelpWindow*>().size(), 1);
    QCOMPARE(first->currentPage(), QStringLiteral("CAgentsDlg"));
    auto* back = Harness::control<QToolButton>(first, "btnBack");
    auto* forward = Harness::control<QToolButton>(first, "btnForward");
    QVERIFY(back->isEnabled());
    QVERIFY(!forward->isEnabled());
    back->click();
    QCOMPARE(first->currentPage(), QStringLiteral("CQuotasDlg"));
    QVERIFY(!back->isEnabled());
    forward->click();
    QCOMPARE(first->currentPage(), QStringLiteral("CAgentsDlg"));
    // The keys of a browser: Alt+Left goes back, Alt+Right forward.
    QVERIFY(QTest::qWaitForWindowActive(first));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(first->currentPage(), QStringLiteral("CQuotasDlg"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(first->currentPage(), QStringLiteral("CAgentsDlg"));
    // A link between pages is followed in the window, and Back returns from it.
    Harness::control<QToolButton>(first, "btnHome")->click();
    QCOMPARE(first->currentPage(), QStringLiteral("index"));
    auto* browser = Harness::control<QTextBrowser>(first, "txtPage");
    Q_EMIT browser->anchorClicked(QUrl(QStringLiteral("CTrafficCountersDlg.md")));
    QCOMPARE(first->currentPage(), QStringLiteral("CTrafficCountersDlg"));
    QVERIFY(browser->toPlainText().startsWith(QLatin1String("Traffic counters")));
    back->click();
    QCOMPARE(first->currentPage(), QStringLiteral("index"));
}

void tst_Help::indexJumpsToTheFirstMatch()
{
    QDialog owner;
    CHelpWindow* help = openHelp(&owner, 0x20000 + 2013);
    auto* edit = Harness::control<QLineEdit>(help, "edtIndex");
    auto* index = Harness::control<QListWidget>(help, "lstIndex");
    QTest::keyClicks(edit, QStringLiteral("mail spool"));
    QCOMPARE(index->currentItem()->text(), QStringLiteral("Mail spool directory (Mail directory locations)"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(help->currentPage(), QStringLiteral("CDirectoriesDlg"));
    // The page is scrolled to the section: it is what is selected.
    QCOMPARE(Harness::control<QTextBrowser>(help, "txtPage")->textCursor().selectedText(),
             QStringLiteral("Mail spool directory"));
}

void tst_Help::searchFindsPagesWithEveryWord_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("titles");
    QTest::newRow("a word in the title first") << "quota" << QStringList{QStringLiteral("Quotas"), QStringLiteral("Agents")};
    QTest::newRow("every word, case ignored") << "AGENT quota" << QStringList{QStringLiteral("Agents")};
    QTest::newRow("beginning of a word") << "calend" << QStringList{QStringLiteral("Agents"), QStringLiteral("Quotas")};
    QTest::newRow("not inside a word") << "unc" << QStringList{QStringLiteral("No topic holds these words.")};
    QTest::newRow("nothing") << "xyzzy" << QStringList{QStringLiteral("No topic holds these words.")};
}

void tst_Help::searchFindsPagesWithEveryWord()
{
    QFETCH(QString, words);
    QFETCH(QStringList, titles);
    // Pages of this test's own, so that the answers do not change with the library's pages.
    auto write = [&](const char* name, const char* text) {
        QFile file(m_dir->filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    write("CAgentsDlg.md", "<!-- help: 1 -->\n# Agents\n\nThe agent runs over quota mail. Its function is not calendaring.\n");
    write("CQuotasDlg.md", "<!-- help: 2 -->\n# Quotas\n\nWarnings go out; calendars are not touched.\n");
    write("CFileLogConfigDlg.md", "<!-- help: 3 -->\n# File log\n\nNothing about that here.\n");
    const CHelpCatalog catalog(m_dir->path());
    QDialog owner;
    CHelpWindow help(&owner, catalog);
    Harness::typeInto(Harness::control<QLineEdit>(&help, "edtSearch"), words);
    Harness::clickButton(&help, "btnSearch");
    auto* results = Harness::control<QListWidget>(&help, "lstResults");
    QStringList shown;
    for (int row = 0; row < results->count(); ++row)
        shown.append(results->item(row)->text());
    QCOMPARE(shown, titles);
    // A result opens its page.
    if (results->item(0)->data(Qt::UserRole).isValid()) {
        QTest::mouseClick(results->viewport(), Qt::LeftButton, {}, results->visualItemRect(results->item(0)).center());
        QCOMPARE(help.currentPage(), catalog.pageForContext(titles[0] == QLatin1String("Quotas") ? 2 : 1)->name);
    }
}

QTEST_MAIN(tst_Help)
#include "tst_help.moc"
