// The filter plug-in loaded as the mailbox sheet loads it, editing a real mailbox's "SieveScript":
// rules written as a script, bad scripts refused with their position, raw scripts kept, store failures
// reported, hostile scripts survived.
#include "DialogHarness.h"

#include "SieveFilterPlugin.h"
#include "SieveRules.h"
#include "SieveSyntax.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLibrary>
#include <QLineEdit>
#include <QMap>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include <velbrook/MailToolkit.h>
#include <velbrook/MailboxStore.h>

using Sieve::Rule;

namespace {
const char kAddress[] = "sieve.test";

EditSieveMailboxConfigurationFn loadEntry()
{
    // Loaded by its base name from the build's library folder, the way the mailbox pages find it.
    static QLibrary module(QFileInfo(QStringLiteral(SIEVE_PLUGIN_PATH)).absolutePath() + QStringLiteral("/SieveFilterPlugin"));
    if (!module.isLoaded() && !module.load())
        return nullptr;
    return reinterpret_cast<EditSieveMailboxConfigurationFn>(module.resolve("EditSieveMailboxConfiguration"));
}
} // namespace

class tst_SieveFilterDlg : public CDialogTest {
    Q_OBJECT

protected:
    void seed() override { QVERIFY(CreateMailbox(*m_store, kAddress)); }

    // Each look at the store opens the mailbox afresh, so that it sees what the dialog wrote.
    struct Mailbox {
        explicit Mailbox(_tMailServer* server) : handle(OpenMailbox(server, kAddress)) {}
        ~Mailbox() { CloseMailbox(handle); }
        _tMailbox* handle;
    };

    QByteArray stored() const
    {
        Mailbox mailbox(*m_store);
        QByteArray buffer(64, '\0');
        uint32_t size = uint32_t(buffer.size());
        uint32_t type = 0;
        bool ok = GetMailboxProperty(mailbox.handle, "SieveScript", buffer.data(), &size, &type);
        if (!ok && GetLastError() == VB_ERROR_MORE_DATA) {
            buffer.resize(size);
            ok = GetMailboxProperty(mailbox.handle, "SieveScript", buffer.data(), &size, &type);
        }
        return ok ? QByteArray(buffer.constData()) : QByteArray("<none>");
    }

    void store(const QByteArray& script)
    {
        Mailbox mailbox(*m_store);
        QVERIFY(SetMailboxProperty(mailbox.handle, VB_TYPE_STRING, "SieveScript", script.constData(),
                                   uint32_t(script.size() + 1)));
    }

    int run(const std::function<void(QDialog*)>& driver)
    {
        auto entry = loadEntry();
        if (!entry) {
            QTest::qFail("EditSieveMailboxConfiguration could not be loaded", __FILE__, __LINE__);
            return 0;
        }
        Mailbox mailbox(*m_store);
        return Harness::driveModal([&] { return entry(0, mailbox.handle); }, driver);
    }

    // The rule editor over the filter editor, once it is the active window.
    static QDialog* ruleEditor(QDialog* modal)
    {
        QDialog* rule = modal->objectName() == QStringLiteral("CSieveRuleDlg")
                            ? modal
                            : modal->findChild<QDialog*>(QStringLiteral("CSieveRuleDlg"));
        if (!rule || !QTest::qWaitForWindowActive(rule))
            QTest::qFail("the rule editor did not open", __FILE__, __LINE__);
        return rule;
    }

    // Labels and buttons narrower than their text needs, and shared mnemonics, under root; with TAVI_SCREENSHOT_DIR set the
    // window is also saved there under the given name.
    static QStringList clipped(QWidget* root, const QString& shot)
    {
        QCoreApplication::processEvents();
        QStringList found;
        for (QWidget* w : root->findChildren<QWidget*>()) {
            if (w->window() != root || !w->isVisibleTo(root) || !(qobject_cast<QLabel*>(w) || qobject_cast<QAbstractButton*>(w)))
                continue;
            auto* label = qobject_cast<QLabel*>(w);
            if (label && label->wordWrap())
                continue;
            if (w->width() < w->minimumSizeHint().width() || w->height() < w->minimumSizeHint().height())
                found << w->objectName() + QLatin1Char(':') + w->property("text").toString();
        }
        // Two controls of one window must not share a mnemonic.
        QMap<QChar, QString> mnemonics;
        QStringList texts;
        for (QWidget* w : root->findChildren<QWidget*>()) {
            if (w->window() == root && w->isVisibleTo(root) && (qobject_cast<QLabel*>(w) || qobject_cast<QAbstractButton*>(w)))
                texts << w->property("text").toString();
        }
        if (auto* tabs = root->findChild<QTabWidget*>()) {
            for (int i = 0; i < tabs->count(); ++i)
                texts << tabs->tabText(i);
        }
        for (const QString& text : std::as_const(texts)) {
            const qsizetype at = text.indexOf(QLatin1Char('&'));
            if (at < 0 || at + 1 >= text.size())
                continue;
            const QChar key = text[at + 1].toLower();
            if (mnemonics.contains(key))
                found << QStringLiteral("mnemonic %1 in '%2' and '%3'").arg(key).arg(mnemonics[key], text);
            mnemonics[key] = text;
        }
        const QString dir = qEnvironmentVariable("TAVI_SCREENSHOT_DIR");
        if (!dir.isEmpty())
            root->grab().save(dir + QLatin1Char('/') + shot + QStringLiteral(".png"));
        return found;
    }

    // Adds a rule through the rule editor, as a person does.
    static void addRule(QDialog* dialog, int condition, const QString& header, const QString& text, int action,
                        const QString& argument)
    {
        Harness::driveModal(
            [&] {
                Harness::clickButton(dialog, "btnAdd");
                return 0;
            },
            [&](QDialog* modal) {
                QDialog* rule = ruleEditor(modal);
                Harness::control<QComboBox>(rule, "cboCondition")->setCurrentIndex(condition);
                if (condition == Rule::HeaderContains)
                    Harness::typeInto(Harness::control<QLineEdit>(rule, "edtHeader"), header);
                Harness::typeInto(Harness::control<QLineEdit>(rule, condition == Rule::SizeOver ? "edtSize" : "edtText"), text);
                Harness::control<QComboBox>(rule, "cboAction")->setCurrentIndex(action);
                if (!argument.isEmpty())
                    Harness::typeInto(Harness::control<QLineEdit>(rule, "edtArgument"), argument);
                Harness::clickButton(rule, "btnOK");
            });
    }

private Q_SLOTS:
    void entryWithoutMailboxIsNotCreated()
    {
        auto entry = loadEntry();
        QVERIFY(entry);
        QCOMPARE(entry(0, nullptr), -1);
    }

    // Catches rules that never reach the store or reach it in another order than the list shows.
    void rulesAreWrittenAsScript()
    {
        QList<Rule> shown;
        const int result = run([&](QDialog* dialog) {
            addRule(dialog, Rule::HeaderContains, QStringLiteral("Subject"), QStringLiteral("sale"), Rule::FileInto,
                    QStringLiteral("Ads"));
            addRule(dialog, Rule::SizeOver, {}, QStringLiteral("5M"), Rule::Reject, QStringLiteral("Too big"));
            addRule(dialog, Rule::FromAddress, {}, QStringLiteral("boss@example.com"), Rule::SmsNotify, {});
            auto* list = Harness::control<QListWidget>(dialog, "lstRules");
            QCOMPARE(list->count(), 3);
            list->setCurrentRow(2);
            Harness::clickButton(dialog, "btnUp");
            QCOMPARE(list->currentRow(), 1);
            list->setCurrentRow(0);
            Harness::clickButton(dialog, "btnRemove");
            QCOMPARE(list->count(), 2);
            Harness::clickButton(dialog, "btnOK");
        });
        QCOMPARE(result, 1);
        const std::optional<QList<Rule>> rules = Sieve::readRules(QString::fromUtf8(stored()));
        QVERIFY(rules.has_value());
        QCOMPARE(rules->size(), 2);
        QCOMPARE(rules->at(0).condition, Rule::FromAddress);
        QCOMPARE(rules->at(0).action, Rule::SmsNotify);
        QCOMPARE(rules->at(1).size, quint64(5) << 20);
        QVERIFY(stored().contains("x_sms"));
        QVERIFY(m_platform->messages().isEmpty());
    }

    void incompleteRuleIsRefused()
    {
        const int result = run([&](QDialog* dialog) {
            Harness::driveModal(
                [&] {
                    Harness::clickButton(dialog, "btnAdd");
                    return 0;
                },
                [&](QDialog* modal) {
                    QDialog* rule = ruleEditor(modal);
                    Harness::typeInto(Harness::control<QLineEdit>(rule, "edtText"), QStringLiteral("sale"));
                    Harness::clickButton(rule, "btnOK");
                    QVERIFY(rule->isVisible());
                    QCOMPARE(rule->focusWidget()->objectName(), QStringLiteral("edtArgument"));
                    rule->reject();
                });
            QCOMPARE(Harness::control<QListWidget>(dialog, "lstRules")->count(), 0);
            Harness::clickButton(dialog, "btnCancel");
        });
        QCOMPARE(result, 2);
        QCOMPARE(m_platform->messages().size(), 1);
        QVERIFY(m_platform->messages().first().contains(QStringLiteral("folder")));
        QCOMPARE(stored(), QByteArray("<none>"));
    }

    void badScriptIsRefused_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("column");
        QTest::newRow("missing semicolon") << QStringLiteral("if true {\n  keep\n}") << 3 << 1;
        QTest::newRow("unclosed string") << QStringLiteral("require \"fileinto\";\nfileinto \"Ads;") << 2 << 10;
        QTest::newRow("stray brace") << QStringLiteral("keep;\n\n   }") << 3 << 4;
    }

    // A bad script must leave the stored one untouched and put the cursor where the error is.
    void badScriptIsRefused()
    {
        QFETCH(QString, script);
        QFETCH(int, line);
        QFETCH(int, column);
        store("discard;");
        Sieve::SyntaxError expected;
        QVERIFY(!Sieve::parse(script, &expected));
        const int result = run([&](QDialog* dialog) {
            auto* edit = Harness::control<QPlainTextEdit>(dialog, "edtScript");
            Harness::control<QTabWidget>(dialog, "tabFilter")->setCurrentIndex(1);
            edit->setPlainText(script);
            Harness::control<QTabWidget>(dialog, "tabFilter")->setCurrentIndex(0);
            Harness::clickButton(dialog, "btnOK");
            QVERIFY(dialog->isVisible());
            QCOMPARE(Harness::control<QTabWidget>(dialog, "tabFilter")->currentWidget()->objectName(),
                     QStringLiteral("pageScript"));
            QCOMPARE(edit->textCursor().position(), int(expected.offset));
            QCOMPARE(edit->textCursor().blockNumber() + 1, line);
            Harness::clickButton(dialog, "btnCancel");
        });
        QCOMPARE(result, 2);
        QCOMPARE(m_platform->messages().size(), 1);
        QVERIFY2(m_platform->messages().first().contains(QStringLiteral("line %1, column %2").arg(line).arg(column)),
                 qPrintable(m_platform->messages().first()));
        QCOMPARE(m_platform->calls().first().focus, QStringLiteral("edtScript"));
        QCOMPARE(stored(), QByteArray("discard;"));
    }

    // A script the rules cannot show is kept verbatim and edited as text; the rules stay out of reach.
    void rawScriptIsKeptAndEdited()
    {
        const QByteArray raw = "require \"vacation\";\nvacation :days 3 \"Away\";";
        store(raw);
        const int result = run([&](QDialog* dialog) {
            QCOMPARE(Harness::control<QTabWidget>(dialog, "tabFilter")->currentWidget()->objectName(),
                     QStringLiteral("pageScript"));
            auto* edit = Harness::control<QPlainTextEdit>(dialog, "edtScript");
            QCOMPARE(edit->toPlainText().toUtf8(), raw);
            Harness::control<QTabWidget>(dialog, "tabFilter")->setCurrentIndex(0);
            QVERIFY(Harness::control<QLabel>(dialog, "lblRawScript")->isVisibleTo(dialog));
            QVERIFY(!Harness::control<QPushButton>(dialog, "btnAdd")->isEnabled());
            Harness::control<QTabWidget>(dialog, "tabFilter")->setCurrentIndex(1);
            edit->moveCursor(QTextCursor::End);
            edit->insertPlainText(QStringLiteral("\nkeep;"));
            Harness::clickButton(dialog, "btnOK");
        });
        QCOMPARE(result, 1);
        QCOMPARE(stored(), raw + "\nkeep;");
    }

    // Text typed in the Script tab that the rules can show becomes rules again.
    void scriptEditsBecomeRules()
    {
        const int result = run([&](QDialog* dialog) {
            auto* tabs = Harness::control<QTabWidget>(dialog, "tabFilter");
            tabs->setCurrentIndex(1);
            Harness::control<QPlainTextEdit>(dialog, "edtScript")
                ->setPlainText(QStringLiteral("if address :is \"from\" \"x@y.example\" { discard; }"));
            tabs->setCurrentIndex(0);
            QVERIFY(!Harness::control<QLabel>(dialog, "lblRawScript")->isVisibleTo(dialog));
            QCOMPARE(Harness::control<QListWidget>(dialog, "lstRules")->count(), 1);
            Harness::clickButton(dialog, "btnCancel");
        });
        QCOMPARE(result, 2);
        QCOMPARE(stored(), QByteArray("<none>"));
    }

    void unchangedOkWritesNothing()
    {
        store("require [\"fileinto\"];\n\nif header :contains \"Subject\" \"x\" {\n    fileinto \"x\";\n}\n");
        const QByteArray before = stored();
        const uint32_t writes = m_store->calls("SetMailboxProperty");
        const int result = run([&](QDialog* dialog) { Harness::clickButton(dialog, "btnOK"); });
        QCOMPARE(result, 2);
        QCOMPARE(m_store->calls("SetMailboxProperty"), writes);
        QCOMPARE(stored(), before);
    }

    // The more-data path of the read, and a failed write reported with the dialog left open.
    void storeFailures()
    {
        store("keep;");
        QVERIFY(VbForceMoreData(*m_store, nullptr, "SieveScript", 1));
        QVERIFY(VbInjectFault(*m_store, "SetMailboxProperty", nullptr, "SieveScript", VB_ERROR_ACCESS_DENIED, 1));
        const int result = run([&](QDialog* dialog) {
            auto* edit = Harness::control<QPlainTextEdit>(dialog, "edtScript");
            QCOMPARE(edit->toPlainText(), QStringLiteral("keep;"));
            edit->setPlainText(QStringLiteral("discard;"));
            Harness::clickButton(dialog, "btnOK");
            QVERIFY(dialog->isVisible());
            Harness::clickButton(dialog, "btnOK");
        });
        QCOMPARE(result, 1);
        QCOMPARE(m_platform->messages().size(), 1);
        QVERIFY(m_platform->messages().first().contains(QStringLiteral("Cannot set mailbox SieveScript property")));
        QCOMPARE(stored(), QByteArray("discard;"));
    }

    // A megabyte of bytes that are not UTF-8 open without a crash and are refused as a script.
    void hostileScript()
    {
        QByteArray junk(1 << 20, 'x');
        for (qsizetype i = 0; i < junk.size(); ++i)
            junk[i] = i % 80 == 79 ? '\n' : char(0x80 + (i * 31) % 0x7f);
        store(junk);
        const int result = run([&](QDialog* dialog) {
            QVERIFY(!Harness::control<QPlainTextEdit>(dialog, "edtScript")->toPlainText().isEmpty());
            Harness::control<QPlainTextEdit>(dialog, "edtScript")->appendPlainText(QStringLiteral("x"));
            Harness::clickButton(dialog, "btnOK");
            QVERIFY(dialog->isVisible());
            Harness::clickButton(dialog, "btnCancel");
        });
        QCOMPARE(result, 2);
        QCOMPARE(m_platform->messages().size(), 1);
        QVERIFY(stored() == junk);
    }
    // Both tabs and the rule editor show their texts whole.
    void notClipped()
    {
        store(Sieve::generateScript({Rule{Rule::HeaderContains, QStringLiteral("Subject"), QStringLiteral("sale"), 0,
                                           Rule::FileInto, QStringLiteral("Offers")},
                                      Rule{Rule::SizeOver, QStringLiteral("Subject"), {}, 10 << 20, Rule::Reject,
                                           QStringLiteral("Please send a link instead.")},
                                      Rule{Rule::FromAddress, QStringLiteral("Subject"), QStringLiteral("boss@example.com"), 0,
                                           Rule::SmsNotify, {}}})
                  .toUtf8());
        QStringList found;
        run([&](QDialog* dialog) {
            auto* tabs = Harness::control<QTabWidget>(dialog, "tabFilter");
            QCOMPARE(Harness::control<QListWidget>(dialog, "lstRules")->count(), 3);
            Harness::control<QListWidget>(dialog, "lstRules")->setCurrentRow(1);
            found << clipped(dialog, QStringLiteral("SieveFilterDlg-rules"));
            tabs->setCurrentIndex(1);
            found << clipped(dialog, QStringLiteral("SieveFilterDlg-script"));
            tabs->setCurrentIndex(0);
            Harness::driveModal(
                [&] {
                    Harness::clickButton(dialog, "btnEdit");
                    return 0;
                },
                [&](QDialog* modal) {
                    QDialog* rule = ruleEditor(modal);
                    found << clipped(rule, QStringLiteral("SieveRuleDlg"));
                    rule->reject();
                });
            Harness::clickButton(dialog, "btnCancel");
        });
        QCOMPARE(found, QStringList());
    }
};

QTEST_MAIN(tst_SieveFilterDlg)
#include "tst_sievefilterdlg.moc"
