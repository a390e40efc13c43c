#include "host/doctor/Examinations.h"
#include "host/session/SessionControl.h"
#include "idle/IdleOptions.h"
#include "idle/KeyOptions.h"
#include "idle/PowerOptions.h"
#include "idle/ScreensOptions.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/CaptionOptions.h"
#include "settings/EntryMarks.h"
#include "settings/MovieOptions.h"
#include "settings/SettingsStore.h"
#include "settings/Sunlight.h"
#include "trailers/TrailerSite.h"

#include <QFileInfo>
#include <QMutex>

namespace kestro {

namespace {

/// What reading the files says.
class Complaints final {
public:
    Complaints()
        : m_capture([this](const QString& line) {
            const QMutexLocker lock(&m_mutex);
            if (!m_lines.contains(line)) m_lines += line;
        })
    {
    }
    [[nodiscard]] QStringList lines()
    {
        const QMutexLocker lock(&m_mutex);
        return m_lines;
    }

private:
    QMutex m_mutex;
    QStringList m_lines;
    LogCapture m_capture;
};

Finding stateOf(const QString& path)
{
    return fine(QFileInfo::exists(path) ? path
                                        : path + QStringLiteral(": not there, everything is as it comes"));
}

/// One that cannot be read counts as empty, without a word.
Finding stateOfPropertyList(const QString& path)
{
    if (readPropertyListDictionary(path) || !isPropertyListFileThere(path)) return stateOf(path);
    return broken(path + QStringLiteral(": cannot be read, and counts as empty"),
                  QStringLiteral("mend the file, or choose anew in kestro settings: a copy is kept"));
}

void readConfiguration()
{
    const ConfigurationFile file = ConfigurationFile::ofUser();
    (void)IdleOptions::from(file);
    (void)powerRuleFrom(file);
    (void)screenChoiceFrom(file);
    (void)movieOptionsFrom(file);
    (void)CaptionOptions::from(file);
    (void)KeyOptions::from(file);
    (void)placeFrom(file);
    (void)EntryMarks(file, configurationFile());
    (void)SessionControl::isWanted(file);
    (void)configuredTrailerSite();
}

Findings look()
{
    Complaints complaints;
    const SettingsStore store(homeFolder());
    readConfiguration();
    Findings findings{stateOfPropertyList(store.plistPath()), stateOf(configurationFile())};
    if (const Finding resume = stateOfPropertyList(store.defaultsPlistPath()); resume != fine(resume.words))
        findings += resume;
    for (const QString& line : complaints.lines())
        findings += broken(line, QStringLiteral("mend the file, or take it away"));
    const QFileInfo folder(QFileInfo(store.plistPath()).absolutePath());
    if (folder.exists() && !folder.isWritable())
        findings += broken(folder.filePath() + QStringLiteral(": cannot be written"),
                           QStringLiteral("make the folder one that you may write in"));
    return findings;
}

} // namespace

std::unique_ptr<Examination> settingsExamination()
{
    return std::make_unique<QuickExamination>(QStringLiteral("Settings"), look);
}

} // namespace kestro
