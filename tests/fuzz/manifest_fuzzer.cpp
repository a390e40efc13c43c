#include "Target.h"
#include "publish/Manifest.h"

using namespace kestro;

/// The input is the record that publishing keeps of a site's folder. What it names may be deleted one day.
void kestro::tryInput(std::string_view input)
{
    const auto manifest = Manifest::parse(QByteArray(input.data(), qsizetype(input.size())));
    if (!manifest) return expect(!manifest.error().isEmpty(), "an error says something");
    for (const QString& file : manifest.value().files().keys())
        expect(!file.contains(u"..") && !file.startsWith(u'/') && file.count(u'/') <= 1,
               "a file lies in the site's folder");
    const QByteArray json = manifest.value().json();
    const auto again = Manifest::parse(json);
    expect(again && again.value().json() == json, "what is written reads the same");
}
