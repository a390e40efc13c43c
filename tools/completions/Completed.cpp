#include "completions/Completed.h"

#include "host/commands/Program.h"
#include "idle/IdleCommand.h"

namespace kestro {

namespace {

WordKind kindNamed(const QString& name)
{
    if (name == u"FILE") return WordKind::File;
    if (name == u"DIR" || name == u"MOVIES" || name == u"SITE") return WordKind::Folder;
    return WordKind::Plain;
}

} // namespace

WordKind kindOf(const Option& option)
{
    if (option.valueName.isEmpty()) return WordKind::Switch;
    return option.choices.isEmpty() ? kindNamed(option.valueName) : WordKind::Choice;
}

WordKind kindOf(const Operand& operand)
{
    return kindNamed(operand.name);
}

WordKind operandKind(const Syntax& syntax)
{
    return syntax.operands.isEmpty() ? WordKind::Plain : kindOf(syntax.operands.front());
}

QList<Syntax> completedCommands()
{
    QList<Syntax> syntaxes;
    for (const Command& command : allCommands()) {
        // That one is a program of its own, which has the options.
        const Syntax idle = idleSyntax();
        Syntax syntax = command.syntax.name == idle.name ? idle : command.syntax;
        syntax.options.append(Option{QStringLiteral("help"), {}, QStringLiteral("show this help")});
        syntaxes.append(syntax);
    }
    return syntaxes;
}

QString quoted(QString text, const QString& quote)
{
    return u'\'' + text.replace(u'\'', quote) + u'\'';
}

QString firstLine(const QString& text)
{
    return text.section(u'\n', 0, 0);
}

} // namespace kestro
