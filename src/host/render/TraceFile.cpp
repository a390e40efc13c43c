#include "host/render/TraceFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace kestro {

Result<std::unique_ptr<TraceFile>> TraceFile::create(const QString& path)
{
    auto file = std::make_unique<QFile>(path);
    if (file->open(QIODevice::WriteOnly | QIODevice::Truncate))
        return std::make_unique<TraceFile>(std::move(file));
    return Error{QStringLiteral("Cannot write %1: %2").arg(path, file->errorString())};
}

TraceFile::TraceFile(std::unique_ptr<QFile> file)
    : m_file(std::move(file))
{
}

TraceFile::~TraceFile() = default;

Result<void> TraceFile::write(const QJsonObject& line)
{
    const QByteArray text = QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
    if (m_file->write(text) == text.size() && m_file->flush()) return {};
    return Error{QStringLiteral("Cannot write %1: %2").arg(m_file->fileName(), m_file->errorString())};
}

} // namespace kestro
