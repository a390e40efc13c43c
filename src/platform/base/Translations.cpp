#include "platform/base/Translations.h"

#include "platform/base/Paths.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>

namespace kestro {

namespace {

// The code's own language needs no file; a person who reads that first gets it.
bool isOfTheCode(const QLocale& language)
{
    return language.language() == QLocale::English || language.language() == QLocale::C;
}

// Chinese is told apart by its script, all other languages by themselves.
QString fileLanguage(const QLocale& language)
{
    if (language.language() != QLocale::Chinese) return language.name().section(u'_', 0, 0);
    return language.script() == QLocale::SimplifiedHanScript ? QStringLiteral("zh_CN")
                                                             : QStringLiteral("zh_TW");
}

} // namespace

Translations::Translations(const QLocale& locale, const QString& folder)
    : m_language(firstLanguage(locale.uiLanguages(), folder))
{
    if (m_language.isEmpty()) return;
    if (m_qtTexts.load(QStringLiteral("qtbase_") + m_language,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qtTexts);
    if (m_texts.load(QStringLiteral("kestro_") + m_language, folder))
        QCoreApplication::installTranslator(&m_texts);
}

Translations::~Translations()
{
    QCoreApplication::removeTranslator(&m_texts);
    QCoreApplication::removeTranslator(&m_qtTexts);
}

QString Translations::firstLanguage(const QStringList& wanted, const QString& folder)
{
    for (const QString& name : wanted) {
        const QLocale language(name);
        if (isOfTheCode(language)) break;
        const QString found = fileLanguage(language);
        if (QFileInfo::exists(folder + QStringLiteral("/kestro_") + found + QStringLiteral(".qm")))
            return found;
    }
    return {};
}

QString Translations::packagedFolder()
{
    return packageData() + QStringLiteral("/translations");
}

} // namespace kestro
