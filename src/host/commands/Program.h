#pragma once

#include "host/start/Arguments.h"
#include "host/start/Console.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace kestro {

/// One thing that the program does, with what may be written after its name.
struct Command {
    Syntax syntax;
    std::function<int(const Arguments&)> run; ///< answers the exit status
};

/// The program as the shell sees it: finds the command that is asked for, checks its arguments, shows help
/// and version, and answers the exit status. Owned by main; main thread.
class Program final {
public:
    /// `commands` in the order of the help; the first one is what runs when no command is named.
    Program(QString version, QList<Command> commands);

    /// `words` are the arguments without the program's name.
    [[nodiscard]] int run(const QStringList& words) const;

private:
    [[nodiscard]] const Command* find(const QString& name) const;
    [[nodiscard]] int runCommand(const Command& command, const QStringList& words) const;
    [[nodiscard]] int runPlain(const QStringList& words) const;
    [[nodiscard]] QString overview() const;

    QString m_version;
    QList<Command> m_commands;
};

/// Every command of this program.
[[nodiscard]] QList<Command> allCommands();

} // namespace kestro
