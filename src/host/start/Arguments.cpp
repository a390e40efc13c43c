#include "host/start/Arguments.h"

#include <algorithm>

namespace kestro {

namespace {

const QString helpName = QStringLiteral("help");

QString dashed(const QString& option)
{
    return QStringLiteral("--") + option;
}

QString usageOf(const Option& option)
{
    return option.valueName.isEmpty() ? dashed(option.name) : dashed(option.name) + u' ' + option.valueName;
}

/// How many dashes make the word an option; 0 where it is none.
int dashesOf(const QString& word, const Syntax& syntax)
{
    if (word.startsWith(u"--")) return 2;
    return syntax.isOneDashEnough && word.startsWith(u'-') ? 1 : 0;
}

Error outOfBounds(const QString& option, const QString& text, const QString& kind, double least, double most)
{
    return {QStringLiteral("%1 needs %2 from %3 to %4, not \"%5\"")
                .arg(dashed(option), kind, QString::number(least), QString::number(most), text)};
}

QString helpLine(const QString& usage, const QString& help, qsizetype width)
{
    return QStringLiteral("  %1  %2\n").arg(usage.leftJustified(width), help);
}

QList<Option> withHelp(const Syntax& syntax)
{
    return syntax.options + QList<Option>{{helpName, {}, QStringLiteral("show this help")}};
}

} // namespace

const Option* Syntax::find(const QString& optionName) const
{
    const auto found = std::ranges::find(options, optionName, &Option::name);
    return found == options.end() ? nullptr : &*found;
}

Result<Arguments> Arguments::parse(const Syntax& syntax, const QStringList& words)
{
    Arguments arguments;
    bool onlyOperands = false;
    for (auto word = words.begin(); word != words.end(); ++word) {
        const int dashes = onlyOperands ? 0 : dashesOf(*word, syntax);
        if (dashes == 0) {
            if (arguments.m_operands.size() == syntax.operands.size() && !syntax.more)
                return Error{QStringLiteral("Unexpected argument \"%1\"").arg(*word)};
            arguments.m_operands.append(*word);
            continue;
        }
        onlyOperands = *word == u"--" && (!syntax.operands.isEmpty() || syntax.more);
        if (onlyOperands) continue;
        const auto equals = word->indexOf(u'=');
        const QString name = word->mid(dashes, equals < 0 ? -1 : equals - dashes);
        const Option* option = syntax.find(name);
        if (!option && name != helpName) return Error{QStringLiteral("Unknown option \"%1\"").arg(*word)};

        const bool takesValue = option && !option->valueName.isEmpty();
        if (!takesValue && equals >= 0) return Error{QStringLiteral("%1 takes no value").arg(dashed(name))};
        QString value = equals < 0 ? QString() : word->mid(equals + 1);
        if (takesValue && equals < 0) {
            if (std::next(word) == words.end())
                return Error{QStringLiteral("%1 needs a value").arg(dashed(name))};
            value = *++word;
        }
        arguments.m_values.insert(name, value);
    }
    const auto given = arguments.m_operands.size();
    if (given < syntax.operands.size() && !arguments.has(helpName))
        return Error{QStringLiteral("%1 is missing").arg(syntax.operands[given].name)};
    return arguments;
}

std::optional<QString> Arguments::text(const QString& option) const
{
    const auto found = m_values.find(option);
    return found == m_values.end() ? std::nullopt : std::optional(*found);
}

Result<int> Arguments::integer(const QString& option, int fallback, int least, int most) const
{
    if (!has(option)) return fallback;
    const QString given = m_values.value(option);
    bool isNumber = false;
    const int number = given.toInt(&isNumber);
    if (isNumber && number >= least && number <= most) return number;
    return outOfBounds(option, given, QStringLiteral("a whole number"), least, most);
}

Result<double> Arguments::real(const QString& option, double fallback, double least, double most) const
{
    if (!has(option)) return fallback;
    const QString given = m_values.value(option);
    bool isNumber = false;
    const double number = given.toDouble(&isNumber);
    // Written so that a text that reads as no number at all ("nan") is refused too.
    if (isNumber && number >= least && number <= most) return number;
    return outOfBounds(option, given, QStringLiteral("a number"), least, most);
}

QString helpText(const Syntax& syntax)
{
    QString usage = QStringLiteral("Usage: kestro");
    if (!syntax.name.isEmpty()) usage += u' ' + syntax.name;
    qsizetype width = 0;
    for (const Operand& operand : syntax.operands) {
        usage += u' ' + operand.name;
        width = std::max(width, operand.name.size());
    }
    if (syntax.more) usage += QStringLiteral(" [%1...]").arg(syntax.more->name);
    const QList<Option> options = withHelp(syntax);
    for (const Option& option : options) {
        usage += (option.isRequired ? QStringLiteral(" %1") : QStringLiteral(" [%1]")).arg(usageOf(option));
        width = std::max(width, usageOf(option).size());
    }
    QString text = usage + QStringLiteral("\n\n") + syntax.summary + QStringLiteral("\n\n");
    for (const Operand& operand : syntax.operands)
        text += helpLine(operand.name, operand.help, width);
    if (syntax.more) text += helpLine(syntax.more->name, syntax.more->help, width);
    for (const Option& option : options)
        text += helpLine(usageOf(option), option.help, width);
    return text;
}

} // namespace kestro
