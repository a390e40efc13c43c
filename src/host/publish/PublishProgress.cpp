#include "host/publish/PublishProgress.h"

#include "host/start/ProgressLine.h"

#include <algorithm>

namespace kestro {

namespace {

QString step(const QString& doing, const QString& name, std::size_t number, std::size_t count)
{
    return QStringLiteral("%1 %2 of %3: %4")
        .arg(doing, QString::number(number), QString::number(count), name);
}

} // namespace

PublishProgress::PublishProgress()
    : m_isDrawn(hasProgressLine())
{
}

void PublishProgress::reading(const QString& name, std::size_t number, std::size_t count)
{
    draw(step(QStringLiteral("Reading"), name, number, count));
}

void PublishProgress::writing(const QString& name, std::size_t number, std::size_t count)
{
    draw(step(QStringLiteral("Writing"), name, number, count));
}

void PublishProgress::erase() const
{
    if (m_isDrawn) eraseProgress();
}

void PublishProgress::draw(const QString& line) const
{
    if (!m_isDrawn) return;
    drawProgress(line.simplified().left(std::max(progressColumns(), 0)).toStdString());
}

} // namespace kestro
