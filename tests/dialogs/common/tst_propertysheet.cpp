// The property sheet and page bases, with spy pages that record what the sheet asked of them.
#include "DialogHarness.h"

#include "common/PropertySheet.h"
#include "common/TaviDialog.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

class SpyPage : public CTaviPropertyPage {
public:
    SpyPage(const QString& title, QStringList* log) : CTaviPropertyPage(title), m_log(log)
    {
        setObjectName(title);
        edit = new QLineEdit(this);
        edit->setObjectName(QStringLiteral("edtValue"));
        (new QVBoxLayout(this))->addWidget(edit);
    }
    QLineEdit* edit;
    bool refuseLeave = false;
    bool failApply = false;

protected:
    void initPage() override { m_log->append(title() + QStringLiteral(":init")); }
    bool exchange(bool save) override
    {
        m_log->append(title() + (save ? QStringLiteral(":save") : QStringLiteral(":load")));
        return true;
    }
    bool onKillActive() override
    {
        m_log->append(title() + QStringLiteral(":kill"));
        if (refuseLeave)
            edit->setFocus();
        return !refuseLeave;
    }
    bool apply() override
    {
        m_log->append(title() + QStringLiteral(":apply"));
        return !failApply;
    }
    void onCancel() override { m_log->append(title() + QStringLiteral(":cancel")); }

private:
    QStringList* m_log;
};

struct Sheet {
    QStringList log;
    CTaviPropertySheet sheet{QStringLiteral("Test sheet"), nullptr};
    SpyPage* pages[3];
    Sheet()
    {
        for (int i = 0; i < 3; ++i) {
            pages[i] = new SpyPage(QStringLiteral("P%1").arg(i), &log);
            sheet.addPage(pages[i]);
        }
    }
};

class OkAsCancelDialog : public CTaviDialog {
public:
    OkAsCancelDialog() : CTaviDialog(nullptr, nullptr)
    {
        edit = new QLineEdit(this);
        edit->setObjectName(QStringLiteral("edtNumber"));
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(edit);
        layout->addWidget(createButtonBox(false));
    }
    QLineEdit* edit;
    quint32 value = 7;
    int exchanges = 0;

protected:
    bool exchange(bool save) override
    {
        ++exchanges;
        return exchangeNumber(save, edit, value, 1, 365);
    }
};

} // namespace

class tst_PropertySheet : public CDialogTest {
    Q_OBJECT
public:
    tst_PropertySheet() : CDialogTest(false) {}

private Q_SLOTS:
    void pagesInitialisedOnFirstActivationOnly();
    void okAppliesOnlyPagesThatWereShown();
    void refusedKillActiveKeepsPage();
    void failedApplyBringsPageToFront();
    void applyNowFollowsModified();
    void cancelToCloseAndCancel();
    void helpUsesActivePageContext();
    void dialogRangeCheck_data();
    void dialogRangeCheck();
};

// A page is set up (init, then load) the first time it is shown and never again; leaving asks it first.
void tst_PropertySheet::pagesInitialisedOnFirstActivationOnly()
{
    Sheet s;
    s.sheet.setStartPage(1);
    s.sheet.show();
    QCOMPARE(s.log, (QStringList{QStringLiteral("P1:init"), QStringLiteral("P1:load")}));
    QCOMPARE(s.sheet.activeIndex(), 1);
    s.log.clear();
    s.sheet.tabs()->setCurrentIndex(0);
    s.sheet.tabs()->setCurrentIndex(1);
    s.sheet.tabs()->setCurrentIndex(0);
    QCOMPARE(s.log, (QStringList{QStringLiteral("P1:kill"), QStringLiteral("P0:init"), QStringLiteral("P0:load"),
                                 QStringLiteral("P0:kill"), QStringLiteral("P1:kill")}));
    QVERIFY(!s.pages[2]->isInitialised());
    s.sheet.reject();
}

// OK asks the active page to let go, then applies only the pages that were set up, in page order.
void tst_PropertySheet::okAppliesOnlyPagesThatWereShown()
{
    Sheet s;
    s.sheet.show();
    s.sheet.tabs()->setCurrentIndex(2);
    s.log.clear();
    Harness::click(s.sheet.okButton());
    QCOMPARE(s.log, (QStringList{QStringLiteral("P2:kill"), QStringLiteral("P0:apply"), QStringLiteral("P2:apply")}));
    QCOMPARE(s.sheet.result(), 1);
    QVERIFY(!s.sheet.isVisible());
}

// A page that refuses to be left keeps the tab, the focus and the sheet open, and nothing is applied.
void tst_PropertySheet::refusedKillActiveKeepsPage()
{
    Sheet s;
    s.sheet.show();
    QVERIFY(QTest::qWaitForWindowActive(&s.sheet));
    s.pages[0]->refuseLeave = true;
    s.sheet.tabs()->setCurrentIndex(2);
    QCOMPARE(s.sheet.activeIndex(), 0);
    QCOMPARE(s.sheet.tabs()->currentIndex(), 0);
    QVERIFY(!s.pages[2]->isInitialised());
    QCOMPARE(QApplication::focusWidget(), s.pages[0]->edit);
    // OK is refused too, and nothing is applied.
    s.log.clear();
    Harness::click(s.sheet.okButton());
    QVERIFY(s.sheet.isVisible());
    QVERIFY(!s.log.contains(QStringLiteral("P0:apply")));
    s.sheet.reject();
}

// Applying stops at the first page that fails, which comes to the front; the sheet stays open.
void tst_PropertySheet::failedApplyBringsPageToFront()
{
    Sheet s;
    s.sheet.show();
    s.sheet.tabs()->setCurrentIndex(1);
    s.sheet.tabs()->setCurrentIndex(2);
    s.pages[1]->failApply = true;
    s.log.clear();
    Harness::click(s.sheet.okButton());
    QVERIFY(s.sheet.isVisible());
    QCOMPARE(s.sheet.activeIndex(), 1);
    QCOMPARE(s.log, (QStringList{QStringLiteral("P2:kill"), QStringLiteral("P0:apply"), QStringLiteral("P1:apply")}));
    s.sheet.reject();
    QCOMPARE(s.sheet.result(), 2);
}

// Apply is enabled by a modified page only, applies without closing, and stays on after a failure.
void tst_PropertySheet::applyNowFollowsModified()
{
    Sheet s;
    s.sheet.show();
    QVERIFY(!s.sheet.applyButton()->isEnabled());
    s.pages[0]->setModified();
    QVERIFY(s.sheet.applyButton()->isEnabled());
    s.log.clear();
    Harness::click(s.sheet.applyButton());
    QCOMPARE(s.log, (QStringList{QStringLiteral("P0:kill"), QStringLiteral("P0:apply")}));
    QVERIFY(!s.sheet.applyButton()->isEnabled());
    QVERIFY(!s.pages[0]->isModified());
    QVERIFY(s.sheet.isVisible());
    // A failed apply leaves the page modified.
    s.pages[0]->setModified();
    s.pages[0]->failApply = true;
    Harness::click(s.sheet.applyButton());
    QVERIFY(s.pages[0]->isModified());
    QVERIFY(s.sheet.applyButton()->isEnabled());
    s.sheet.reject();
}

// After "cancel to close" OK reads Close and Cancel is off, yet Escape still cancels every shown page.
void tst_PropertySheet::cancelToCloseAndCancel()
{
    Sheet s;
    s.sheet.show();
    s.sheet.tabs()->setCurrentIndex(1);
    s.pages[1]->cancelToClose();
    QCOMPARE(s.sheet.okButton()->text(), QStringLiteral("Close"));
    QVERIFY(!s.sheet.cancelButton()->isEnabled());
    s.log.clear();
    // Escape still closes, as Cancel, and every shown page hears of it; nothing is applied.
    QTest::keyClick(&s.sheet, Qt::Key_Escape);
    QCOMPARE(s.sheet.result(), 2);
    QCOMPARE(s.log, (QStringList{QStringLiteral("P0:cancel"), QStringLiteral("P1:cancel")}));
}

// Help (button and F1) uses the active page's context, not the first page's.
void tst_PropertySheet::helpUsesActivePageContext()
{
    Sheet s;
    s.pages[0]->setHelpContext(2100);
    s.pages[1]->setHelpContext(2101);
    s.sheet.show();
    s.sheet.tabs()->setCurrentIndex(1);
    Harness::click(s.sheet.helpButton());
    QTest::keyClick(&s.sheet, Qt::Key_F1);
    const auto help = m_platform->callsOf(QStringLiteral("help"));
    QCOMPARE(help.size(), 2);
    for (const CRecordedCall& call : help)
        QCOMPARE(call.style, 2101u + 0x20000u);
    s.sheet.reject();
}

// A number outside 1..365 (or no number) is refused with the range text, focus and selection on the edit,
// and leaves the stored value alone.
void tst_PropertySheet::dialogRangeCheck_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<quint32>("value");
    QTest::addRow("lowest") << QStringLiteral("1") << true << 1u;
    QTest::addRow("highest with blanks") << QStringLiteral(" 365 ") << true << 365u;
    QTest::addRow("zero") << QStringLiteral("0") << false << 7u;
    QTest::addRow("above") << QStringLiteral("366") << false << 7u;
    QTest::addRow("negative") << QStringLiteral("-1") << false << 7u;
    QTest::addRow("huge") << QStringLiteral("99999999999999999999") << false << 7u;
    QTest::addRow("letters") << QStringLiteral("12a") << false << 7u;
    QTest::addRow("empty") << QString() << false << 7u;
}

void tst_PropertySheet::dialogRangeCheck()
{
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    QFETCH(quint32, value);
    OkAsCancelDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    dialog.edit->setText(typed);
    auto* ok = Harness::control<QPushButton>(&dialog, "btnOK");
    ok->setFocus();
    Harness::click(ok);
    QCOMPARE(dialog.isVisible(), !accepted);
    QCOMPARE(dialog.value, value);
    if (!accepted) {
        const auto boxes = m_platform->callsOf(QStringLiteral("messageBox"));
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QStringLiteral("Enter a whole number from 1 to 365."));
        QCOMPARE(Harness::focusName(), QStringLiteral("edtNumber"));
        QCOMPARE(dialog.edit->selectedText(), typed);
        dialog.reject();
        QCOMPARE(dialog.result(), 2);
    } else {
        QCOMPARE(dialog.result(), 1);
    }
}

QTEST_MAIN(tst_PropertySheet)
#include "tst_propertysheet.moc"
