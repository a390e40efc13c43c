#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/hacks/HackBundles.h"
#include "host/hacks/HackCatalog.h"
#include "platform/base/Paths.h"

#include <algorithm>

namespace kestro {

namespace {

const QString allOption = QStringLiteral("all");

int fail(const QString& message)
{
    printError(message);
    return ExitFailure;
}

int list(const QList<InstalledHack>& hacks, const HackBundles& bundles)
{
    qsizetype names = 0;
    qsizetype labels = 0;
    for (const InstalledHack& hack : hacks) {
        names = std::max(names, hack.name.size());
        labels = std::max(labels, hack.label.size());
    }
    QString text;
    for (const InstalledHack& hack : hacks) {
        const QString state =
            bundles.pathOf(hack.name).isEmpty() ? QStringLiteral("-") : QStringLiteral("imported");
        text += QStringLiteral("%1  %2  %3\n")
                    .arg(hack.name.leftJustified(names), hack.label.leftJustified(labels), state);
    }
    return print(text.toUtf8());
}

/// The hacks of those names or labels, each once; the error names one that there is none of.
Result<QList<InstalledHack>> chosen(const QList<InstalledHack>& hacks, const QStringList& words)
{
    QList<InstalledHack> found;
    for (const QString& word : words) {
        const auto isMeant = [&](const InstalledHack& hack) {
            return hack.name.compare(word, Qt::CaseInsensitive) == 0 ||
                   hack.label.compare(word, Qt::CaseInsensitive) == 0;
        };
        const auto hack = std::ranges::find_if(hacks, isMeant);
        if (hack == hacks.end()) return Error{QStringLiteral("There is no hack \"%1\" here").arg(word)};
        const bool isNew = std::ranges::find(found, hack->name, &InstalledHack::name) == found.end();
        if (isNew) found.append(*hack);
    }
    return found;
}

QString lineOf(const HackBundles::Written& written)
{
    switch (written.change) {
    case HackBundles::Change::Added:
        return QStringLiteral("Added %1\n").arg(written.path);
    case HackBundles::Change::Updated:
        return QStringLiteral("Updated %1\n").arg(written.path);
    case HackBundles::Change::None:
        break;
    }
    return QStringLiteral("Nothing to change in %1\n").arg(written.path);
}

int import(const QList<InstalledHack>& hacks, HackBundles& bundles)
{
    int status = ExitSuccess;
    for (const InstalledHack& hack : hacks) {
        const auto written = bundles.write(hack);
        if (!written)
            status = fail(written.error());
        else if (print(lineOf(written.value()).toUtf8()) != ExitSuccess)
            return ExitFailure;
    }
    return status;
}

int run(const Arguments& arguments)
{
    const QStringList descriptions = hackDescriptionFolders();
    const auto hacks = installedHacks(descriptions, hackFolders());
    if (hacks.isEmpty())
        return fail(QStringLiteral("No hacks of xscreensaver are installed (none is described in %1)")
                        .arg(descriptions.join(QStringLiteral(" or "))));
    HackBundles bundles(homeFolder() + QStringLiteral("/Library/Screen Savers"));
    if (arguments.has(allOption)) return import(hacks, bundles);
    if (arguments.operands().isEmpty()) return list(hacks, bundles);
    const auto wanted = chosen(hacks, arguments.operands());
    return wanted ? import(wanted.value(), bundles) : fail(wanted.error());
}

} // namespace

Command importHacksCommand()
{
    Syntax syntax{QStringLiteral("import-hacks"),
                  QStringLiteral("Make savers of xscreensaver's hacks, or list those that are installed"),
                  {{allOption, {}, QStringLiteral("every hack that is installed")}}};
    syntax.more = Operand{QStringLiteral("NAME"), QStringLiteral("a hack, by its name or label")};
    return {syntax, run};
}

} // namespace kestro
