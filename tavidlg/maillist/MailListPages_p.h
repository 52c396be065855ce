// Small helpers that build the controls of the mailing list's pages.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

template <class T>
T* namedControl(QWidget* parent, const char* name)
{
    auto* control = new T(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

inline QSpinBox* numberBox(QWidget* parent, const char* name, int maximum, const QString& suffix)
{
    auto* spin = namedControl<QSpinBox>(parent, name);
    spin->setRange(0, maximum);
    spin->setSuffix(suffix);
    return spin;
}

inline QComboBox* choiceBox(QWidget* parent, const char* name, const QStringList& texts)
{
    auto* combo = namedControl<QComboBox>(parent, name);
    for (int i = 0; i < texts.size(); ++i)
        combo->addItem(texts[i], quint32(i));
    return combo;
}

inline QLabel* buddyLabel(const QString& text, QWidget* buddy)
{
    auto* label = new QLabel(text, buddy->parentWidget());
    label->setBuddy(buddy);
    return label;
}
