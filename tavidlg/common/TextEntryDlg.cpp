#include "common/TextEntryDlg.h"

#include "res/StringTable.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

CTextEntryDlg::CTextEntryDlg(QWidget* parent, const QString& caption, unsigned captionId, const QString& prompt,
                             unsigned promptId, unsigned helpContext, const QString& initialValue)
    : CTaviDialog(parent, nullptr),
      m_caption(caption.isNull() ? TaviString(captionId) : caption),
      m_prompt(prompt.isNull() ? TaviString(promptId) : prompt),
      m_textHelpContext(helpContext),
      m_initialValue(initialValue),
      m_value(initialValue)
{
    setObjectName(QStringLiteral("CTextEntryDlg"));
    setUsesServerCaption(false);

    m_promptLabel = new QLabel(this);
    m_promptLabel->setObjectName(QStringLiteral("lblPrompt"));
    m_promptLabel->setWordWrap(true);
    m_edit = new QPlainTextEdit(this);
    m_edit->setObjectName(QStringLiteral("edtText"));
    m_edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_edit->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    // Tab moves on to the buttons, as in any dialog, rather than typing a tab character.
    m_edit->setTabChangesFocus(true);
    m_edit->setMinimumSize(fontMetrics().averageCharWidth() * 52, fontMetrics().lineSpacing() * 7);
    m_promptLabel->setBuddy(m_edit);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_promptLabel);
    layout->addWidget(m_edit, 1);
    layout->addWidget(createButtonBox(true));
    setTabOrder(m_edit, okButton());
}

CTextEntryDlg::~CTextEntryDlg() = default;

void CTextEntryDlg::initDialog()
{
    setHelpContext(m_textHelpContext);
    CTaviDialog::initDialog();
    setWindowTitle(m_caption);
    m_promptLabel->setText(m_prompt);
}

bool CTextEntryDlg::exchange(bool save)
{
    if (!save) {
        m_edit->setPlainText(m_value);
        m_edit->selectAll();
        m_edit->setFocus();
        return true;
    }
    m_value = m_edit->toPlainText();
    return true;
}

void CTextEntryDlg::onOK()
{
    exchange(true);
    // An unchanged value (case counts) closes as Cancel, so the caller knows there is nothing to write.
    // The edit keeps line ends as "\n"; an initial value written with "\r\n" is the same text.
    QString initial = m_initialValue;
    initial.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (m_value == initial)
        closeAsCancel();
    else
        closeAsOK();
}
