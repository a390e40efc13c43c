#include "Target.h"
#include "host/start/Arguments.h"

using namespace kestro;

namespace {

Syntax syntaxFor(char choice)
{
    Syntax syntax;
    syntax.name = QStringLiteral("try");
    syntax.options = {{QStringLiteral("flag"), {}, QStringLiteral("a flag")},
                      {QStringLiteral("count"), QStringLiteral("N"), QStringLiteral("a number")},
                      {QStringLiteral("real"), QStringLiteral("X"), QStringLiteral("a real number")}};
    syntax.isOneDashEnough = choice & 1;
    if (choice & 2) syntax.operands = {{QStringLiteral("FILE"), QStringLiteral("a file")}};
    if (choice & 4) syntax.more = Operand{QStringLiteral("MORE"), QStringLiteral("others")};
    return syntax;
}

void checkNumbers(const Arguments& arguments)
{
    const auto count = arguments.integer(QStringLiteral("count"), 5, -3, 1000);
    expect(!count || (count.value() >= -3 && count.value() <= 1000), "a whole number is in its bounds");
    const auto real = arguments.real(QStringLiteral("real"), 0.5, 0.25, 10);
    expect(!real || (real.value() >= 0.25 && real.value() <= 10), "a real number is in its bounds");
}

} // namespace

/// The first byte chooses a syntax; the words follow, a line each.
void kestro::tryInput(std::string_view input)
{
    if (input.empty()) return;
    const Syntax syntax = syntaxFor(input.front());
    const QStringList words = QString::fromLocal8Bit(input.data() + 1, qsizetype(input.size()) - 1)
                                  .split(u'\n', Qt::SkipEmptyParts);
    const auto arguments = Arguments::parse(syntax, words);
    if (!arguments) return expect(!arguments.error().isEmpty(), "an error says something");
    checkNumbers(arguments.value());
    const qsizetype operands = arguments.value().operands().size();
    expect(operands <= words.size(), "an operand is a word");
    expect(operands >= syntax.operands.size() || arguments.value().has(QStringLiteral("help")),
           "each operand is there");
    expect(operands <= syntax.operands.size() || syntax.more, "no operand is too much");
}
