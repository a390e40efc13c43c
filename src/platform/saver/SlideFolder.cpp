#include "platform/saver/SlideFolder.h"

#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QStringList>

namespace kestro {

namespace {

bool isSlideShowName(const QString& name)
{
    const QStringList parts = name.split(u'.');
    const QStringList wanted{QStringLiteral("com"), QStringLiteral("apple"), QStringLiteral("screensaver"),
                             QStringLiteral("slideshow")};
    return parts.size() > wanted.size() && parts.mid(0, wanted.size()) == wanted;
}

} // namespace

std::optional<QString> slideShowPreferences(const QString& home)
{
    const QDir folder(home + QStringLiteral("/Library/Preferences/ByHost"));
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name))
        if (isSlideShowName(name)) return folder.filePath(name);
    return {};
}

QString slideFolder(const QString& home)
{
    const auto file = slideShowPreferences(home);
    const auto preferences = file ? readPropertyListDictionary(*file) : std::nullopt;
    const QVariant named = preferences ? preferences->value(QStringLiteral("SlideFolder")) : QVariant();
    const QString path = named.typeId() == QMetaType::QString ? named.toString() : QString();
    if (path.isEmpty()) return home + QStringLiteral("/Pictures");
    return path == u"~" || path.startsWith(u"~/") ? home + path.mid(1) : path;
}

} // namespace kestro
