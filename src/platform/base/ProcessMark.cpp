#include "platform/base/ProcessMark.h"

#include <QCoreApplication>
#include <QFile>

namespace kestro {

namespace {

/// Of /proc/<number>/stat, counted from the one after the program's name, which may hold anything.
constexpr qsizetype beginField = 19;

} // namespace

QString processMark(qint64 number)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(number));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray facts = file.readAll();
    const auto fields = facts.mid(facts.lastIndexOf(')') + 2).split(' ');
    if (fields.size() <= beginField) return {};
    return QStringLiteral("%1 %2").arg(number).arg(QString::fromLatin1(fields[beginField]));
}

QString markOfThisProcess()
{
    return processMark(QCoreApplication::applicationPid());
}

bool isRunning(const QString& mark)
{
    return !mark.isEmpty() && processMark(mark.section(u' ', 0, 0).toLongLong()) == mark;
}

} // namespace kestro
