#include "maillist/MailListPage.h"

#include "maillist/MailListSheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

CMailListPage::CMailListPage(CMailListSheet* sheet, const QString& title) : CTaviPropertyPage(title, sheet), m_sheet(sheet)
{
}

void CMailListPage::markModified()
{
    if (!m_loading)
        setModified(true);
}

void CMailListPage::bind(Kind kind, QWidget* widget, const char* property)
{
    m_bindings.push_back(Binding{kind, widget, property, {}, 0, {}});
}

void CMailListPage::bindText(QLineEdit* edit, const char* property)
{
    bind(Kind::LineText, edit, property);
    connect(edit, &QLineEdit::textEdited, this, &CMailListPage::markModified);
}

void CMailListPage::bindText(QPlainTextEdit* edit, const char* property)
{
    bind(Kind::BoxText, edit, property);
    connect(edit, &QPlainTextEdit::textChanged, this, &CMailListPage::markModified);
}

void CMailListPage::bindNumber(QSpinBox* spin, const char* property)
{
    bind(Kind::Number, spin, property);
    connect(spin, &QSpinBox::valueChanged, this, &CMailListPage::markModified);
}

void CMailListPage::bindFlag(QCheckBox* box, const char* property)
{
    bind(Kind::Flag, box, property);
    connect(box, &QCheckBox::toggled, this, &CMailListPage::markModified);
}

void CMailListPage::bindChoice(QComboBox* combo, const char* property)
{
    bind(Kind::Choice, combo, property);
    connect(combo, &QComboBox::currentIndexChanged, this, &CMailListPage::markModified);
}

void CMailListPage::bindLines(QPlainTextEdit* edit, const char* property)
{
    bind(Kind::Lines, edit, property);
    connect(edit, &QPlainTextEdit::textChanged, this, &CMailListPage::markModified);
}

QStringList CMailListPage::lines(const QPlainTextEdit* edit)
{
    QStringList out;
    for (const QString& line : edit->toPlainText().split(QLatin1Char('\n'))) {
        const QString t = line.trimmed();
        if (!t.isEmpty())
            out.append(t);
    }
    return out;
}

void CMailListPage::initPage()
{
    for (Binding& b : m_bindings) {
        switch (b.kind) {
        case Kind::LineText:
        case Kind::BoxText:
            b.text = m_sheet->readString(b.property);
            break;
        case Kind::Lines:
            b.lines = m_sheet->readMultiString(b.property);
            break;
        default:
            b.number = m_sheet->readNumber(b.property);
        }
    }
}

bool CMailListPage::exchange(bool save)
{
    if (save)
        return true;
    m_loading = true;
    for (const Binding& b : m_bindings) {
        switch (b.kind) {
        case Kind::LineText:
            static_cast<QLineEdit*>(b.widget)->setText(b.text);
            break;
        case Kind::BoxText:
            static_cast<QPlainTextEdit*>(b.widget)->setPlainText(b.text);
            break;
        case Kind::Lines:
            static_cast<QPlainTextEdit*>(b.widget)->setPlainText(b.lines.join(QLatin1Char('\n')));
            break;
        case Kind::Number: {
            auto* spin = static_cast<QSpinBox*>(b.widget);
            spin->setValue(int(qMin<quint32>(b.number, quint32(spin->maximum()))));
            break;
        }
        case Kind::Flag:
            static_cast<QCheckBox*>(b.widget)->setChecked(b.number != 0);
            break;
        case Kind::Choice: {
            auto* combo = static_cast<QComboBox*>(b.widget);
            combo->setCurrentIndex(qMax(0, combo->findData(b.number)));
            break;
        }
        }
    }
    m_loading = false;
    return true;
}

bool CMailListPage::apply()
{
    for (Binding& b : m_bindings) {
        switch (b.kind) {
        case Kind::LineText:
            m_sheet->writeIfChanged(b.property, static_cast<QLineEdit*>(b.widget)->text().trimmed(), b.text);
            break;
        case Kind::BoxText:
            m_sheet->writeIfChanged(b.property, static_cast<QPlainTextEdit*>(b.widget)->toPlainText(), b.text);
            break;
        case Kind::Lines:
            m_sheet->writeIfChanged(b.property, lines(static_cast<QPlainTextEdit*>(b.widget)), b.lines);
            break;
        case Kind::Number: {
            auto* spin = static_cast<QSpinBox*>(b.widget);
            // A stored value above the box's range is kept unless the administrator changed it.
            const quint32 shown = quint32(spin->value());
            if (shown != qMin<quint32>(b.number, quint32(spin->maximum())))
                m_sheet->writeIfChanged(b.property, shown, b.number);
            break;
        }
        case Kind::Flag:
            m_sheet->writeFlagIfChanged(b.property, static_cast<QCheckBox*>(b.widget)->isChecked() ? 1 : 0, b.number);
            break;
        case Kind::Choice: {
            auto* combo = static_cast<QComboBox*>(b.widget);
            if (combo->findData(b.number) >= 0 || combo->currentIndex() != 0)
                m_sheet->writeIfChanged(b.property, combo->currentData().toUInt(), b.number);
            break;
        }
        }
    }
    return true;
}
