#include "host/doctor/Examinations.h"
#include "platform/base/ChildOutput.h"
#include "platform/base/ChildProcess.h"
#include "platform/base/Paths.h"
#include "platform/session/SessionPlaces.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <unistd.h>

namespace kestro {

namespace {

constexpr qsizetype longestReport = 65536; // bytes

/// A driver may hang or crash: a process of its own asks it.
class GraphicsExamination final : public Examination {
public:
    explicit GraphicsExamination(QString program)
        : Examination(QStringLiteral("Graphics"))
        , m_program(std::move(program))
    {
    }

    void begin(Done done) override
    {
        m_done = std::move(done);
        auto process = ChildProcess::start({.file = m_program,
                                            .arguments = {QStringLiteral("--graphics")},
                                            .descriptors = {{m_report.number(), STDOUT_FILENO}},
                                            .endsWithParent = true});
        if (!process)
            return m_done({broken(QStringLiteral("cannot be looked at: ") + process.error(),
                                  QStringLiteral("install Kestro anew"))});
        m_process = std::move(process.value());
        m_process->whenEnded([this](const ChildEnd& end) { m_done(read(end)); });
    }

private:
    [[nodiscard]] Findings read(const ChildEnd& end) const
    {
        if (end.signal != 0)
            return {broken(QStringLiteral("a driver crashed (signal %1)").arg(end.signal),
                           QStringLiteral("have software draw: KESTRO_RENDERER=software"))};
        const QJsonArray list = QJsonDocument::fromJson(m_report.first(longestReport)).array();
        Findings findings;
        for (const auto& item : list)
            findings += Finding::from(item.toObject());
        if (!findings.isEmpty()) return findings;
        return {broken(QStringLiteral("the display cannot be reached"),
                       QStringLiteral("see whether DISPLAY or WAYLAND_DISPLAY is right"))};
    }

    QString m_program;
    ChildOutput m_report;
    std::unique_ptr<ChildProcess> m_process;
    Done m_done;
};

} // namespace

std::unique_ptr<Examination> graphicsExaminationBy(const QString& program)
{
    return std::make_unique<GraphicsExamination>(program);
}

std::unique_ptr<Examination> graphicsExamination()
{
    const auto places = SessionPlaces::ofProcess();
    if (!places.waylandDisplay.isEmpty() || !places.xDisplay.isEmpty())
        return graphicsExaminationBy(packageLibraries() + QStringLiteral("/kestro-doctor"));
    return std::make_unique<QuickExamination>(QStringLiteral("Graphics"), [] {
        return Findings{better(QStringLiteral("no display here"),
                               QStringLiteral("run kestro doctor in a window of the desktop"))};
    });
}

} // namespace kestro
