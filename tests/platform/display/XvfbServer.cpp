#include "platform/display/XvfbServer.h"

#include <QRandomGenerator>
#include <QtEndian>

namespace kestro {

namespace {

/// A number of the xwd header, by its place in it.
quint32 headerNumber(const uchar* header, int place)
{
    return qFromBigEndian<quint32>(header + qsizetype{place} * 4);
}

} // namespace

XvfbServer::XvfbServer(const QString& screen, const QStringList& options)
    : m_frame(m_folder.filePath(QStringLiteral("Xvfb_screen0")))
{
    m_process.setStandardErrorFile(QProcess::nullDevice());
    // A server that looks for a free number itself can take away the socket of one that runs beside it.
    const int number = QRandomGenerator::global()->bounded(1000, 50000);
    QStringList arguments{
        QStringLiteral(":%1").arg(number), QStringLiteral("-displayfd"), QStringLiteral("1"),
        QStringLiteral("-screen"),         QStringLiteral("0"),          screen,
        QStringLiteral("-noreset"),        QStringLiteral("-fbdir"),     m_folder.path()};
    m_process.start(QStringLiteral("Xvfb"), arguments + options);
    QByteArray answer;
    const auto isReady = [&] {
        answer += m_process.readAllStandardOutput();
        return answer.endsWith('\n') || m_process.state() == QProcess::NotRunning;
    };
    if (!waitUntil(isReady) || !answer.endsWith('\n') || !m_frame.open(QIODevice::ReadOnly)) return;
    m_display = QLatin1Char(':') + QString::fromLatin1(answer.trimmed());
    const uchar* header = m_frame.map(0, m_frame.size());
    if (!header) return;
    constexpr int colourBytes = 12;
    m_stride = headerNumber(header, 12);
    m_pixels = header + headerNumber(header, 0) + qsizetype{headerNumber(header, 19)} * colourBytes;
}

XvfbServer::~XvfbServer()
{
    m_process.terminate();
    m_process.waitForFinished();
}

QProcessEnvironment XvfbServer::environment() const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    return environment;
}

bool XvfbServer::run(const QString& tool, const QStringList& arguments) const
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(tool, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

QColor XvfbServer::pixel(int x, int y) const
{
    const auto pixel = qFromLittleEndian<quint32>(m_pixels + m_stride * y + qsizetype{x} * 4);
    return QColor::fromRgb(pixel & RGB_MASK);
}

} // namespace kestro
