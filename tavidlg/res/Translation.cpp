#include "res/Translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <QtCore/qresource.h>

#include <memory>

// The translations may be asked for while the library is still being loaded into a running
// application, before the static initialiser that registers them has run; registering twice is harmless.
static void registerTranslationResources()
{
    Q_INIT_RESOURCE(TaviDlg_translations);
}

namespace {

struct Translators {
    std::unique_ptr<QTranslator> own;
    std::unique_ptr<QTranslator> qt;
};

Translators& installed()
{
    static Translators t;
    return t;
}

void remove(std::unique_ptr<QTranslator>& translator)
{
    if (translator && QCoreApplication::instance())
        QCoreApplication::removeTranslator(translator.get());
    translator.reset();
}

std::unique_ptr<QTranslator> load(const QLocale& locale, const QString& name, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(locale, name, QStringLiteral("_"), folder))
        return nullptr;
    QCoreApplication::installTranslator(translator.get());
    return translator;
}

// At the construction of the application object, or at once when the library is loaded into a
// running one.
void installForUserLocale()
{
    TaviInstallTranslators(QLocale());
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installForUserLocale)

bool TaviInstallTranslators(const QLocale& locale)
{
    if (!QCoreApplication::instance())
        return false;
    registerTranslationResources();
    Translators& t = installed();
    remove(t.own);
    remove(t.qt);
    t.own = load(locale, QStringLiteral("tavidlg"), QStringLiteral(":/tavidlg/translations"));
    // Qt's own texts only where ours exist, so that a host never sees a language mixed by us.
    if (t.own)
        t.qt = load(locale, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    return t.own != nullptr;
}

QString TaviTranslationLanguage()
{
    const Translators& t = installed();
    return t.own ? t.own->language() : QString();
}
