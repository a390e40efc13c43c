#include "host/hacks/HackBundles.h"

#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QFileInfo>

namespace kestro {

namespace {

const QString identifierKey = QStringLiteral("CFBundleIdentifier");
const QString identifierStart = QStringLiteral("org.kestro.hack.");

QString infoFile(const QString& bundle)
{
    return bundle + QStringLiteral("/Contents/Info.plist");
}

QVariantMap infoOf(const InstalledHack& hack)
{
    QVariantMap info = hack.hack.toInfo();
    info.insert(identifierKey, QString(identifierStart + hack.name));
    info.insert(QStringLiteral("CFBundleName"), hack.label);
    return info;
}

/// A label as a file name.
QString fileName(const QString& label)
{
    QString name = label;
    name.replace(u'/', u'-');
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    return name;
}

} // namespace

HackBundles::HackBundles(QString folder)
    : m_folder(std::move(folder))
{
    const QStringList bundles = QDir(m_folder).entryList({QStringLiteral("*.saver")}, QDir::Dirs, QDir::Name);
    for (const QString& bundle : bundles) {
        const QString path = m_folder + u'/' + bundle;
        const auto info = readPropertyListDictionary(infoFile(path));
        const QString identifier = info ? info->value(identifierKey).toString() : QString();
        if (!identifier.startsWith(identifierStart)) continue;
        const QString name = identifier.mid(identifierStart.size());
        if (!m_paths.contains(name)) m_paths.insert(name, path);
    }
}

Result<HackBundles::Written> HackBundles::write(const InstalledHack& hack)
{
    const QString known = pathOf(hack.name);
    const QString path = known.isEmpty() ? freePath(hack) : known;
    if (path.isEmpty())
        return Error{QStringLiteral("%1 in %2 is not Kestro's").arg(fileName(hack.label), m_folder)};
    const QVariantMap info = infoOf(hack);
    if (!known.isEmpty() && readPropertyListDictionary(infoFile(path)) == info)
        return Written{path, Change::None};
    if (!writePropertyList(infoFile(path), info))
        return Error{QStringLiteral("Cannot write %1").arg(infoFile(path))};
    m_paths.insert(hack.name, path);
    return Written{path, known.isEmpty() ? Change::Added : Change::Updated};
}

/// Where something else has the label's name, the program's name tells the two apart. Empty when that is
/// taken as well.
QString HackBundles::freePath(const InstalledHack& hack) const
{
    const QString label = fileName(hack.label);
    for (const QString& name : {label, QStringLiteral("%1 (%2)").arg(label, hack.name)}) {
        const QString path = QStringLiteral("%1/%2.saver").arg(m_folder, name);
        const QFileInfo there(path);
        if (!name.isEmpty() && !there.exists() && !there.isSymLink()) return path;
    }
    return {};
}

} // namespace kestro
