// The program that looks whether everything is there that Kestro needs. Tested by test_doctor.

#include "host/doctor/Examinations.h"
#include "host/start/Console.h"
#include "host/start/GuiStart.h"
#include "host/start/ProcessStart.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds longest{15'000}; // an entry waits for others

/// What hangs is left behind.
[[noreturn]] void leave(int status)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

[[noreturn]] void tell(const QList<Chapter>& chapters, bool asJson)
{
    const QByteArray text = asJson ? QJsonDocument(jsonOf(chapters)).toJson() : textOf(chapters).toUtf8();
    const int written = print(text);
    leave(written != ExitSuccess ? written : isBroken(chapters) ? ExitFailure : ExitSuccess);
}

int examine(int count, char** words, bool asJson)
{
    const QCoreApplication application(count, words);
    DoctorRun run(allExaminations(), longest);
    run.begin([asJson](const QList<Chapter>& chapters) { tell(chapters, asJson); });
    return QCoreApplication::exec();
}

int graphics()
{
    const auto application = startGui();
    QJsonArray list;
    for (const Finding& finding : lookAtGraphics())
        list.append(finding.json());
    leave(print(QJsonDocument(list).toJson()));
}

} // namespace

} // namespace kestro

int main(int count, char** words)
{
    kestro::prepareProcess();
    const QStringList rest = kestro::wordsFrom(count, words);
    if (rest == QStringList{QStringLiteral("--graphics")}) return kestro::graphics();
    return kestro::examine(count, words, rest.contains(QStringLiteral("--json")));
}
