// F1 help: the pages of docs/help/*.md built into the library (":/tavidlg/help"), and the window that
// shows them with contents, index, search, back and forward.
//
// A page's first line names the help contexts it answers, as its dialog passes them to setHelpContext
// (decimal, comma-separated; empty for a page no context leads to): "<!-- help: 2013 -->". Its first
// "# " line is its title, its "## " lines are entries of the index. A page may also be found by the
// class name of the dialog asking (docs/help/CSubnetListDlg.md), for dialogs whose caller gives no
// context.
#pragma once

#include "entry/TaviGlobal.h"

#include <QDialog>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTabWidget;
class QTextBrowser;
class QToolButton;
class QUrl;

struct CHelpPage {
    QString name;          // file name without ".md": the class name of its dialog, or "index"
    QString path;          // where it is read from
    QString title;
    QList<unsigned> contexts;
    QStringList headings;  // the "## " lines
    QString text;          // the Markdown source
};

class TAVI_EXPORT CHelpCatalog {
public:
    // Reads every *.md page of folder; with a fallback folder, also each page of the fallback that
    // folder has not (the pages of one language over the English ones).
    explicit CHelpCatalog(const QString& folder, const QString& fallback = QString());
    // The pages built into the library (read once per language), in the language of the library's
    // translation in force (":/tavidlg/help/de"), English where a page has no translation.
    static const CHelpCatalog& builtIn();

    const QList<CHelpPage>& pages() const { return m_pages; }
    // The page answering a dialog's help context (without the 0x20000 of a help request).
    const CHelpPage* pageForContext(unsigned context) const;
    const CHelpPage* pageNamed(const QString& name) const;
    // Pages holding every word of words (letter case ignored), those with a word in the title first.
    QList<const CHelpPage*> search(const QString& words) const;

    // The contexts named by a page's first line; nullopt when the line is not a help line.
    static std::optional<QList<unsigned>> parseHelpLine(const QString& line);

private:
    QList<CHelpPage> m_pages;
};

class TAVI_EXPORT CHelpWindow : public QDialog {
    Q_OBJECT
public:
    explicit CHelpWindow(QWidget* parent, const CHelpCatalog& catalog = CHelpCatalog::builtIn());
    ~CHelpWindow() override;

    void showPage(const CHelpPage& page, const QString& heading = QString());
    // The page shown (its name), empty before the first.
    QString currentPage() const;

private:
    QLayout* buildToolBar();
    void buildContents();
    void buildIndex();
    void buildSearch();
    void filterIndex(const QString& text);
    void runSearch();
    void openItem(QListWidgetItem* item);
    void sourceChanged(const QUrl& url);

    const CHelpCatalog& m_catalog;
    QTextBrowser* m_browser = nullptr;
    QTabWidget* m_tabs = nullptr;
    QListWidget* m_contents = nullptr;
    QLineEdit* m_indexEdit = nullptr;
    QListWidget* m_index = nullptr;
    QLineEdit* m_searchEdit = nullptr;
    QListWidget* m_results = nullptr;
    QToolButton* m_back = nullptr;
    QToolButton* m_forward = nullptr;
};

// Opens the help window over owner's window at the page of a help request (a dialog's help context
// plus 0x20000; a plain context is taken as it is). A context without a page falls back to the page of
// the asking dialog's class; a request that has neither is told in a message box and returns null.
// One help window per owner window: a second request shows its page in the same window.
TAVI_EXPORT CHelpWindow* openHelp(QWidget* owner, unsigned request);
