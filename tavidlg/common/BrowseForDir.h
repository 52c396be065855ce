// The folder picker: Init(owner) says whether this system can pick folders (callers hide their Browse
// buttons when it cannot); Browse(title, folder) opens the picker at folder and puts the chosen path
// into it.
#pragma once

#include "entry/TaviGlobal.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class TAVI_EXPORT CBrowseForDir {
public:
    CBrowseForDir() = default;
    bool Init(QWidget* owner);
    bool Browse(const QString& title, QString& folder);

private:
    QPointer<QWidget> m_owner;
    bool m_available = false;
    QString m_initialFolder;
};
