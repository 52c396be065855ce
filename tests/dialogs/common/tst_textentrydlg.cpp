// The text entry dialog: where its texts come from, and an unchanged OK reported as a cancel.
#include "DialogHarness.h"

#include "common/TextEntryDlg.h"

#include <QLabel>
#include <QPlainTextEdit>

class tst_TextEntryDlg : public CDialogTest {
    Q_OBJECT
public:
    tst_TextEntryDlg() : CDialogTest(false) {}

private Q_SLOTS:
    void captionAndPromptFromTextOrId_data();
    void captionAndPromptFromTextOrId();
    void okResult_data();
    void okResult();
    void cancelKeepsInitialValue();
    void help();

};

void tst_TextEntryDlg::captionAndPromptFromTextOrId_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("expectedCaption");
    QTest::addColumn<QString>("expectedPrompt");
    // 57427 and 57428 are texts of the library's table ("IP subnet", "Comment").
    QTest::addRow("texts given") << "Banner" << "Text shown to &clients:" << "Banner" << "Text shown to &clients:";
    QTest::addRow("null texts take the ids") << QString() << QString() << "IP subnet" << "Comment";
    // An empty text is a text: only a null one falls back to the id.
    QTest::addRow("empty caption stays empty") << QStringLiteral("") << QString() << "" << "Comment";
}

void tst_TextEntryDlg::captionAndPromptFromTextOrId()
{
    QFETCH(QString, caption);
    QFETCH(QString, prompt);
    QFETCH(QString, expectedCaption);
    QFETCH(QString, expectedPrompt);
    CTextEntryDlg dialog(nullptr, caption, 57427, prompt, 57428, 0, QStringLiteral("x"));
    dialog.ensureInitialised();
    QCOMPARE(dialog.windowTitle(), expectedCaption);
    QCOMPARE(Harness::control<QLabel>(&dialog, "lblPrompt")->text(), expectedPrompt);
    QCOMPARE(Harness::control<QPlainTextEdit>(&dialog, "edtText")->toPlainText(), QStringLiteral("x"));
}

// OK with the text as it came (line ends aside) answers 2, as a cancel; any real change, case too, answers 1.
void tst_TextEntryDlg::okResult_data()
{
    QTest::addColumn<QString>("initial");
    QTest::addColumn<QString>("typed"); // null: leave the text alone
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("value");
    QTest::addRow("untouched") << "mail.example.com" << QString() << 2 << "mail.example.com";
    QTest::addRow("retyped the same") << "mail.example.com" << "mail.example.com" << 2 << "mail.example.com";
    QTest::addRow("untouched, CRLF lines") << "one\r\ntwo" << QString() << 2 << "one\ntwo";
    // Case counts: a case-only change is a change.
    QTest::addRow("case only") << "mail.example.com" << "Mail.example.com" << 1 << "Mail.example.com";
    QTest::addRow("changed") << "" << "relay.example.org" << 1 << "relay.example.org";
    QTest::addRow("emptied") << "something" << "" << 1 << "";
    QTest::addRow("non-ASCII") << "a" << "Grüße, 東京" << 1 << "Grüße, 東京";
}

void tst_TextEntryDlg::okResult()
{
    QFETCH(QString, initial);
    QFETCH(QString, typed);
    QFETCH(int, result);
    QFETCH(QString, value);
    CTextEntryDlg dialog(nullptr, QStringLiteral("Caption"), 0, QStringLiteral("Prompt"), 0, 0, initial);
    const int got = Harness::driveModal([&] { return dialog.exec(); }, [&](QDialog* d) {
        if (!typed.isNull())
            Harness::typeInto(Harness::control<QPlainTextEdit>(d, "edtText"), typed);
        Harness::clickButton(d, "btnOK");
    });
    QCOMPARE(got, result);
    QCOMPARE(dialog.value(), value);
}

// Typed text must not leak into value() after Escape; the edit has the focus when the dialog opens.
void tst_TextEntryDlg::cancelKeepsInitialValue()
{
    CTextEntryDlg dialog(nullptr, QStringLiteral("Caption"), 0, QStringLiteral("Prompt"), 0, 0, QStringLiteral("old"));
    QString focus;
    const int got = Harness::driveModal([&] { return dialog.exec(); }, [&](QDialog* d) {
        focus = Harness::focusName(); // the edit, ready for typing
        Harness::typeInto(Harness::control<QPlainTextEdit>(d, "edtText"), QStringLiteral("new"));
        QTest::keyClick(d, Qt::Key_Escape);
    });
    QCOMPARE(got, 2);
    QCOMPARE(focus, QStringLiteral("edtText"));
    QCOMPARE(dialog.value(), QStringLiteral("old"));
}

// The caller's help context, offset into the dialog range, on the button and on F1.
void tst_TextEntryDlg::help()
{
    CTextEntryDlg dialog(nullptr, QStringLiteral("Caption"), 0, QStringLiteral("&Prompt"), 0, 4321, QString());
    dialog.show();
    Harness::clickButton(&dialog, "btnHelp");
    QTest::keyClick(&dialog, Qt::Key_F1);
    const auto help = m_platform->callsOf(QStringLiteral("help"));
    QCOMPARE(help.size(), 2);
    for (const CRecordedCall& call : help)
        QCOMPARE(call.style, 4321u + 0x20000u);
    dialog.reject();
}

QTEST_MAIN(tst_TextEntryDlg)
#include "tst_textentrydlg.moc"
