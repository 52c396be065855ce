// Helpers of the wizard tests: pages numbered from 1 as the wizards name them, Next, Back and choices by
// object name on the current page, and the texts of a page that do not fit.
#pragma once

#include "DialogHarness.h"

#include "wizards/Wizard.h"
#include "wizards/WizardListEditor.h"

#include <QAbstractButton>
#include <QLabel>
#include <QRadioButton>
#include <QWizard>

namespace WizardDriving {

inline QWizard* wizardOf(QDialog* d)
{
    return qobject_cast<QWizard*>(d);
}
inline int pageNumber(QDialog* d)
{
    return wizardOf(d)->currentId() + 1;
}
inline CWizardPage* currentPage(QDialog* d)
{
    return static_cast<CWizardPage*>(wizardOf(d)->currentPage());
}
inline void next(QDialog* d)
{
    Harness::clickButton(d, "btnNext");
}
inline void back(QDialog* d)
{
    Harness::clickButton(d, "btnBack");
}
inline void choose(QDialog* d, const char* radio)
{
    if (auto* button = Harness::control<QRadioButton>(wizardOf(d)->currentPage(), radio))
        button->click();
}
template <class T>
T* onPage(QDialog* d, const char* name)
{
    return Harness::control<T>(wizardOf(d)->currentPage(), name);
}
inline CWizardListEditor* listOf(QDialog* d, const char* name)
{
    return onPage<CWizardListEditor>(d, name);
}

// The visible labels and buttons of the current page whose text does not fit or that stick out of the
// page, and a wrong title or subtitle (exterior pages: the page title and no subtitle).
inline QStringList misfits(QDialog* d, const QString& pageTitle, const QString& headerTitle)
{
    QStringList out;
    CWizardPage* page = currentPage(d);
    const bool exterior = wizardOf(d)->currentId() == 0 || wizardOf(d)->nextId() == -1;
    if (page->title() != (exterior ? pageTitle : headerTitle))
        out << page->objectName() + QStringLiteral(": title ") + page->title();
    if (page->subTitle() != (exterior ? QString() : page->subtitle()))
        out << page->objectName() + QStringLiteral(": subtitle");
    for (QWidget* w : page->findChildren<QWidget*>()) {
        auto* label = qobject_cast<QLabel*>(w);
        if (!w->isVisible() || !(label || qobject_cast<QAbstractButton*>(w)))
            continue;
        const bool fits = label && label->wordWrap() ? w->height() >= label->heightForWidth(w->width())
                                                    : w->width() >= w->sizeHint().width();
        if (!fits || !page->rect().contains(QRect(w->mapTo(page, QPoint(0, 0)), w->size())))
            out << page->objectName() + QLatin1Char('/') + w->objectName();
    }
    return out;
}

// Saves the wizard as <dir>/<page class>.png when TAVI_WIZARD_SHOTS names a folder.
inline bool saveShot(QDialog* d)
{
    const QString shots = qEnvironmentVariable("TAVI_WIZARD_SHOTS");
    return shots.isEmpty() || d->grab().save(shots + QLatin1Char('/') + currentPage(d)->objectName() + QStringLiteral(".png"));
}

} // namespace WizardDriving
