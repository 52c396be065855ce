// Small pieces the schedule and routing dialogs share.
#pragma once

#include "common/EnterRedirect.h"

#include <QList>

class QDialog;
class QWidget;

// The layout of the two schedule editors: the time field and its buttons in a column on the left (a
// null entry leaves a gap), the labelled list with its note on the right, the dialog's buttons below.
void layOutScheduleEditor(QDialog* dialog, const QList<QWidget*>& left, QWidget* listLabel, QWidget* list,
                          QWidget* note, QWidget* buttonBox);
