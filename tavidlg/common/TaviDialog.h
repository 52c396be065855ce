// The base of the library's dialogs.
//
// Life of a dialog: the constructor builds the widgets (stable objectNames) and reads what the dialog
// reads at construction; the first time it is shown initDialog() runs (the caption gets the server's
// name there) and then exchange(false) fills the controls. OK runs onOK(), whose default is
// exchange(true) and, when that succeeds, closing with 1. Cancel, Escape and the close box end with 2.
// F1 and the Help button ask the platform services for help at helpContext() + 0x20000.
#pragma once

#include "entry/TaviGlobal.h"

#include <QDialog>

#include <velbrook/StoreBase.h>

class QDialogButtonBox;
class QLineEdit;
class QPushButton;

class TAVI_EXPORT CTaviDialog : public QDialog {
    Q_OBJECT
public:
    CTaviDialog(QWidget* parent, _tMailServer* server);
    ~CTaviDialog() override;

    _tMailServer* server() const { return m_server; }
    unsigned helpContext() const { return m_helpContext; }
    void setHelpContext(unsigned context) { m_helpContext = context; }
    // Whether initDialog() puts the server's name into the caption (on unless the caption is given).
    void setUsesServerCaption(bool on) { m_usesServerCaption = on; }

    bool isInitialised() const { return m_initialised; }
    // Runs the initialisation now if it has not run (tests drive a dialog without showing it).
    void ensureInitialised();

    void setVisible(bool visible) override;

public Q_SLOTS:
    void accept() override;
    void reject() override;
    void showHelp();

protected:
    // Reads and prepares; the base sets the caption. Controls are filled afterwards by exchange(false).
    virtual void initDialog();
    // Moves values between the controls and the dialog's members; false keeps the dialog open (the
    // failing step has already told the person and focused the control).
    virtual bool exchange(bool save);
    virtual void onOK();
    virtual void onCancel();
    // An unchanged OK closes as Cancel, so that the caller knows that nothing was written.
    void closeAsCancel();
    void closeAsOK();

    // OK, Cancel and (optionally) Help, named btnOK, btnCancel and btnHelp and wired to the handlers.
    QDialogButtonBox* createButtonBox(bool withHelp = true);
    QPushButton* okButton() const { return m_okButton; }
    QPushButton* cancelButton() const { return m_cancelButton; }
    QPushButton* helpButton() const { return m_helpButton; }

    // An unsigned decimal number in an edit. Saving checks min..max: outside it (or not a number) the
    // toolkit's range message is shown, the edit gets the focus with its text selected, and false is
    // returned.
    bool exchangeNumber(bool save, QLineEdit* edit, quint32& value, quint32 min, quint32 max);

    void keyPressEvent(QKeyEvent* event) override;

private:
    _tMailServer* m_server = nullptr;
    unsigned m_helpContext = 0;
    bool m_initialised = false;
    bool m_usesServerCaption = true;
    QPushButton* m_okButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QPushButton* m_helpButton = nullptr;
};

// Puts a stored text into an edit whole: an edit's usual limit (32767 characters) is raised for a longer
// one, so that showing a value never cuts it short and an untouched OK never writes it back shorter.
// Every dialog and page fills its text edits with it.
TAVI_EXPORT void setEditText(QLineEdit* edit, const QString& text);

// Parses an unsigned decimal number (blanks around it allowed) within min..max.
TAVI_EXPORT bool parseUnsigned(const QString& text, quint32 min, quint32 max, quint32& value);
