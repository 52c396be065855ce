// The member files of a mailing list: one member a line, the address and then the name, separated by
// a comma, either field in double quotes when it holds a comma or a quote (doubled inside). A first
// line whose address field reads "Address" or "E-mail" is a heading and is skipped.
#pragma once

#include "entry/TaviGlobal.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>

#include <vector>

namespace MemberCsv {

struct Row {
    QString address;
    QString name;
    int line = 0; // from 1
};

struct BadLine {
    int line = 0;
    QString reason;
};

struct Parsed {
    std::vector<Row> rows;
    QList<BadLine> bad;
};

// Whether an address can be a member: a local part and a valid host name around the last '@', no
// blanks or control characters, at most 255 bytes.
TAVI_EXPORT bool isValidAddress(const QString& address);
// The key under which addresses are compared (the store compares them without regard to ASCII case).
TAVI_EXPORT QString addressKey(const QString& address);
// Reads a file's text; `existing` holds the keys of the list's members, which are refused as
// duplicates, as are addresses given twice in the file (the second time).
TAVI_EXPORT Parsed parse(const QByteArray& text, const QSet<QString>& existing);
// One exported line, without its line end.
TAVI_EXPORT QByteArray exportLine(const QString& address, const QString& name);

} // namespace MemberCsv
