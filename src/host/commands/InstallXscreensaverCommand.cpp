#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/xscreensaver/XscreensaverList.h"

namespace kestro {

namespace {

const QString removeOption = QStringLiteral("remove");

int install(const Arguments& arguments)
{
    const XscreensaverList list = XscreensaverList::ofUser();
    const auto change = arguments.has(removeOption) ? list.remove() : list.add();
    if (!change) {
        printError(change.error());
        return ExitFailure;
    }
    if (!change.value().isChanged)
        return print(QStringLiteral("Nothing to change in %1\n").arg(list.path()).toLocal8Bit());
    const QString& backup = change.value().backup;
    const QString kept =
        backup.isEmpty() ? QString() : QStringLiteral(" (the file as it was before Kestro: %1)").arg(backup);
    return print(QStringLiteral("Changed %1%2\n").arg(list.path(), kept).toLocal8Bit());
}

} // namespace

Command installXscreensaverCommand()
{
    return {{QStringLiteral("install-xscreensaver"),
             QStringLiteral("Put Kestro into your list of xscreensaver's savers"),
             {{removeOption, {}, QStringLiteral("take it out of the list again")}}},
            install};
}

} // namespace kestro
