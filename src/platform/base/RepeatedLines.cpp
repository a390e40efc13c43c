#include "platform/base/RepeatedLines.h"

#include "platform/base/Bounds.h"

#include <algorithm>

namespace kestro {

namespace {

QString timesTold(const QString& line, int times)
{
    return times == 1 ? line : QStringLiteral("%1 (%2 times)").arg(line).arg(times);
}

} // namespace

QStringList RepeatedLines::take(const QString& line, double now)
{
    QStringList told;
    const auto known = std::find_if(m_written.begin(), m_written.end(),
                                    [&line](const Written& written) { return written.line == line; });
    if (known == m_written.end()) {
        tellOverdue(told, now);
        remember(told, line, now);
        told.append(line);
        return told;
    }
    ++known->heldBack;
    tellOverdue(told, now);
    return told;
}

/// Told again, a line is held back for another minute; one that did not come again is forgotten.
void RepeatedLines::tellOverdue(QStringList& told, double now)
{
    while (!m_written.empty() && m_written.front().at + span <= now) {
        Written oldest = m_written.front();
        m_written.erase(m_written.begin());
        if (oldest.heldBack == 0) continue;
        told.append(timesTold(oldest.line, oldest.heldBack));
        m_written.push_back({oldest.line, now, 0});
    }
}

void RepeatedLines::remember(QStringList& told, const QString& line, double now)
{
    if (m_written.size() >= Bounds::rememberedLogLines) {
        const Written& oldest = m_written.front();
        if (oldest.heldBack > 0) told.append(timesTold(oldest.line, oldest.heldBack));
        m_written.erase(m_written.begin());
    }
    m_written.push_back({line, now, 0});
}

} // namespace kestro
