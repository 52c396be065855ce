#include "common/TaviDialog.h"

#include <climits>

#include "common/PlatformServices.h"
#include "config/AccessLayer.h"
#include "config/MessageFormat.h"
#include "res/StringIds.h"
#include "res/StringTable.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr unsigned kHelpContextBase = 0x20000;
}

CTaviDialog::CTaviDialog(QWidget* parent, _tMailServer* server)
    : QDialog(parent), m_server(server)
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowIcon(QIcon(QStringLiteral(":/tavidlg/velbrook-32.png")));
}

CTaviDialog::~CTaviDialog() = default;

void CTaviDialog::ensureInitialised()
{
    if (m_initialised)
        return;
    m_initialised = true;
    initDialog();
    exchange(false);
}

void CTaviDialog::setVisible(bool visible)
{
    if (visible)
        ensureInitialised();
    QDialog::setVisible(visible);
}

void CTaviDialog::initDialog()
{
    if (m_usesServerCaption && m_server)
        SetServerCaption(this, m_server);
}

bool CTaviDialog::exchange(bool)
{
    return true;
}

void CTaviDialog::accept()
{
    onOK();
}

void CTaviDialog::reject()
{
    onCancel();
}

void CTaviDialog::onOK()
{
    if (exchange(true))
        closeAsOK();
}

void CTaviDialog::onCancel()
{
    closeAsCancel();
}

void CTaviDialog::closeAsCancel()
{
    done(Id::Cancel);
}

void CTaviDialog::closeAsOK()
{
    done(Id::Ok);
}

void CTaviDialog::showHelp()
{
    platform().showHelp(this, m_helpContext + kHelpContextBase);
}

QDialogButtonBox* CTaviDialog::createButtonBox(bool withHelp)
{
    auto* box = new QDialogButtonBox(this);
    box->setObjectName(QStringLiteral("buttonBox"));
    m_okButton = box->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    m_okButton->setObjectName(QStringLiteral("btnOK"));
    m_okButton->setDefault(true);
    m_cancelButton = box->addButton(tr("Cancel"), QDialogButtonBox::RejectRole);
    m_cancelButton->setObjectName(QStringLiteral("btnCancel"));
    if (withHelp) {
        m_helpButton = box->addButton(tr("&Help"), QDialogButtonBox::HelpRole);
        m_helpButton->setObjectName(QStringLiteral("btnHelp"));
        m_helpButton->setAutoDefault(false);
        connect(box, &QDialogButtonBox::helpRequested, this, &CTaviDialog::showHelp);
    }
    connect(box, &QDialogButtonBox::accepted, this, &CTaviDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &CTaviDialog::reject);
    return box;
}

bool parseUnsigned(const QString& text, quint32 min, quint32 max, quint32& value)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.size() > 10)
        return false;
    for (const QChar c : trimmed) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    const qulonglong number = trimmed.toULongLong();
    if (number < min || number > max)
        return false;
    value = quint32(number);
    return true;
}

bool CTaviDialog::exchangeNumber(bool save, QLineEdit* edit, quint32& value, quint32 min, quint32 max)
{
    if (!save) {
        edit->setText(QString::number(value));
        return true;
    }
    if (parseUnsigned(edit->text(), min, max, value))
        return true;
    const QString text = (min == 0 && max == 0xFFFFFFFFu)
        ? TaviString(IDS_TAVI_PARSE_UINT)
        : TaviFormat(TaviString(IDS_TAVI_RANGE_UINT), {QString::number(min), QString::number(max)});
    taviMessageBox(text, Mb::Ok | Mb::IconExclamation);
    edit->setFocus();
    edit->selectAll();
    return false;
}

void CTaviDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        showHelp();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void setEditText(QLineEdit* edit, const QString& text)
{
    if (!edit)
        return;
    if (text.size() > edit->maxLength())
        edit->setMaxLength(int(qMin<qsizetype>(text.size(), INT_MAX)));
    edit->setText(text);
}
