#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTranslator>

namespace kestro {

/// The texts of windows and of signs in a person's language, those of Qt's own windows too. They are in use
/// as long as this lives; where there are none in any language that the person reads, texts stay as they are
/// in the code. Owned by a program, which has made its application object before. Main thread.
class Translations final {
public:
    /// `folder` is where the package keeps its texts.
    explicit Translations(const QLocale& locale = QLocale::system(),
                          const QString& folder = packagedFolder());
    ~Translations();
    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

    /// As the files are named, "de" or "zh_CN"; empty for the language of the code.
    [[nodiscard]] const QString& language() const { return m_language; }

    [[nodiscard]] static QString packagedFolder();
    /// The first of `wanted`, names as QLocale::uiLanguages answers them, that has a file in `folder`; empty
    /// where there is none, or the language of the code comes first.
    [[nodiscard]] static QString firstLanguage(const QStringList& wanted, const QString& folder);

private:
    QString m_language;
    QTranslator m_texts;
    QTranslator m_qtTexts;
};

} // namespace kestro
