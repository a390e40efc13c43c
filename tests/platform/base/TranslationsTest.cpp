#include "platform/base/Translations.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

struct LanguageCase {
    const char* locale;
    const char* language;
    const char* alert; ///< "Alert" in it
};

constexpr LanguageCase languageCases[]{
    {"de_DE", "de", "Warnung"}, {"de_AT", "de", "Warnung"}, {"fr_CA", "fr", "Alerte"},
    {"es_MX", "es", "Aviso"},   {"ja_JP", "ja", "警告"},    {"zh_CN", "zh_CN", "警告"},
    {"zh_SG", "zh_CN", "警告"}, {"zh_TW", "", "Alert"},     {"en_US", "", "Alert"},
    {"C", "", "Alert"},         {"it_IT", "", "Alert"},
};

} // namespace

class TranslationsTest : public testing::Test {
protected:
    [[nodiscard]] static QString alert() { return QCoreApplication::translate("Kestro", "Alert"); }
    [[nodiscard]] static QString cancelOfQt()
    {
        return QCoreApplication::translate("QPlatformTheme", "Cancel");
    }
    [[nodiscard]] static QString first(const QStringList& wanted)
    {
        return Translations::firstLanguage(wanted, Translations::packagedFolder());
    }

    int m_count = 1;
    char m_name[5] = "test";
    char* m_words[2] = {m_name, nullptr};
    QCoreApplication m_application{m_count, m_words};
};

TEST_F(TranslationsTest, texts_areInThePersonsLanguage_whereThereAreAny)
{
    for (const auto& [locale, language, text] : languageCases) {
        const Translations translations{QLocale(QLatin1String(locale))};
        EXPECT_EQ(translations.language(), QLatin1String(language)) << locale;
        EXPECT_EQ(alert(), QString::fromUtf8(text)) << locale;
    }
    EXPECT_EQ(alert(), QStringLiteral("Alert"));
}

TEST_F(TranslationsTest, textsOfQt_areInTheSameLanguage)
{
    EXPECT_EQ(cancelOfQt(), QStringLiteral("Cancel"));
    {
        const Translations translations{QLocale(QStringLiteral("de_DE"))};
        EXPECT_EQ(cancelOfQt(), QStringLiteral("Abbrechen"));
    }
    const Translations translations{QLocale(QStringLiteral("it_IT"))};
    EXPECT_EQ(cancelOfQt(), QStringLiteral("Cancel"));
}

TEST_F(TranslationsTest, texts_stayAsTheyAre_whenThePackageHasNone)
{
    const QTemporaryDir empty;
    const Translations translations(QLocale(QStringLiteral("de_DE")), empty.path());
    EXPECT_TRUE(translations.language().isEmpty());
    EXPECT_EQ(alert(), QStringLiteral("Alert"));
}

TEST_F(TranslationsTest, firstLanguage_goesDownTheList_untilThatOfTheCode)
{
    const QString de = QStringLiteral("de"), en = QStringLiteral("en-US"), it = QStringLiteral("it");
    EXPECT_EQ(first({it, de}), de);
    EXPECT_EQ(first({de, en}), de);
    EXPECT_TRUE(first({en, de}).isEmpty());
    EXPECT_TRUE(first({it}).isEmpty());
    EXPECT_TRUE(first({}).isEmpty());
}

} // namespace kestro
