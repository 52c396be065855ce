// Translations: with a German locale the library's texts, its help window, its message boxes and the
// dialogs' texts are German where the shipped translation has them; every text without a translation
// stays exactly as written (typos included), and an English locale changes nothing.
#include "DialogHarness.h"
#include "PlainEntryPoints.h"

#include "common/HelpWindow.h"
#include "res/StringTable.h"
#include "res/Translation.h"

#include <QAbstractButton>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMultiHash>
#include <QRegularExpression>
#include <QSet>
#include <QTabWidget>
#include <QXmlStreamReader>

namespace {

struct TsMessage {
    QString source;
    QString translation;
};

// The text of the element being read, with the characters lupdate writes as <byte value="xd"/> put back.
QString tsText(QXmlStreamReader& xml)
{
    QString text;
    for (int depth = 1; depth > 0 && !xml.atEnd();) {
        xml.readNext();
        if (xml.isCharacters()) {
            text += xml.text();
        } else if (xml.isStartElement()) {
            ++depth;
            const QStringView value = xml.attributes().value(QLatin1String("value"));
            if (xml.name() == QLatin1String("byte"))
                text += QChar(value.startsWith(QLatin1Char('x')) ? value.mid(1).toUInt(nullptr, 16) : value.toUInt());
        } else if (xml.isEndElement()) {
            --depth;
        }
    }
    return text;
}

// The shipped German translation as the translator wrote it: context -> messages with a translation.
QMultiHash<QString, TsMessage> shippedGerman()
{
    QMultiHash<QString, TsMessage> messages;
    QFileInfo header(QStringLiteral(TAVI_PUBLIC_HEADER));
    QFile file(header.absolutePath() + QStringLiteral("/../../translations/tavidlg_de.ts"));
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    QString context;
    TsMessage message;
    bool usable = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            message.source = tsText(xml);
        } else if (xml.name() == QLatin1String("translation")) {
            const QString type = xml.attributes().value(QLatin1String("type")).toString();
            usable = type != QLatin1String("vanished") && type != QLatin1String("obsolete");
            message.translation = tsText(xml);
            if (usable && !message.translation.isEmpty())
                messages.insert(context, message);
        }
    }
    return messages;
}

// A text with inserts (%1, %2!d!, %n, %u, %s) as a pattern that matches any filled-in text; with a tail, the
// text may go on (a caption that appends the server's name), and the last group holds the rest.
QRegularExpression filledIn(const QString& text, bool tail = false)
{
    static const QRegularExpression insert(QStringLiteral(R"(%(?:\d+(?:![^!]*!)?|n|[usd]))"));
    QString pattern;
    qsizetype at = 0;
    for (auto it = insert.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        pattern += QRegularExpression::escape(text.mid(at, m.capturedStart() - at)) + QStringLiteral("(.*?)");
        at = m.capturedEnd();
    }
    pattern += QRegularExpression::escape(text.mid(at));
    if (tail)
        pattern += QStringLiteral("(.*)");
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::DotMatchesEverythingOption);
}

// Whether german is english translated by one of the messages: the whole text with its inserts filled
// in, or a translated beginning followed by the same rest.
bool isTranslation(const QList<TsMessage>& messages, QString english, QString german)
{
    // A label shows "\r\n" of a table text as one line break; some dialogs drop the "\r" first.
    english.remove(QLatin1Char('\r'));
    german.remove(QLatin1Char('\r'));
    return std::any_of(messages.begin(), messages.end(), [&](TsMessage m) {
        m.source.remove(QLatin1Char('\r'));
        m.translation.remove(QLatin1Char('\r'));
        if (filledIn(m.source).match(english).hasMatch() && filledIn(m.translation).match(german).hasMatch())
            return true;
        const QRegularExpressionMatch e = filledIn(m.source, true).match(english);
        const QRegularExpressionMatch g = filledIn(m.translation, true).match(german);
        return e.hasMatch() && g.hasMatch() && !e.captured(e.lastCapturedIndex()).isEmpty()
            && e.captured(e.lastCapturedIndex()) == g.captured(g.lastCapturedIndex());
    });
}

// Whether german is Qt's own translation of english (the buttons of wizards and button boxes), with
// Qt's translation installed.
bool isQtTranslation(const QString& english, const QString& german)
{
    for (const char* context : {"QPlatformTheme", "QWizard", "QDialogButtonBox", "QMessageBox"}) {
        if (QCoreApplication::translate(context, english.toUtf8().constData()) == german)
            return true;
    }
    return false;
}

bool hasTranslation(const QList<TsMessage>& messages, const QString& english)
{
    return std::any_of(messages.begin(), messages.end(),
                       [&](const TsMessage& m) { return m.source == english && m.translation != english; });
}

// Every text a person reads in a window, keyed by where it is.
QMap<QString, QString> visibleTexts(QWidget* window)
{
    QMap<QString, QString> texts;
    texts.insert(QStringLiteral("(caption)"), window->windowTitle());
    const QList<QWidget*> widgets = window->findChildren<QWidget*>();
    for (int i = 0; i < widgets.size(); ++i) {
        QWidget* w = widgets[i];
        const QString key = QStringLiteral("%1 %2 #%3").arg(QLatin1String(w->metaObject()->className()), w->objectName()).arg(i);
        if (auto* label = qobject_cast<QLabel*>(w))
            texts.insert(key, label->text());
        else if (auto* button = qobject_cast<QAbstractButton*>(w))
            texts.insert(key, button->text());
        else if (auto* group = qobject_cast<QGroupBox*>(w))
            texts.insert(key, group->title());
        else if (auto* tabs = qobject_cast<QTabWidget*>(w)) {
            for (int t = 0; t < tabs->count(); ++t)
                texts.insert(key + QStringLiteral(" tab %1").arg(t), tabs->tabText(t));
        }
    }
    return texts;
}

// Puts the library back into English after a test, whatever happened in it.
struct EnglishAfterwards {
    ~EnglishAfterwards() { TaviInstallTranslators(QLocale(QLocale::English, QLocale::UnitedStates)); }
};

// Opens the dialog of an entry point as a host calls it (the entry points with further arguments
// with typical ones).
std::function<int()> opener(const QString& entry, _tMailServer* server)
{
    void* address = Harness::resolveEntry(entry.toLatin1().constData());
    if (entry == QLatin1String("ServiceControlDialog")) {
        auto call = reinterpret_cast<int (*)(TaviOwner, _tMailServer*, const char*, const char*)>(address);
        return [=] { return call(0, server, "SMTPRA", "SMTP receiver"); };
    }
    if (entry == QLatin1String("EditServerSubnetList")) {
        auto call = reinterpret_cast<int (*)(TaviOwner, _tMailServer*, const char*, const char*, unsigned)>(address);
        return [=] { return call(0, server, "SMTPRA", "TrustedSubnets", 0); };
    }
    if (entry == QLatin1String("EditDomain")) {
        auto call = reinterpret_cast<int (*)(TaviOwner, _tMailServer*, const char*)>(address);
        return [=] { return call(0, server, "brennoway.example"); };
    }
    if (entry == QLatin1String("ShowReminder")) {
        auto call = reinterpret_cast<int (*)(TaviOwner, unsigned, const char*, unsigned, unsigned)>(address);
        return [=] { return call(0, 57404, "ServerAgentReminder", 57403, 49); };
    }
    auto call = reinterpret_cast<int (*)(TaviOwner, _tMailServer*)>(address);
    return [=] { return call(0, server); };
}

const QLocale kGerman(QLocale::German, QLocale::Germany);
const QLocale kEnglish(QLocale::English, QLocale::UnitedStates);

} // namespace

class tst_Translation : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void languageFollowsTheLocale_data();
    void languageFollowsTheLocale();
    void helpWindowAndErrorBox_data();
    void helpWindowAndErrorBox();
    void stringTableKeepsIdsAndGainsTranslations();
    void dialogTexts_data();
    void dialogTexts();
};

void tst_Translation::languageFollowsTheLocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("translated");
    QTest::newRow("de_DE") << "de_DE" << true;
    QTest::newRow("de_AT falls back to German") << "de_AT" << true;
    QTest::newRow("en_US") << "en_US" << false;
    QTest::newRow("C") << "C" << false;
    QTest::newRow("a language without a translation") << "fi_FI" << false;
}

void tst_Translation::languageFollowsTheLocale()
{
    QFETCH(QString, locale);
    QFETCH(bool, translated);
    EnglishAfterwards restore;
    QCOMPARE(TaviInstallTranslators(QLocale(locale)), translated);
    QCOMPARE(TaviTranslationLanguage().startsWith(QLatin1String("de")), translated);
    // Qt's own texts follow ours: a standard button of a message box.
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"),
             translated ? QStringLiteral("Abbrechen") : QStringLiteral("Cancel"));
}

void tst_Translation::helpWindowAndErrorBox_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("error");
    QTest::newRow("German") << kGerman
                            << QStringList{QStringLiteral("Kontingente - Velbrook-Hilfe"), QStringLiteral("&Zurück"),
                                           QStringLiteral("&Vorwärts"), QStringLiteral("&Inhalt"),
                                           QStringLiteral("In&dex"), QStringLiteral("&Suchen"),
                                           QStringLiteral("&Themen auflisten")}
                            << QStringLiteral("Für das Hilfethema 196607 gibt es keine Hilfeseite.");
    QTest::newRow("English") << kEnglish
                             << QStringList{QStringLiteral("Quotas - Velbrook Help"), QStringLiteral("&Back"),
                                            QStringLiteral("&Forward"), QStringLiteral("&Contents"),
                                            QStringLiteral("&Index"), QStringLiteral("&Search"),
                                            QStringLiteral("&List Topics")}
                             << QStringLiteral("There is no help page for topic 196607.");
}

void tst_Translation::helpWindowAndErrorBox()
{
    QFETCH(QLocale, locale);
    QFETCH(QStringList, texts);
    QFETCH(QString, error);
    EnglishAfterwards restore;
    TaviInstallTranslators(locale);
    QDialog owner;
    // The window and its page, in the language of the translation.
    CHelpWindow* help = openHelp(&owner, 0x20000 + 2013);
    QVERIFY(help);
    const auto* tabs = Harness::control<QTabWidget>(help, "tabNavigation");
    const QStringList shown{help->windowTitle(),
                            Harness::control<QAbstractButton>(help, "btnBack")->text(),
                            Harness::control<QAbstractButton>(help, "btnForward")->text(),
                            tabs->tabText(0), tabs->tabText(1), tabs->tabText(2),
                            Harness::control<QAbstractButton>(help, "btnSearch")->text()};
    QCOMPARE(shown, texts);
    QVERIFY(!openHelp(&owner, 0x20000 + 65535));
    QCOMPARE(m_platform->messages(), QStringList{error});
}

void tst_Translation::stringTableKeepsIdsAndGainsTranslations()
{
    // Each id reads its German text where the translation has one and its English text, exactly as
    // written, where it has none.
    EnglishAfterwards restore;
    const QList<TsMessage> german = shippedGerman().values(QStringLiteral("TaviStrings"));
    const QList<unsigned> ids = TaviStringIds();
    QVERIFY(ids.size() > 10);
    QMap<unsigned, QString> english;
    TaviInstallTranslators(kEnglish);
    for (unsigned id : ids)
        english.insert(id, TaviString(id));
    TaviInstallTranslators(kGerman);
    for (unsigned id : ids) {
        const QString shown = TaviString(id);
        const auto it = std::find_if(german.begin(), german.end(), [&](const TsMessage& m) { return m.source == english[id]; });
        QCOMPARE(shown, it == german.end() ? english[id] : it->translation);
    }
}

void tst_Translation::dialogTexts_data()
{
    QTest::addColumn<QString>("entry");
    const QStringList entries = Harness::plainEntryPoints();
    QVERIFY(!entries.isEmpty());
    for (const QString& name : entries + QStringList{QStringLiteral("ServiceControlDialog"),
                                                     QStringLiteral("EditServerSubnetList"),
                                                     QStringLiteral("EditDomain"),
                                                     QStringLiteral("ShowReminder")})
        QTest::newRow(qPrintable(name)) << name;
}

void tst_Translation::dialogTexts()
{
    // Every dialog of the library, in English and then in German: a text changes only into its
    // translation, and a text that has a translation does not stay English.
    QFETCH(QString, entry);
    QVERIFY(Harness::resolveEntry(entry.toLatin1().constData()));
    EnglishAfterwards restore;
    QMap<QString, QString> texts[2];
    QSet<QString> classes{QStringLiteral("TaviStrings")};
    const QLocale locales[2] = {kEnglish, kGerman};
    for (int run = 0; run < 2; ++run) {
        TaviInstallTranslators(locales[run]);
        Harness::driveModal(opener(entry, m_store->server()), [&](QDialog* d) {
            texts[run] = visibleTexts(d);
            QList<QObject*> objects = d->findChildren<QObject*>();
            objects.append(d);
            for (const QObject* o : objects) {
                for (const QMetaObject* m = o->metaObject(); m; m = m->superClass())
                    classes.insert(QLatin1String(m->className()));
            }
            Harness::pressKey(d, Qt::Key_Escape);
        });
    }
    // A text may become any translation (Qt's own included); it must not stay English where the
    // translation of its own classes has it (a text those classes show without tr()).
    const QMultiHash<QString, TsMessage> shipped = shippedGerman();
    const QList<TsMessage> german = shipped.values();
    QList<TsMessage> own;
    for (const QString& context : classes)
        own += shipped.values(context);
    QCOMPARE(texts[1].keys(), texts[0].keys());
    for (auto it = texts[0].cbegin(); it != texts[0].cend(); ++it) {
        const QString& english = it.value();
        const QString& shown = texts[1].value(it.key());
        if (shown == english)
            QVERIFY2(!hasTranslation(own, english), qPrintable(it.key() + QStringLiteral(" stays English: ") + english));
        else
            QVERIFY2(isTranslation(german, english, shown) || isQtTranslation(english, shown),
                     qPrintable(QStringLiteral("%1: \"%2\" became \"%3\"").arg(it.key(), english, shown)));
    }
}

QTEST_MAIN(tst_Translation)
#include "tst_translation.moc"
