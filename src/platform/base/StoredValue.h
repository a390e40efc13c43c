#pragma once

#include <QString>
#include <QVariant>

namespace kestro {

// Settings are stored as text, but a number or a flag object is read as well. These are the readings that
// every settings accessor uses. Any thread.

/// The integer at the start of a stored text: white space, a sign and decimal digits are read, the rest is
/// ignored. Text without a number at its start is 0; a number too large for 32 bits is the nearest one that
/// fits. A number object is cut to its whole part, a flag is 0 or 1; an object of any other kind is 0.
[[nodiscard]] int intValue(const QVariant& stored);

/// The real number at the start of a stored text, with a point whatever the locale; by the same rules, 0 for
/// none.
[[nodiscard]] float floatValue(const QVariant& stored);

/// Text of a whole number as it is stored ("%d").
[[nodiscard]] QString storedInt(int value);

/// Text of a real number as it is stored ("%f": six decimals, so 4 is "4.000000").
[[nodiscard]] QString storedFloat(double value);

} // namespace kestro
