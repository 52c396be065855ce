#include "schedule/ScheduleWidgets_p.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace {

// Watches the dialog: key events the edits leave unhandled reach it on their way up.
class CEnterRedirect : public QObject {
public:
    CEnterRedirect(QWidget* dialog, const QList<QWidget*>& edits, QAbstractButton* button)
        : QObject(dialog), m_edits(edits), m_button(button)
    {
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) || key->modifiers() & ~Qt::KeypadModifier)
            return false;
        QWidget* focus = QApplication::focusWidget();
        bool inEdit = false;
        for (QWidget* edit : std::as_const(m_edits))
            inEdit = inEdit || (focus && (focus == edit || edit->isAncestorOf(focus)));
        if (!inEdit)
            return false;
        if (m_button && m_button->isEnabled())
            m_button->click();
        return true;
    }

private:
    QList<QWidget*> m_edits;
    QPointer<QAbstractButton> m_button;
};

} // namespace

void redirectEnter(QWidget* dialog, const QList<QWidget*>& edits, QAbstractButton* button)
{
    dialog->installEventFilter(new CEnterRedirect(dialog, edits, button));
}

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
