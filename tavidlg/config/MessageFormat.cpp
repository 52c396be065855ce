#include "config/MessageFormat.h"

QString TaviFormat(const QString& format, const QStringList& inserts)
{
    QString out;
    out.reserve(format.size() + 64);
    const qsizetype n = format.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = format.at(i);
        if (c != QLatin1Char('%') || i + 1 >= n) {
            out.append(c);
            continue;
        }
        const QChar next = format.at(i + 1);
        if (next == QLatin1Char('%')) {
            out.append(QLatin1Char('%'));
            ++i;
            continue;
        }
        if (next < QLatin1Char('1') || next > QLatin1Char('9')) {
            out.append(c);
            continue;
        }
        const int index = next.unicode() - '1';
        i += 1;
        // An optional !printf-format! after the number; the insert is already text.
        if (i + 1 < n && format.at(i + 1) == QLatin1Char('!')) {
            const qsizetype close = format.indexOf(QLatin1Char('!'), i + 2);
            if (close > 0)
                i = close;
        }
        if (index < inserts.size())
            out.append(inserts.at(index));
    }
    return out;
}
