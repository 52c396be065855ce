#include "common/EnterRedirect.h"

#include <QAbstractButton>
#include <QApplication>
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
