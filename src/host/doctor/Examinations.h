#pragma once

#include "host/doctor/DoctorRun.h"

#include <QList>
#include <QUrl>

namespace kestro {

// What the doctor looks at, one source file a field. Main thread. Tested by test_doctor.

/// The versions of Kestro and of what it stands on.
[[nodiscard]] std::unique_ptr<Examination> versionsExamination();
/// The kind of session, who starts the saver in it, who else would, and why it is not shown now.
[[nodiscard]] std::unique_ptr<Examination> startExamination();
/// What draws and decodes. A driver may hang or crash: a process of its own looks.
[[nodiscard]] std::unique_ptr<Examination> graphicsExamination();
/// The same by the file of that program, which writes a JSON array of findings on its standard output.
[[nodiscard]] std::unique_ptr<Examination> graphicsExaminationBy(const QString& program);
/// That process's look, in which the application object is there.
[[nodiscard]] Findings lookAtGraphics();
/// The settings files, with their faults.
[[nodiscard]] std::unique_ptr<Examination> settingsExamination();
/// Web content: its helper, what that needs, and the browser's sandbox.
[[nodiscard]] std::unique_ptr<Examination> webExamination();
/// The savers of xscreensaver, and the one behind the movies.
[[nodiscard]] std::unique_ptr<Examination> saversExamination();
/// How many entries of the playlist stand for trailers.
enum class AutomaticEntries { None, Some, All };
/// The trailer site and what is on record of it; null where neither a site nor an entry asks for trailers.
[[nodiscard]] std::unique_ptr<Examination> trailersExamination(AutomaticEntries entries);
/// The copies of movies from the web; null where nobody chose that any are kept.
[[nodiscard]] std::unique_ptr<Examination> keptMoviesExamination();

/// All of them, with the person's playlist.
[[nodiscard]] DoctorRun::Examinations allExaminations();

} // namespace kestro
