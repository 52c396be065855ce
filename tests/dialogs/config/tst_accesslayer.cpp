// The configuration access layer against a real store: string reads and their retry, number defaults,
// writes, the caption, the clustered test and the error box texts.
#include "DialogHarness.h"

#include "config/AccessLayer.h"
#include "config/ErrorReport.h"
#include "config/MessageFormat.h"
#include "res/StringTable.h"

#include <QLineEdit>

#include <velbrook/MailToolkit.h>

class tst_AccessLayer : public CDialogTest {
    Q_OBJECT
private Q_SLOTS:
    void readStringRetriesOnceWithReportedSizePlusTen();
    void readStringFailures_data();
    void readStringFailures();
    void readNumberFallsBackToDefault();
    void writesUseTypeAndSize();
    void serverCaption_data();
    void serverCaption();
    void serverCaptionUntouchedWhenNameUnreadable();
    void clustered_data();
    void clustered();
    void errorTexts_data();
    void errorTexts();
    void writeFailureInExchange();
    void formatInserts_data();
    void formatInserts();
    void wrapsAtSixty();
    void stringTableHasNoDuplicates();

};

void tst_AccessLayer::readStringRetriesOnceWithReportedSizePlusTen()
{
    const QString longText = QStringLiteral("C:\\Program Files\\Velbrook\\Agents\\") + QString(400, QLatin1Char('a'))
        + QStringLiteral("\\end.exe");
    QVERIFY(m_store->setString(nullptr, "IncomingMailCmd", longText));
    VbClearFaults(*m_store);
    QString value = QStringLiteral("stale");
    QVERIFY(ReadServerString(*m_store, nullptr, "IncomingMailCmd", value, 256));
    QCOMPARE(value, longText);
    QCOMPARE(m_store->calls("GetMailServerProperty"), 2u);

    // The store reports more data although the buffer would do: the retry still reads it all.
    QVERIFY(m_store->setString(nullptr, "ArchiveDir", QStringLiteral("/srv/archive")));
    VbClearFaults(*m_store);
    QVERIFY(VbForceMoreData(*m_store, nullptr, "ArchiveDir", 1));
    QVERIFY(ReadServerString(*m_store, nullptr, "ArchiveDir", value, 261));
    QCOMPARE(value, QStringLiteral("/srv/archive"));
    QCOMPARE(m_store->calls("GetMailServerProperty"), 2u);
}

// Every failed read empties the caller's string rather than leaving a stale value.
void tst_AccessLayer::readStringFailures_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<uint>("expectedCalls");
    QTest::addRow("missing") << QString() << 1u;
    QTest::addRow("busy") << QStringLiteral("busy") << 1u;
    // More data twice in a row: there is only one retry, and its failure empties the string.
    QTest::addRow("more data twice") << QStringLiteral("moredata") << 2u;
}

void tst_AccessLayer::readStringFailures()
{
    QFETCH(QString, fault);
    QFETCH(uint, expectedCalls);
    const char* name = fault.isEmpty() ? "NoSuchProperty" : "MailSpoolDir";
    QVERIFY(m_store->setString(nullptr, "MailSpoolDir", QStringLiteral("/var/spool/velbrook")));
    VbClearFaults(*m_store);
    if (fault == QLatin1String("busy"))
        QVERIFY(VbInjectFault(*m_store, "GetMailServerProperty", nullptr, name, VB_ERROR_BUSY, 0));
    if (fault == QLatin1String("moredata"))
        QVERIFY(VbForceMoreData(*m_store, nullptr, name, 0));
    QString value = QStringLiteral("previous");
    QVERIFY(!ReadServerString(*m_store, nullptr, name, value, 261));
    QVERIFY(value.isEmpty());
    QCOMPARE(m_store->calls("GetMailServerProperty"), expectedCalls);
}

void tst_AccessLayer::readNumberFallsBackToDefault()
{
    QVERIFY(m_store->setNumber(nullptr, "RegistryFormatVersion", 5));
    quint32 value = 0;
    QVERIFY(ReadServerNumber(*m_store, nullptr, "RegistryFormatVersion", value, 9));
    QCOMPARE(value, 5u);
    QVERIFY(!ReadServerNumber(*m_store, nullptr, "NoSuchNumber", value, 9));
    QCOMPARE(value, 9u);
    // A text where a number is expected is unreadable as a number.
    QVERIFY(m_store->setString(nullptr, "TextNotNumber", QStringLiteral("12")));
    QVERIFY(!ReadServerNumber(*m_store, nullptr, "TextNotNumber", value, 3));
    QCOMPARE(value, 3u);
}

// Quotes and non-ASCII text survive the round trip, 0xFFFFFFFF is not cut, and a refused write fails.
void tst_AccessLayer::writesUseTypeAndSize()
{
    const QString text = QStringLiteral("Grüße \"quoted\" 'x'; DROP TABLE");
    QVERIFY(WriteServerString(*m_store, "Logging", "LogDirectory", text));
    QCOMPARE(m_store->string("Logging", "LogDirectory"), text);
    QVERIFY(WriteServerNumber(*m_store, nullptr, "DeadLetterDays", 0xFFFFFFFFu));
    QCOMPARE(m_store->number(nullptr, "DeadLetterDays"), std::optional<quint32>(0xFFFFFFFFu));
    QVERIFY(VbInjectFault(*m_store, "SetMailServerProperty", nullptr, "DeadLetterDays", VB_ERROR_ACCESS_DENIED, 1));
    QVERIFY(!WriteServerNumber(*m_store, nullptr, "DeadLetterDays", 1));
    QCOMPARE(GetLastError(), VB_ERROR_ACCESS_DENIED);
    // The usual report of a failed write names the property and the code it left behind.
    ReportPropertyWriteFailure("DeadLetterDays");
    const QStringList messages = m_platform->messages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages[0].startsWith(QStringLiteral("Could not set the 'DeadLetterDays' mail server property.\nError: 5\n")),
             qPrintable(messages[0]));
}

// The machine name goes into %1 or %1!s! once, is not itself scanned for inserts, and a second call refills.
void tst_AccessLayer::serverCaption_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("machine");
    QTest::addColumn<QString>("expected");
    QTest::addRow("plain insert") << QStringLiteral("Quotas on %1") << QStringLiteral("mx1.example.net")
                                  << QStringLiteral("Quotas on mx1.example.net");
    QTest::addRow("printf insert") << QStringLiteral("Calendaring on %1!s!") << QStringLiteral("mx1")
                                   << QStringLiteral("Calendaring on mx1");
    QTest::addRow("name with percent") << QStringLiteral("Agents on %1") << QStringLiteral("odd%1name")
                                       << QStringLiteral("Agents on odd%1name");
    QTest::addRow("no insert") << QStringLiteral("Select Configuration Connector") << QStringLiteral("mx1")
                               << QStringLiteral("Select Configuration Connector");
}

void tst_AccessLayer::serverCaption()
{
    QFETCH(QString, caption);
    QFETCH(QString, machine);
    QFETCH(QString, expected);
    QVERIFY(m_store->setString("Machine", "MachineName", machine));
    QWidget dialog;
    dialog.setWindowTitle(caption);
    SetServerCaption(&dialog, *m_store);
    QCOMPARE(dialog.windowTitle(), expected);
    // A second call fills the template again rather than the filled caption.
    QVERIFY(m_store->setString("Machine", "MachineName", QStringLiteral("renamed")));
    SetServerCaption(&dialog, *m_store);
    QCOMPARE(dialog.windowTitle(), QString(expected).replace(machine, QStringLiteral("renamed")));
}

void tst_AccessLayer::serverCaptionUntouchedWhenNameUnreadable()
{
    QVERIFY(VbInjectFault(*m_store, "GetMailServerConstant", nullptr, "MachineName", VB_ERROR_BUSY, 0));
    QWidget dialog;
    dialog.setWindowTitle(QStringLiteral("Routing on %1"));
    SetServerCaption(&dialog, *m_store);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Routing on %1"));
    // Without a recorded name the local computer's name is used.
    VbClearFaults(*m_store);
    SetServerCaption(&dialog, *m_store);
    QVERIFY(!dialog.windowTitle().contains(QLatin1String("%1")));
    QVERIFY(dialog.windowTitle().size() > QStringLiteral("Routing on ").size());
}

// Only a database connector that says it is clustered counts; an unreadable answer means not clustered.
void tst_AccessLayer::clustered_data()
{
    QTest::addColumn<uint>("connectorType");
    QTest::addColumn<uint>("clustered");
    QTest::addColumn<bool>("fails");
    QTest::addColumn<bool>("expected");
    QTest::addRow("embedded") << 0u << 0u << false << false;
    QTest::addRow("embedded claiming cluster") << 0u << 1u << false << false;
    QTest::addRow("database, single server") << 1u << 0u << false << false;
    QTest::addRow("database, cluster") << 1u << 1u << false << true;
    QTest::addRow("info unreadable") << 1u << 1u << true << false;
}

void tst_AccessLayer::clustered()
{
    QFETCH(uint, connectorType);
    QFETCH(uint, clustered);
    QFETCH(bool, fails);
    QFETCH(bool, expected);
    _tConfigConnectorInfo info = {};
    info.cbSize = sizeof info;
    info.connectorType = connectorType;
    info.clustered = clustered;
    QVERIFY(VbOverrideConnectorInfo(*m_store, &info));
    if (fails)
        QVERIFY(VbInjectFault(*m_store, "GetConfigConnectorInfo", nullptr, nullptr, VB_ERROR_BUSY, 0));
    QCOMPARE(IsClusteredConfiguration(*m_store), expected);
}

// The code in decimal up to 65535 and in hexadecimal above, then the explanation that belongs to it.
void tst_AccessLayer::errorTexts_data()
{
    QTest::addColumn<uint>("code");
    QTest::addColumn<QString>("codeText");
    QTest::addColumn<QString>("explanation");
    QTest::addRow("zero") << 0u << QStringLiteral("0") << QString();
    QTest::addRow("decimal") << 5u << QStringLiteral("5") << QStringLiteral("*");
    QTest::addRow("largest decimal") << 0xFFFFu << QStringLiteral("65535") << QString();
    QTest::addRow("smallest hexadecimal") << 0x10000u << QStringLiteral("0x00010000") << QString();
    QTest::addRow("mailbox limit") << 0xE0100003u << QStringLiteral("0xE0100003")
                                   << QStringLiteral("You cannot create any more mailboxes in this domain.");
    QTest::addRow("property too large") << 0xE0100004u << QStringLiteral("0xE0100004")
                                        << QStringLiteral("The property is too large.");
    QTest::addRow("list limit") << 0xE0200003u << QStringLiteral("0xE0200003")
                                << QStringLiteral("You cannot create any more mail lists in this domain.");
    QTest::addRow("list store code") << 0xE0200009u << QStringLiteral("0xE0200009")
                                     << QStringLiteral("Mail list manager error");
    QTest::addRow("mailbox store code") << 0xE0100042u << QStringLiteral("0xE0100042")
                                        << QStringLiteral("Mailbox manager error");
    QTest::addRow("other application code") << 0xE0000001u << QStringLiteral("0xE0000001") << QString();
}

void tst_AccessLayer::errorTexts()
{
    QFETCH(uint, code);
    QFETCH(QString, codeText);
    QFETCH(QString, explanation);
    ReportError(code, QStringLiteral("Could not do it."));
    const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes[0].style, unsigned(Mb::Ok)); // plain: OK only, no icon
    const QString prefix = QStringLiteral("Could not do it.\nError: ") + codeText + QLatin1Char('\n');
    QVERIFY2(boxes[0].text.startsWith(prefix), qPrintable(boxes[0].text));
    QVERIFY(boxes[0].text.endsWith(QLatin1Char('\n')));
    const QString shown = boxes[0].text.mid(prefix.size()).chopped(1);
    if (explanation == QLatin1String("*")) {
        // A system code: the store's text for it, broken into lines of at most 60 characters.
        char text[512] = {};
        VbErrorText(code, text, sizeof text);
        QVERIFY(!QString::fromUtf8(text).isEmpty());
        QCOMPARE(shown, WrapLines(QString::fromUtf8(text), 60));
    } else if (explanation.endsWith(QLatin1String("manager error"))) {
        // The heading, and the manager's own text on the next line only when the code asks for it.
        QVERIFY2(shown == explanation || shown.startsWith(explanation + QLatin1Char('\n')), qPrintable(shown));
        QCOMPARE(shown == explanation, !(code & 0x1000000u));
    } else {
        QCOMPARE(shown, explanation);
    }
}

// The other report form: its own text with the code as a signed number, and the focus on the control.
void tst_AccessLayer::writeFailureInExchange()
{
    QDialog dialog;
    auto* edit = new QLineEdit(&dialog);
    edit->setObjectName(QStringLiteral("edtInterval"));
    auto* other = new QLineEdit(&dialog);
    other->setObjectName(QStringLiteral("edtOther"));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    other->setFocus();
    QVERIFY(!FailPropertyExchange(edit, "QuotaMinWarningMsgGap", 0xE0100004u));
    QCOMPARE(m_platform->messages(),
             QStringList{QStringLiteral("Failed to update property QuotaMinWarningMsgGap, error -535822332.")});
    QCOMPARE(Harness::focusName(), QStringLiteral("edtInterval"));
}

// Numbered and printf-style inserts, %%, missing inserts, and inserts that are never rescanned.
void tst_AccessLayer::formatInserts_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QStringList>("inserts");
    QTest::addColumn<QString>("expected");
    QTest::addRow("two") << QStringLiteral("%2 then %1") << QStringList{QStringLiteral("a"), QStringLiteral("b")}
                         << QStringLiteral("b then a");
    QTest::addRow("printf forms") << QStringLiteral("Failed %1!s!, error %2!d!.")
                                  << QStringList{QStringLiteral("X"), QStringLiteral("-5")}
                                  << QStringLiteral("Failed X, error -5.");
    QTest::addRow("insert not rescanned") << QStringLiteral("%1 %2") << QStringList{QStringLiteral("%2"), QStringLiteral("b")}
                                          << QStringLiteral("%2 b");
    QTest::addRow("percent") << QStringLiteral("100%% of %1") << QStringList{QStringLiteral("x")}
                             << QStringLiteral("100% of x");
    QTest::addRow("missing insert") << QStringLiteral("[%3]") << QStringList{} << QStringLiteral("[]");
    QTest::addRow("trailing percent") << QStringLiteral("50%") << QStringList{} << QStringLiteral("50%");
    QTest::addRow("unclosed bang") << QStringLiteral("%1!s") << QStringList{QStringLiteral("v")}
                                   << QStringLiteral("v!s");
}

void tst_AccessLayer::formatInserts()
{
    QFETCH(QString, format);
    QFETCH(QStringList, inserts);
    QFETCH(QString, expected);
    QCOMPARE(TaviFormat(format, inserts), expected);
}

// Lines broken at word boundaries, no word lost or split, an over-long word kept whole.
void tst_AccessLayer::wrapsAtSixty()
{
    const QString text = QStringLiteral(
        "The process cannot access the file because it is being used by another process and more words follow here.");
    const QString wrapped = WrapLines(text, 60);
    for (const QString& line : wrapped.split(QLatin1Char('\n')))
        QVERIFY2(line.size() <= 60, qPrintable(line));
    QCOMPARE(QString(wrapped).replace(QLatin1Char('\n'), QLatin1Char(' ')), text);
    // A word longer than a line stays whole.
    const QString word(80, QLatin1Char('x'));
    QCOMPARE(WrapLines(word, 60), word);
}

void tst_AccessLayer::stringTableHasNoDuplicates()
{
    QCOMPARE(TaviDuplicateStringIds(), QList<unsigned>());
    QVERIFY(TaviString(1).isEmpty()); // an unknown id is an empty text, not a crash
}

QTEST_MAIN(tst_AccessLayer)
#include "tst_accesslayer.moc"
