// The library's translations: its texts (dialogs' tr() texts and the string table, context
// "TaviStrings") and Qt's own (standard buttons, message boxes), for the user's language. They are
// installed by themselves when the application object exists (at load in a Qt host, at the first entry
// call otherwise); a host or a test switches the language with TaviInstallTranslators.
#pragma once

#include "entry/TaviGlobal.h"

#include <QLocale>
#include <QString>

// Replaces the translators this library installed by those for locale's languages. Returns true when
// a translation of the library's own texts was found (false for English, which needs none).
TAVI_EXPORT bool TaviInstallTranslators(const QLocale& locale = QLocale());
// The language code of the library's translation in force ("de"), empty when the texts are English.
TAVI_EXPORT QString TaviTranslationLanguage();
