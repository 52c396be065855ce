// Export macro for the library's C++ classes: host programs written in Qt and the dialog tests use
// them directly; everything not marked stays hidden.
#pragma once

#include <QtCore/qglobal.h>

#if defined(TAVIDLG_BUILD)
#  define TAVI_EXPORT Q_DECL_EXPORT
#else
#  define TAVI_EXPORT Q_DECL_IMPORT
#endif
