#include "common/Reminder.h"

#include "common/PlatformServices.h"
#include "res/StringTable.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

CReminder::CReminder(QWidget* parent, unsigned messageId, const QString& rememberKey, unsigned captionId,
                     unsigned flags)
    : QDialog(parent), m_message(TaviString(messageId)), m_rememberKey(rememberKey), m_flags(flags),
      m_captionId(captionId)
{
    setObjectName(QStringLiteral("CReminder"));
    setWindowTitle(tr("Reminder"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    m_icon = new QLabel(this);
    m_icon->setObjectName(QStringLiteral("lblIcon"));
    m_icon->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    m_messageLabel = new QLabel(this);
    m_messageLabel->setObjectName(QStringLiteral("lblMessage"));
    m_messageLabel->setTextFormat(Qt::PlainText);
    m_messageLabel->setWordWrap(true);
    m_messageLabel->setMinimumWidth(fontMetrics().averageCharWidth() * 56);
    m_messageLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_dontShowCheck = new QCheckBox(tr("&Don't show this dialog again"), this);
    m_dontShowCheck->setObjectName(QStringLiteral("chkDontShowAgain"));

    auto* box = new QDialogButtonBox(this);
    m_okButton = box->addButton(tr("&OK"), QDialogButtonBox::AcceptRole);
    m_okButton->setObjectName(QStringLiteral("btnOK"));
    m_okButton->setDefault(true);
    m_cancelButton = box->addButton(tr("&Cancel"), QDialogButtonBox::RejectRole);
    m_cancelButton->setObjectName(QStringLiteral("btnCancel"));
    connect(box, &QDialogButtonBox::accepted, this, &CReminder::accept);
    connect(box, &QDialogButtonBox::rejected, this, &CReminder::reject);

    auto* top = new QHBoxLayout;
    top->addWidget(m_icon);
    top->addSpacing(8);
    top->addWidget(m_messageLabel, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addSpacing(6);
    layout->addWidget(m_dontShowCheck);
    layout->addWidget(box);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(m_dontShowCheck, m_okButton);
    setTabOrder(m_okButton, m_cancelButton);

    // Without the settings nothing can be remembered, and the reminder always shows.
    m_settingsOpen = !m_rememberKey.isEmpty() && platform().reminderSettingsAvailable();
    if (m_settingsOpen) {
        if (const std::optional<quint32> value = platform().reminderValue(m_rememberKey))
            m_show = *value == 0;
    }
}

CReminder::~CReminder()
{
    if (m_settingsOpen && m_show && m_dontShow)
        platform().setReminderValue(m_rememberKey, 1);
}

int CReminder::run()
{
    if (!m_show)
        return 1;
    const int result = exec();
    return result == QDialog::Accepted ? 1 : 2;
}

void CReminder::setVisible(bool visible)
{
    if (visible && !m_initialised) {
        m_initialised = true;
        initDialog();
    }
    QDialog::setVisible(visible);
}

void CReminder::initDialog()
{
    if ((m_flags & Mb::ButtonMask) == 0)
        m_cancelButton->hide();
    QStyle::StandardPixmap icon = QStyle::SP_MessageBoxInformation;
    switch (m_flags & Mb::IconMask) {
    case Mb::IconStop:
        icon = QStyle::SP_MessageBoxCritical;
        break;
    case Mb::IconQuestion:
        icon = QStyle::SP_MessageBoxQuestion;
        break;
    case Mb::IconExclamation:
        icon = QStyle::SP_MessageBoxWarning;
        break;
    default:
        break;
    }
    const int extent = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    m_icon->setPixmap(style()->standardIcon(icon, nullptr, this).pixmap(extent, extent));
    m_icon->setProperty("iconKind", int(icon));
    if (m_captionId != 0)
        setWindowTitle(TaviString(m_captionId));
    m_messageLabel->setText(m_message);
    m_okButton->setFocus();
}

void CReminder::accept()
{
    // Only OK takes the box; Cancel leaves it clear, so a cancelled reminder is never silenced.
    m_dontShow = m_dontShowCheck->isChecked();
    QDialog::accept();
}
