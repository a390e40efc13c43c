#pragma once

#include <QString>

namespace kestro {

struct Picture;

/// What a sign says, in the language of the code: what is the matter, and what can be done about it. A plain
/// value.
struct SignWords {
    const char* title;
    const char* hint;
};

/// Writes the words into the lower part of a sign in the person's language (string table "Kestro"), or as
/// they are where no font has the letters. Needs an application object with a window system. Main thread.
void drawWords(Picture& sign, const SignWords& words);

} // namespace kestro
