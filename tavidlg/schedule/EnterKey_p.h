// Enter pressed while one of some edits has the focus presses a button of the dialog (Add, Modify)
// instead of its default button; elsewhere Enter keeps pressing OK. A disabled button makes Enter do
// nothing there.
#pragma once

#include <QList>

class QAbstractButton;
class QWidget;

void redirectEnter(QWidget* dialog, const QList<QWidget*>& edits, QAbstractButton* button);
