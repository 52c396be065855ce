#include "schedule/ScheduleWidgets_p.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QWidget>

void layOutScheduleEditor(QDialog* dialog, const QList<QWidget*>& left, QWidget* listLabel, QWidget* list,
                          QWidget* note, QWidget* buttonBox)
{
    auto* leftColumn = new QVBoxLayout;
    for (QWidget* w : left) {
        if (w)
            leftColumn->addWidget(w);
        else
            leftColumn->addSpacing(12);
    }
    leftColumn->addStretch(1);
    auto* rightColumn = new QVBoxLayout;
    rightColumn->addWidget(listLabel);
    rightColumn->addWidget(list, 1);
    rightColumn->addWidget(note);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addLayout(leftColumn);
    columns->addLayout(rightColumn, 1);
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(columns, 1);
    layout->addWidget(buttonBox);
}
