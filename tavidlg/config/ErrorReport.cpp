#include "config/ErrorReport.h"
#include "res/CommonStringIds.h"

#include "common/PlatformServices.h"
#include "config/MessageFormat.h"
#include "res/StringTable.h"

#include <QLineEdit>
#include <QWidget>

#include <velbrook/ListStore.h>
#include <velbrook/MailToolkit.h>
#include <velbrook/MailboxStore.h>

namespace {

constexpr uint32_t kApplicationBit = 0x20000000u;
constexpr uint32_t kListStoreBit = 0x200000u;
constexpr uint32_t kMailboxStoreBit = 0x100000u;
constexpr uint32_t kManagerTextBit = 0x1000000u;

using ManagerText = int (*)(uint32_t, char*, uint32_t);

QString managerText(ManagerText lookup, uint32_t code)
{
    char text[1024] = {};
    if (!lookup(code, text, sizeof text))
        return QString();
    text[sizeof text - 1] = '\0';
    return QString::fromUtf8(text);
}

QString managerError(unsigned headingId, ManagerText lookup, uint32_t code)
{
    QString result = TaviString(headingId);
    if (code & kManagerTextBit) {
        const QString detail = managerText(lookup, code);
        if (!detail.isEmpty())
            result += QLatin1Char('\n') + detail;
    }
    return result;
}

} // namespace

QString ErrorCodeText(uint32_t code)
{
    if (code < 0x10000u)
        return QString::number(code);
    return QString::asprintf("0x%8.8X", code);
}

QString WrapLines(const QString& text, int width)
{
    QString out;
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        if (!out.isEmpty())
            out += QLatin1Char('\n');
        int lineLength = 0;
        for (const QString& word : paragraph.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            if (lineLength > 0 && lineLength + 1 + word.size() > width) {
                out += QLatin1Char('\n');
                lineLength = 0;
            } else if (lineLength > 0) {
                out += QLatin1Char(' ');
                ++lineLength;
            }
            out += word;
            lineLength += int(word.size());
        }
    }
    return out;
}

QString ErrorExplanation(uint32_t code)
{
    if (code & kApplicationBit) {
        switch (code) {
        case 0xE0100003u: return TaviString(IDS_COMMON_MAILBOX_LIMIT);
        case 0xE0100004u: return TaviString(IDS_COMMON_PROPERTY_TOO_LARGE);
        case 0xE0200003u: return TaviString(IDS_COMMON_MAILLIST_LIMIT);
        default: break;
        }
        if (code & kListStoreBit)
            return managerError(IDS_COMMON_LIST_MANAGER_ERROR, &GetMailingListManagerErrorString, code);
        if (code & kMailboxStoreBit)
            return managerError(IDS_COMMON_MAILBOX_MANAGER_ERROR, &GetMailboxManagerErrorString, code);
        return QString();
    }
    if (code == 0)
        return QString();
    char text[1024] = {};
    VbErrorText(code, text, sizeof text);
    text[sizeof text - 1] = '\0';
    return WrapLines(QString::fromUtf8(text), 60);
}

QString ErrorMessageText(uint32_t code, const QString& context)
{
    return context + TaviFormat(TaviString(IDS_COMMON_ERROR_DETAIL), {ErrorCodeText(code), ErrorExplanation(code)});
}

void ReportError(uint32_t code, const QString& context)
{
    taviMessageBox(ErrorMessageText(code, context), Mb::Ok);
}

void ReportErrorId(uint32_t code, unsigned contextId)
{
    ReportError(code, TaviString(contextId));
}

void ReportErrorFormat1(uint32_t code, unsigned formatId, const QString& insert)
{
    ReportError(code, TaviFormat(TaviString(formatId), {insert}));
}

void ReportErrorFormat2(uint32_t code, unsigned formatId, const QString& insert1, const QString& insert2)
{
    ReportError(code, TaviFormat(TaviString(formatId), {insert1, insert2}));
}

void ReportPropertyWriteFailure(const char* property)
{
    ReportErrorFormat1(GetLastError(), IDS_COMMON_SET_PROPERTY_FAILED, QString::fromUtf8(property));
}

bool FailPropertyExchange(QWidget* control, const char* property, uint32_t code)
{
    taviMessageBox(TaviFormat(TaviString(IDS_COMMON_UPDATE_PROPERTY_FAILED), {QString::fromUtf8(property), QString::number(qint32(code))}),
                   Mb::Ok);
    if (control) {
        control->setFocus();
        if (auto* edit = qobject_cast<QLineEdit*>(control))
            edit->selectAll();
    }
    return false;
}
