#pragma once

#include "host/start/Arguments.h"

namespace kestro {

/// What a word of a command line stands for, as far as a shell can complete it.
enum class WordKind { Switch, Plain, File, Folder, Choice };

/// Of an option's value; Switch for an option without one.
[[nodiscard]] WordKind kindOf(const Option& option);
/// Of what a command takes by its place; Plain for nothing that is known.
[[nodiscard]] WordKind kindOf(const Operand& operand);
/// Of the first thing that a command takes by its place; Plain where it takes none.
[[nodiscard]] WordKind operandKind(const Syntax& syntax);

/// The syntax of every command, the first one being that of the program without a command, each with the
/// options that all of them have.
[[nodiscard]] QList<Syntax> completedCommands();

/// `text` between single quotes, for a shell in which a quote is written as `quote` within them.
[[nodiscard]] QString quoted(QString text, const QString& quote);

/// The first line of a text.
[[nodiscard]] QString firstLine(const QString& text);

// The files that the shells read.

[[nodiscard]] QString bashCompletion(const QList<Syntax>& commands);
[[nodiscard]] QString zshCompletion(const QList<Syntax>& commands);
[[nodiscard]] QString fishCompletion(const QList<Syntax>& commands);

} // namespace kestro
