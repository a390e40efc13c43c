#include "platform/saver/SlideFolder.h"

#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QStringList>
#include <QSysInfo>

#include <algorithm>

namespace kestro {

namespace {

constexpr qsizetype fewestParts = 5;

QString byHostFolder(const QString& home)
{
    return home + QStringLiteral("/Library/Preferences/ByHost");
}

bool isSaverName(const QString& name)
{
    const QStringList parts = name.split(u'.');
    const QStringList wanted{QStringLiteral("com"), QStringLiteral("apple"), QStringLiteral("screensaver")};
    return parts.size() >= fewestParts && parts.mid(0, wanted.size()) == wanted;
}

bool isSlideShowName(const QString& name)
{
    return isSaverName(name) && name.section(u'.', 3, 3) == u"slideshow";
}

QStringList preferenceFiles(const QString& home)
{
    return QDir(byHostFolder(home)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

} // namespace

std::optional<QString> slideShowPreferences(const QString& home)
{
    for (const QString& name : preferenceFiles(home))
        if (isSlideShowName(name)) return byHostFolder(home) + u'/' + name;
    return {};
}

bool makeScreenSaverPreferences(const QString& home)
{
    if (std::ranges::any_of(preferenceFiles(home), isSaverName)) return true;
    const QByteArray machine = QSysInfo::machineUniqueId();
    const QString name = machine.isEmpty() ? QStringLiteral("host") : QString::fromLatin1(machine);
    return writePropertyList(byHostFolder(home) + QStringLiteral("/com.apple.screensaver.%1.plist").arg(name),
                             QVariantMap());
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
