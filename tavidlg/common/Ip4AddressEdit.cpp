#include "common/Ip4AddressEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <QStyleOptionFrame>

#include <utility>

namespace {

// 0 to 255 in plain decimal, without leading zeros; an empty field is allowed.
const QRegularExpression& octetPattern()
{
    static const QRegularExpression pattern(QStringLiteral("(25[0-5]|2[0-4][0-9]|1[0-9]{2}|[1-9]?[0-9])?"));
    return pattern;
}

bool isOctet(const QString& text)
{
    static const QRegularExpression whole(QStringLiteral("\\A(?:25[0-5]|2[0-4][0-9]|1[0-9]{2}|[1-9]?[0-9])\\z"));
    return whole.match(text).hasMatch();
}

} // namespace

CIp4AddressEdit::CIp4AddressEdit(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_MacShowFocusRect);
    auto* layout = new QHBoxLayout(this);
    const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
    layout->setContentsMargins(frame + 1, frame, frame + 1, frame);
    layout->setSpacing(0);
    auto* validator = new QRegularExpressionValidator(octetPattern(), this);
    const int fieldWidth = fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 2;
    for (int i = 0; i < 4; ++i) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QStringLiteral("fld%1").arg(i));
        edit->setFrame(false);
        edit->setAlignment(Qt::AlignCenter);
        edit->setMaxLength(3);
        edit->setValidator(validator);
        edit->setFixedWidth(fieldWidth);
        edit->setAttribute(Qt::WA_MacShowFocusRect, false);
        edit->installEventFilter(this);
        // Only the first field takes the focus by Tab, so that Tab leaves the control as a whole.
        edit->setFocusPolicy(i == 0 ? Qt::StrongFocus : Qt::ClickFocus);
        connect(edit, &QLineEdit::textEdited, this, [this, i] { onTextEdited(i); });
        connect(edit, &QLineEdit::textChanged, this, &CIp4AddressEdit::addressChanged);
        m_fields[std::size_t(i)] = edit;
        layout->addWidget(edit);
        if (i < 3) {
            auto* dot = new QLabel(tr("."), this);
            dot->setAlignment(Qt::AlignCenter);
            layout->addWidget(dot);
        }
    }
    layout->addStretch(1);
    setFocusProxy(m_fields[0]);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

CIp4AddressEdit::~CIp4AddressEdit() = default;

bool CIp4AddressEdit::isComplete() const
{
    return filledFieldCount() == 4;
}

bool CIp4AddressEdit::isBlank() const
{
    return filledFieldCount() == 0;
}

int CIp4AddressEdit::filledFieldCount() const
{
    int count = 0;
    for (const QLineEdit* field : m_fields)
        count += field->text().isEmpty() ? 0 : 1;
    return count;
}

quint32 CIp4AddressEdit::address() const
{
    quint32 value = 0;
    for (const QLineEdit* field : m_fields)
        value = (value << 8) | (field->text().toUInt() & 0xFFu);
    return value;
}

void CIp4AddressEdit::setAddress(quint32 address)
{
    for (int i = 0; i < 4; ++i)
        m_fields[std::size_t(i)]->setText(QString::number((address >> (24 - 8 * i)) & 0xFFu));
}

bool CIp4AddressEdit::setAddressText(const QString& text)
{
    const QStringList parts = text.trimmed().split(QLatin1Char('.'));
    if (parts.size() != 4)
        return false;
    for (const QString& part : parts) {
        if (!isOctet(part))
            return false;
    }
    for (int i = 0; i < 4; ++i)
        m_fields[std::size_t(i)]->setText(parts[i]);
    return true;
}

QString CIp4AddressEdit::text() const
{
    QStringList parts;
    for (const QLineEdit* field : m_fields)
        parts.append(field->text());
    return parts.join(QLatin1Char('.'));
}

void CIp4AddressEdit::clear()
{
    for (QLineEdit* field : m_fields)
        field->clear();
}

int CIp4AddressEdit::indexOf(QObject* field) const
{
    for (int i = 0; i < 4; ++i) {
        if (m_fields[std::size_t(i)] == field)
            return i;
    }
    return -1;
}

void CIp4AddressEdit::focusField(int index, bool atStart)
{
    QLineEdit* field = m_fields[std::size_t(index)];
    field->setFocus(atStart ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    field->deselect();
    field->setCursorPosition(atStart ? 0 : int(field->text().size()));
}

void CIp4AddressEdit::onTextEdited(int index)
{
    QLineEdit* field = m_fields[std::size_t(index)];
    if (index < 3 && field->text().size() == 3 && field->cursorPosition() == 3) {
        focusField(index + 1, true);
        m_fields[std::size_t(index + 1)]->selectAll();
        m_autoAdvancedTo = index + 1;
    }
}

bool CIp4AddressEdit::handleKey(int index, QKeyEvent* key)
{
    QLineEdit* field = m_fields[std::size_t(index)];
    const bool noSelection = !field->hasSelectedText();
    const int autoAdvancedTo = std::exchange(m_autoAdvancedTo, -1);
    if (key->text() == QLatin1String(".") || key->text() == QLatin1String(" ")) {
        // A full stop after a third digit has already been taken care of by the move.
        if (autoAdvancedTo != index && index < 3 && !field->text().isEmpty()) {
            focusField(index + 1, true);
            m_fields[std::size_t(index + 1)]->selectAll();
        }
        return true;
    }
    if (key->matches(QKeySequence::Paste)) {
        const QString pasted = QApplication::clipboard()->text();
        return setAddressText(pasted);
    }
    switch (key->key()) {
    case Qt::Key_Backspace:
        if (index > 0 && noSelection && field->cursorPosition() == 0) {
            focusField(index - 1, false);
            return true;
        }
        break;
    case Qt::Key_Left:
        if (index > 0 && noSelection && field->cursorPosition() == 0 && key->modifiers() == Qt::NoModifier) {
            focusField(index - 1, false);
            return true;
        }
        break;
    case Qt::Key_Right:
        if (index < 3 && noSelection && field->cursorPosition() == field->text().size()
            && key->modifiers() == Qt::NoModifier) {
            focusField(index + 1, true);
            return true;
        }
        break;
    case Qt::Key_Backtab:
        // Shift+Tab leaves the control backwards from whichever field has the focus.
        if (index > 0) {
            m_fields[0]->setFocus(Qt::BacktabFocusReason);
            focusNextPrevChild(false);
            return true;
        }
        break;
    default:
        break;
    }
    return false;
}

bool CIp4AddressEdit::eventFilter(QObject* watched, QEvent* event)
{
    const int index = indexOf(watched);
    if (index >= 0 && event->type() == QEvent::KeyPress)
        return handleKey(index, static_cast<QKeyEvent*>(event));
    if (index >= 0 && event->type() == QEvent::ShortcutOverride) {
        // Claim Paste so that a full address can be pasted into any field.
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Paste)) {
            event->accept();
            return false;
        }
    }
    if (index >= 0 && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        update();
    return QWidget::eventFilter(watched, event);
}

void CIp4AddressEdit::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    option.rect = rect();
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.midLineWidth = 0;
    option.state |= QStyle::State_Sunken;
    bool focused = false;
    for (const QLineEdit* field : m_fields)
        focused = focused || field->hasFocus();
    if (focused)
        option.state |= QStyle::State_HasFocus;
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
}
