// The reminder box for host programs, as the dialogs show it.
#include "common/Reminder.h"
#include "entry/EntryFrame.h"

#include <QString>

extern "C" TAVIDLG_API int ShowReminder(TaviOwner owner, unsigned messageId, const char* rememberKey,
                                        unsigned captionId, unsigned flags)
{
    return runEntry(owner, [&](COwnerWindow& parent) {
        CReminder reminder(parent.widget(), messageId, QString::fromUtf8(rememberKey ? rememberKey : ""),
                           captionId, flags);
        // A silenced reminder answers OK without a window.
        if (!reminder.isToBeShown())
            return 1;
        return runModal(&reminder, parent);
    });
}
