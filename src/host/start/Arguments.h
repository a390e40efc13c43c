#pragma once

#include "platform/base/Result.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace kestro {

/// One option of a command, as it is written after two dashes.
struct Option {
    QString name;
    QString valueName; ///< what its value is called in the help; empty for an option without a value
    QString help;
    bool isRequired = false;  ///< for the help; whether it was given is for the command to check
    QStringList choices = {}; ///< for shells that complete it: words that its value may be
};

/// A word that a command needs, told by its place and not by dashes.
struct Operand {
    QString name; ///< what it is called in the help
    QString help;
};

/// What may be written after a command's name, for the parser and for the help. "help" is always understood.
struct Syntax {
    QString name; ///< empty for the program without a command
    QString summary;
    QList<Option> options;
    bool isOneDashEnough = false;     ///< "-name" counts as "--name"
    QList<Operand> operands = {};     ///< each of them must be given
    std::optional<Operand> more = {}; ///< any number of these may follow them

    [[nodiscard]] const Option* find(const QString& optionName) const;
};

/// The options that were given to a command, checked against its syntax. Values are still text; the readers
/// below turn them into numbers within bounds. A plain value.
class Arguments final {
public:
    /// Reads `words`, what stands after the command's name: "--name", "--name value" and "--name=value", and
    /// the operands between them; of one option given twice the last counts, and after "--" every word is an
    /// operand. The error names the word that is not understood, or the operand that is missing; none is when
    /// help is asked for.
    [[nodiscard]] static Result<Arguments> parse(const Syntax& syntax, const QStringList& words);

    [[nodiscard]] bool has(const QString& option) const { return m_values.contains(option); }
    /// The text given to `option`, nothing when it was not given.
    [[nodiscard]] std::optional<QString> text(const QString& option) const;
    /// The operands in their order, at least as many as the syntax names unless help is asked for.
    [[nodiscard]] const QStringList& operands() const { return m_operands; }
    /// A whole number from `least` to `most`; `fallback` when it was not given.
    [[nodiscard]] Result<int> integer(const QString& option, int fallback, int least, int most) const;
    /// A real number, with a point, from `least` to `most`; `fallback` when it was not given.
    [[nodiscard]] Result<double> real(const QString& option, double fallback, double least,
                                      double most) const;

private:
    QHash<QString, QString> m_values;
    QStringList m_operands;
};

/// The help of one command: how it is written, what it does, each option a line.
[[nodiscard]] QString helpText(const Syntax& syntax);

} // namespace kestro
