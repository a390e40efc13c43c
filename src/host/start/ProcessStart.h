#pragma once

#include <QStringList>

namespace kestro {

// What each program of the package does first. Main thread.

/// Readies the process: a thread for the signals that ask for its end, no rights that it does not need, names
/// in UTF-8, one share of memory for all threads, no death by a reader that goes away. Before Qt is used, and
/// before any thread.
void prepareProcess();

/// The words after the program's name.
[[nodiscard]] QStringList wordsFrom(int count, char** words);

} // namespace kestro
