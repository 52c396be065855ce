// Asks for one text value: a prompt over a multi-line edit, OK, Cancel and Help. Used by dialogs that
// need a longer free text (a message, a list typed by hand); it reads and writes no properties itself.
#pragma once

#include "common/TaviDialog.h"

class QLabel;
class QPlainTextEdit;

class TAVI_EXPORT CTextEntryDlg : public CTaviDialog {
    Q_OBJECT
public:
    // A null caption (QString(), not an empty text) takes the caption from captionId, a null prompt
    // likewise from promptId.
    CTextEntryDlg(QWidget* parent, const QString& caption, unsigned captionId, const QString& prompt,
                  unsigned promptId, unsigned helpContext, const QString& initialValue);
    ~CTextEntryDlg() override;

    QString initialValue() const { return m_initialValue; }
    // The edited text, set by OK.
    QString value() const { return m_value; }

protected:
    void initDialog() override;
    bool exchange(bool save) override;
    void onOK() override;

private:
    QLabel* m_promptLabel = nullptr;
    QPlainTextEdit* m_edit = nullptr;
    QString m_caption;
    QString m_prompt;
    unsigned m_textHelpContext = 0;
    QString m_initialValue;
    QString m_value;
};
