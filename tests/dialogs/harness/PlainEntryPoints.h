// The entry points of the plain form int Name(TaviOwner owner, _tMailServer* server) that the public
// header declares, in its order: the dialogs a test can open with nothing but a store.
#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

namespace Harness {

inline QStringList plainEntryPoints()
{
    QFile header(QStringLiteral(TAVI_PUBLIC_HEADER));
    if (!header.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(header.readAll());
    static const QRegularExpression plain(
        QStringLiteral(R"(TAVIDLG_API int (\w+)\(TaviOwner owner, _tMailServer\* server\);)"));
    QStringList names;
    for (auto it = plain.globalMatch(text); it.hasNext();)
        names.append(it.next().captured(1));
    return names;
}

} // namespace Harness
