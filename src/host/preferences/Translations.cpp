#include "host/preferences/Translations.h"

#include "platform/base/Paths.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace kestro {

namespace {

void install(const QString& name, const QString& folder)
{
    auto* translator = new QTranslator(qApp);
    if (translator->load(QLocale::system(), name, QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(translator);
    else
        delete translator;
}

} // namespace

// What is installed last is asked first.
void installTranslations()
{
    install(QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(QStringLiteral("kestro"), packagePrefix() + QStringLiteral("/share/kestro/translations"));
}

} // namespace kestro
