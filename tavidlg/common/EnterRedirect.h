// Enter in an entry field presses that field's Add (or Modify) button instead of the dialog's default.
#pragma once

#include "entry/TaviGlobal.h"

#include <QList>

class QAbstractButton;
class QWidget;

// Enter pressed while one of some edits has the focus presses a button of the dialog or page (Add,
// Modify) instead of its default button; elsewhere Enter keeps pressing OK. A disabled button makes
// Enter do nothing there.
TAVI_EXPORT void redirectEnter(QWidget* dialog, const QList<QWidget*>& edits, QAbstractButton* button);
