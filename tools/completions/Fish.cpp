#include "completions/Completed.h"

namespace kestro {

namespace {

QString inQuotes(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"));
    return quoted(text, QStringLiteral("\\'"));
}

QString valueOf(const Option& option)
{
    switch (kindOf(option)) {
    case WordKind::Switch:
        return {};
    case WordKind::File:
        return QStringLiteral(" -r -F");
    case WordKind::Folder:
        return QStringLiteral(" -x -a '(__fish_complete_directories)'");
    case WordKind::Choice:
        return QStringLiteral(" -x -a %1").arg(inQuotes(option.choices.join(u' ')));
    case WordKind::Plain:
        break;
    }
    return QStringLiteral(" -x");
}

QString operandLine(const QString& start, const Syntax& syntax)
{
    switch (operandKind(syntax)) {
    case WordKind::File:
        return start + QStringLiteral(" -F\n");
    case WordKind::Folder:
        return start + QStringLiteral(" -a '(__fish_complete_directories)'\n");
    default:
        return {};
    }
}

QString linesOf(const Syntax& syntax)
{
    const QString start =
        QStringLiteral("complete -c kestro -n '__kestro_command_is \"%1\"'").arg(syntax.name);
    QString lines = operandLine(start, syntax);
    for (const Option& option : syntax.options)
        lines += start +
                 QStringLiteral(" -l %1%2 -d %3\n").arg(option.name, valueOf(option), inQuotes(option.help));
    return lines;
}

} // namespace

QString fishCompletion(const QList<Syntax>& commands)
{
    QString lines = QStringLiteral(R"(# What fish completes after kestro.

# Whether the command that is written is that one; "" is none, which is so where the first word is an option.
function __kestro_command_is
    set -l written (commandline -opc)
    if test (count $written) -lt 2; or string match -q -- '-*' $written[2]
        test -z "$argv[1]"
    else
        test "$written[2]" = "$argv[1]"
    end
end

complete -c kestro -f
)");
    for (const Syntax& syntax : commands.mid(1))
        lines += QStringLiteral("complete -c kestro -n 'test (count (commandline -opc)) -eq 1' -a %1 -d %2\n")
                     .arg(syntax.name, inQuotes(firstLine(syntax.summary)));
    for (const Syntax& syntax : commands)
        lines += linesOf(syntax);
    return lines;
}

} // namespace kestro
