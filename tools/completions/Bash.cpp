#include "completions/Completed.h"

namespace kestro {

namespace {

QString completer(WordKind kind)
{
    switch (kind) {
    case WordKind::File:
        return QStringLiteral("_kestro_names -f");
    case WordKind::Folder:
        return QStringLiteral("_kestro_names -d");
    default:
        return QStringLiteral("_kestro_nothing");
    }
}

/// What follows an option that takes a value, a line for each.
QString valuesOf(const Syntax& syntax)
{
    QString lines;
    for (const Option& option : syntax.options) {
        const WordKind kind = kindOf(option);
        if (kind == WordKind::Switch) continue;
        const QString action = kind == WordKind::Choice
                                   ? QStringLiteral("_kestro_words \"%1\"").arg(option.choices.join(u' '))
                                   : completer(kind);
        lines += QStringLiteral("        \"%1 --%2\") %3; return ;;\n").arg(syntax.name, option.name, action);
    }
    return lines;
}

QString optionsOf(const Syntax& syntax)
{
    QStringList words;
    for (const Option& option : syntax.options)
        words.append(QStringLiteral("--") + option.name);
    return words.join(u' ');
}

QString branchOf(const Syntax& syntax)
{
    return QStringLiteral("        \"%1\") options=\"%2\" operand=\"%3\" ;;\n")
        .arg(syntax.name, optionsOf(syntax), completer(operandKind(syntax)));
}

} // namespace

QString bashCompletion(const QList<Syntax>& commands)
{
    QString values;
    QString branches;
    QStringList names;
    for (const Syntax& syntax : commands) {
        values += valuesOf(syntax);
        branches += branchOf(syntax);
        if (!syntax.name.isEmpty()) names.append(syntax.name);
    }
    return QStringLiteral(R"(# What bash completes after kestro.
# shellcheck shell=bash

_kestro_words()
{
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur")
}

_kestro_nothing()
{
    COMPREPLY=()
}

_kestro_names()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "$1" -- "$cur")
}

_kestro()
{
    local cur=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} name="" options operand
    # "--name=value" comes as three words.
    if [[ $cur == "=" ]]; then
        cur=""
    elif [[ $before == "=" ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    if ((COMP_CWORD > 1)) && [[ ${COMP_WORDS[1]} != -* ]]; then name=${COMP_WORDS[1]}; fi

    case "$name $before" in
%1    esac
    case "$name" in
%2        *) _kestro_nothing; return ;;
    esac
    if [[ $cur == -* ]]; then
        _kestro_words "$options"
    elif ((COMP_CWORD == 1)); then
        _kestro_words "%3"
    else
        $operand
    fi
}

complete -F _kestro kestro
)")
        .arg(values, branches, names.join(u' '));
}

} // namespace kestro
