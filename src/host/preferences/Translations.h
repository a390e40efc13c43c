#pragma once

namespace kestro {

/// Has the application speak the user's language, Qt's own texts included, as far as there are translations.
/// Needs the application object; before the first text is looked up. Main thread.
void installTranslations();

} // namespace kestro
