#include "host/doctor/Examinations.h"
#include "platform/movie/CardDecoding.h"

#include <QSysInfo>

namespace kestro {

std::unique_ptr<Examination> versionsExamination()
{
    return std::make_unique<QuickExamination>(QStringLiteral("Versions"), [] {
        Findings findings{
            fine(QStringLiteral("Kestro " KESTRO_VERSION)),
            fine(QSysInfo::prettyProductName() + QStringLiteral(", Linux ") + QSysInfo::kernelVersion()),
            fine(QStringLiteral("Qt ") + QLatin1String(qVersion()))};
        for (const QString& line : movieLibraryVersions())
            findings += fine(line);
        return findings;
    });
}

} // namespace kestro
