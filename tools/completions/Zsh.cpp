#include "completions/Completed.h"

namespace kestro {

namespace {

/// What stands between brackets or colons of a specification.
QString plain(QString text)
{
    for (const char16_t sign : {u'\\', u'[', u']', u':'})
        text.replace(QChar(sign), QString(u'\\') + QChar(sign));
    return text;
}

QString inQuotes(const QString& text)
{
    return quoted(text, QStringLiteral("'\\''"));
}

QString actionFor(WordKind kind, const QStringList& choices)
{
    switch (kind) {
    case WordKind::File:
        return QStringLiteral("_files");
    case WordKind::Folder:
        return QStringLiteral("_files -/");
    case WordKind::Choice:
        return u'(' + choices.join(u' ') + u')';
    default:
        return QStringLiteral(" ");
    }
}

QString specificationOf(const Option& option)
{
    const QString help = u'[' + plain(option.help) + u']';
    if (kindOf(option) == WordKind::Switch) return QStringLiteral("--") + option.name + help;
    return QStringLiteral("--%1=%2:%3:%4")
        .arg(option.name, help, option.valueName, actionFor(kindOf(option), option.choices));
}

QString specificationOf(const Operand& operand, const QString& place)
{
    return QStringLiteral("%1:%2:%3").arg(place, plain(operand.help), actionFor(kindOf(operand), {}));
}

/// The call that completes what may follow a command, with `more` as its last specification.
QString argumentsOf(const Syntax& syntax, const QString& more)
{
    QStringList specifications;
    for (const Option& option : syntax.options)
        specifications.append(specificationOf(option));
    for (qsizetype i = 0; i < syntax.operands.size(); ++i)
        specifications.append(specificationOf(syntax.operands[i], QString::number(i + 1)));
    if (syntax.more) specifications.append(specificationOf(*syntax.more, QStringLiteral("*")));
    if (!more.isEmpty()) specifications.append(more);
    QString text = QStringLiteral("_arguments");
    for (const QString& specification : specifications)
        text += QStringLiteral(" \\\n                ") + inQuotes(specification);
    return text;
}

} // namespace

QString zshCompletion(const QList<Syntax>& commands)
{
    QString names;
    QString branches;
    for (const Syntax& syntax : commands.mid(1)) {
        names += QStringLiteral("        %1\n")
                     .arg(inQuotes(syntax.name + u':' + plain(firstLine(syntax.summary))));
        branches += QStringLiteral("            %1)\n                %2 ;;\n")
                        .arg(syntax.name, argumentsOf(syntax, {}));
    }
    return QStringLiteral(R"(#compdef kestro
# What zsh completes after kestro.

_kestro() {
    local curcontext=$curcontext state line name
    local -a commands=(
%1    )
    if (( CURRENT > 2 )) && [[ $words[2] != -* ]]; then
        name=$words[2]
        shift words
        (( CURRENT-- ))
        case $name in
%2        esac
        return
    fi
    %3
    if [[ $state == command ]]; then
        _describe -t commands command commands
    fi
}

_kestro "$@"
)")
        .arg(names, branches, argumentsOf(commands.front(), QStringLiteral("1: :->command")));
}

} // namespace kestro
