// Small pieces the schedule and routing dialogs share.
#pragma once

#include <QList>

class QAbstractButton;
class QDialog;
class QWidget;

// Enter pressed while one of some edits has the focus presses a button of the dialog (Add, Modify)
// instead of its default button; elsewhere Enter keeps pressing OK. A disabled button makes Enter do
// nothing there.
void redirectEnter(QWidget* dialog, const QList<QWidget*>& edits, QAbstractButton* button);

// The layout of the two schedule editors: the time field and its buttons in a column on the left (a
// null entry leaves a gap), the labelled list with its note on the right, the dialog's buttons below.
void layOutScheduleEditor(QDialog* dialog, const QList<QWidget*>& left, QWidget* listLabel, QWidget* list,
                          QWidget* note, QWidget* buttonBox);
