#include "host/start/DisplayLoss.h"

#include <QCoreApplication>
#include <QThread>

#include <utility>

namespace kestro {

namespace {

std::function<void()>& handler()
{
    static auto& kept = *new std::function<void()>; // Qt may speak until the very end of the process
    return kept;
}

QtMessageHandler before = nullptr;

/// As the parts of Qt for X11 and for Wayland put it.
bool isLoss(const QString& message)
{
    return message.startsWith(QStringLiteral("The X11 connection broke")) ||
           message.startsWith(QStringLiteral("The Wayland connection "));
}

bool isOnMainThread()
{
    const auto* application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

void hear(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (before) before(type, context, message);
    if (!isLoss(message) || !isOnMainThread()) return;
    if (const auto onLoss = std::exchange(handler(), nullptr)) onLoss();
}

} // namespace

DisplayLoss::DisplayLoss(std::function<void()> onLoss)
{
    handler() = std::move(onLoss);
    before = qInstallMessageHandler(hear);
}

DisplayLoss::~DisplayLoss()
{
    qInstallMessageHandler(before);
    handler() = nullptr;
}

} // namespace kestro
