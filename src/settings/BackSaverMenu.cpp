#include "settings/BackSaverMenu.h"

#include "platform/base/FileName.h"
#include "platform/base/Log.h"
#include "settings/Settings.h"

namespace kestro {

QStringList backSaverItems(const QStringList& paths)
{
    QStringList items{QStringLiteral("Disable")};
    for (const QString& path : paths)
        items.append(nameOf(path));
    return items;
}

int selectBackSaver(Settings& settings, const QStringList& items)
{
    const auto stored = settings.backSaver();
    if (!stored) return 0;
    const auto index = items.indexOf(nameOf(*stored));
    if (index >= 0) return static_cast<int>(index);
    logLine(QStringLiteral("The background saver is not installed any more: %1").arg(*stored));
    settings.forgetBackSaver();
    return 0;
}

} // namespace kestro
