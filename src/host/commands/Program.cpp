#include "host/commands/Program.h"

#include "host/commands/Commands.h"

#include <algorithm>

namespace kestro {

namespace {

int wrongUsage(const QString& message, const QString& commandName)
{
    const QString help =
        commandName.isEmpty() ? QStringLiteral("kestro") : QStringLiteral("kestro ") + commandName;
    printError(QStringLiteral("%1 (see %2 --help)").arg(message, help));
    return ExitWrongUsage;
}

} // namespace

Program::Program(QString version, QList<Command> commands)
    : m_version(std::move(version))
    , m_commands(std::move(commands))
{
}

int Program::run(const QStringList& words) const
{
    if (words.isEmpty() || words.front().startsWith(u'-')) return runPlain(words);
    if (const Command* command = find(words.front())) return runCommand(*command, words.mid(1));
    return wrongUsage(QStringLiteral("Unknown command \"%1\"").arg(words.front()), {});
}

const Command* Program::find(const QString& name) const
{
    const auto found =
        std::ranges::find_if(m_commands, [&](const Command& command) { return command.syntax.name == name; });
    return found == m_commands.end() || name.isEmpty() ? nullptr : &*found;
}

int Program::runCommand(const Command& command, const QStringList& words) const
{
    const auto arguments = Arguments::parse(command.syntax, words);
    if (!arguments) return wrongUsage(arguments.error(), command.syntax.name);
    if (arguments.value().has(QStringLiteral("help"))) return print(helpText(command.syntax).toUtf8());
    return command.run(arguments.value());
}

int Program::runPlain(const QStringList& words) const
{
    const auto arguments = Arguments::parse(m_commands.front().syntax, words);
    if (!arguments) return wrongUsage(arguments.error(), {});
    if (arguments.value().has(QStringLiteral("help"))) return print(overview().toUtf8());
    if (arguments.value().has(QStringLiteral("version")))
        return print(QStringLiteral("kestro %1\n").arg(m_version).toUtf8());
    return m_commands.front().run(arguments.value());
}

QString Program::overview() const
{
    QString text = helpText(m_commands.front().syntax) + QStringLiteral("\nCommands (each has --help):\n");
    qsizetype width = 0;
    for (const Command& command : m_commands)
        width = std::max(width, command.syntax.name.size());
    for (const Command& command : m_commands.mid(1))
        text += QStringLiteral("  kestro %1  %2\n")
                    .arg(command.syntax.name.leftJustified(width), command.syntax.summary);
    return text;
}

QList<Command> allCommands()
{
    return {runCommand(),
            settingsCommand(),
            idleCommand(),
            doctorCommand(),
            nowCommand(),
            nextCommand(),
            previousCommand(),
            stopCommand(),
            showSettingsCommand(),
            playlistCommand(),
            scanCommand(),
            latestCommand(),
            renderCommand(),
            inspectPageCommand(),
            publishCommand(),
            importHacksCommand(),
            installXscreensaverCommand()};
}

} // namespace kestro
