#include "keep/KeptFacts.h"

#include "platform/base/RegularFile.h"

#include <QList>

namespace kestro {

namespace {

constexpr qint64 mostBytes = 4096;
const QByteArray heading = QByteArrayLiteral("kestro-movie 1");

} // namespace

QByteArray KeptFacts::text() const
{
    return heading + '\n' + QByteArray::number(length) + '\n' + QByteArray::number(fetched) + '\n' +
           version.tag + '\n' + version.modified + '\n';
}

std::optional<KeptFacts> KeptFacts::at(const QString& path)
{
    const auto text = readRegularFile(path, mostBytes);
    const QList<QByteArray> lines = text ? text.value().split('\n') : QList<QByteArray>();
    if (lines.size() != 6 || lines[0] != heading) return {};
    bool isNumber = false;
    const qint64 length = lines[1].toLongLong(&isNumber);
    if (!isNumber || length <= 0) return {};
    return KeptFacts{length, lines[2].toLongLong(), {lines[3], lines[4]}};
}

} // namespace kestro
