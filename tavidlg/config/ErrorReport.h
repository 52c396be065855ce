// Error reporting: a context text followed by the error's code and its text, in a message box with an
// OK button. Nothing is logged.
#pragma once

#include "entry/TaviGlobal.h"

#include <QString>

#include <cstdint>

class QWidget;

// The code as shown: decimal below 0x10000, else "0x" and eight upper-case hexadecimal digits.
TAVI_EXPORT QString ErrorCodeText(uint32_t code);
// The explanation of a code: the store's own texts for its application-defined codes, else the
// system text of the code with lines broken at 60 characters; empty when there is none.
TAVI_EXPORT QString ErrorExplanation(uint32_t code);
// The full text ReportError shows.
TAVI_EXPORT QString ErrorMessageText(uint32_t code, const QString& context);

TAVI_EXPORT void ReportError(uint32_t code, const QString& context);
TAVI_EXPORT void ReportErrorId(uint32_t code, unsigned contextId);
TAVI_EXPORT void ReportErrorFormat1(uint32_t code, unsigned formatId, const QString& insert);
TAVI_EXPORT void ReportErrorFormat2(uint32_t code, unsigned formatId, const QString& insert1,
                                    const QString& insert2);

// Form A, for dialogs that apply several values at once: "Could not set the '<name>' mail server
// property." with the thread's last error.
TAVI_EXPORT void ReportPropertyWriteFailure(const char* property);
// Form B, for dialogs that exchange data control by control: "Failed to update property <name>, error
// <code>." with an OK button, the focus to the control; returns false so the exchange can fail with it.
TAVI_EXPORT bool FailPropertyExchange(QWidget* control, const char* property, uint32_t code);

// Breaks text into lines of at most `width` characters at blanks (longer words stay whole).
TAVI_EXPORT QString WrapLines(const QString& text, int width);
