#include "settings/BackSaverMenu.h"

#include "platform/base/Log.h"
#include "settings/Settings.h"

namespace kestro {

namespace {

QString fileName(QString path)
{
    while (path.endsWith(u'/'))
        path.chop(1);
    return path.section(u'/', -1);
}

} // namespace

QStringList backSaverItems(const QStringList& paths)
{
    QStringList items{QStringLiteral("Disable")};
    for (const QString& path : paths)
        items.append(fileName(path));
    return items;
}

int selectBackSaver(Settings& settings, const QStringList& items)
{
    const auto stored = settings.backSaver();
    if (!stored) return 0;
    const auto index = items.indexOf(fileName(*stored));
    if (index >= 0) return static_cast<int>(index);
    logLine(QStringLiteral("The background saver is not installed any more: %1").arg(*stored));
    settings.forgetBackSaver();
    return 0;
}

} // namespace kestro
