// The time edit of a time-of-day schedule with its spin buttons: four digits, hours then minutes. A step
// adds minutes with wrap and carry; holding a button (or an arrow key) down steps by ever more minutes.
#pragma once

#include <QAbstractSpinBox>
#include <QElapsedTimer>
#include <QLineEdit>

class CTimeOfDaySpin : public QAbstractSpinBox {
public:
    explicit CTimeOfDaySpin(QWidget* parent);

    // The edit inside (the spin box keeps its own accessor protected).
    QLineEdit* edit() const { return lineEdit(); }

    // Minutes per step after a button has been held for at least the given time.
    struct Acceleration {
        int afterMs;
        int minutes;
    };
    static const Acceleration kAcceleration[4];
    static int stepMinutes(qint64 heldMs);

    // Rewrites a valid time as four digits; leaves anything else as typed.
    void normalise();
    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QElapsedTimer m_held;
};
