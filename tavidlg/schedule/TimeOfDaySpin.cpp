#include "schedule/TimeOfDaySpin_p.h"

#include "schedule/ToDScheduleText.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

const CTimeOfDaySpin::Acceleration CTimeOfDaySpin::kAcceleration[4] = {{0, 5}, {2000, 15}, {5000, 30}, {8000, 60}};

CTimeOfDaySpin::CTimeOfDaySpin(QWidget* parent) : QAbstractSpinBox(parent)
{
    lineEdit()->setMaxLength(4);
    lineEdit()->setText(QStringLiteral("0000"));
    setWrapping(true);
    setButtonSymbols(QAbstractSpinBox::UpDownArrows);
}

int CTimeOfDaySpin::stepMinutes(qint64 heldMs)
{
    int minutes = kAcceleration[0].minutes;
    for (const Acceleration& a : kAcceleration) {
        if (heldMs >= a.afterMs)
            minutes = a.minutes;
    }
    return minutes;
}

QAbstractSpinBox::StepEnabled CTimeOfDaySpin::stepEnabled() const
{
    return StepUpEnabled | StepDownEnabled;
}

void CTimeOfDaySpin::stepBy(int steps)
{
    // The position is the edit's number as far as it goes; the result is always a valid time.
    int position = 0;
    for (const QChar c : lineEdit()->text().trimmed()) {
        if (!c.isDigit())
            break;
        position = position * 10 + c.digitValue();
    }
    const int delta = steps * stepMinutes(m_held.isValid() ? m_held.elapsed() : 0);
    lineEdit()->setText(QString::fromStdString(ToDSchedule::formatTime(ToDSchedule::step(position, delta))));
    selectAll();
}

void CTimeOfDaySpin::normalise()
{
    if (const auto time = ToDSchedule::parseTime(lineEdit()->text().toStdString()))
        lineEdit()->setText(QString::fromStdString(ToDSchedule::formatTime(*time)));
}

void CTimeOfDaySpin::mousePressEvent(QMouseEvent* event)
{
    m_held.start();
    QAbstractSpinBox::mousePressEvent(event);
}

void CTimeOfDaySpin::mouseReleaseEvent(QMouseEvent* event)
{
    m_held.invalidate();
    QAbstractSpinBox::mouseReleaseEvent(event);
}

void CTimeOfDaySpin::keyPressEvent(QKeyEvent* event)
{
    const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (arrow && !event->isAutoRepeat())
        m_held.start();
    QAbstractSpinBox::keyPressEvent(event);
}

void CTimeOfDaySpin::keyReleaseEvent(QKeyEvent* event)
{
    if (!event->isAutoRepeat())
        m_held.invalidate();
    QAbstractSpinBox::keyReleaseEvent(event);
}

void CTimeOfDaySpin::focusOutEvent(QFocusEvent* event)
{
    normalise();
    QAbstractSpinBox::focusOutEvent(event);
}
