#include "platform/saver/Hack.h"

#include "platform/saver/BuiltInSavers.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace kestro {

namespace {

const QString principalKey = QStringLiteral("NSPrincipalClass");
const QString programKey = QStringLiteral("KestroProgram");
const QString argumentsKey = QStringLiteral("KestroArguments");
const QString openGLKey = QStringLiteral("KestroOpenGL");

bool isText(const QVariant& value)
{
    return value.typeId() == QMetaType::QString && !value.toString().contains(QChar::Null);
}

} // namespace

Result<Hack> Hack::fromInfo(const QVariantMap& info)
{
    Hack hack;
    const QVariant program = info.value(programKey);
    if (!isText(program) || program.toString().isEmpty())
        return Error{QStringLiteral("its Info.plist names no KestroProgram")};
    hack.program = program.toString();
    const QVariantList arguments = info.value(argumentsKey).toList();
    if (!std::ranges::all_of(arguments, isText))
        return Error{QStringLiteral("its KestroArguments are no texts")};
    for (const QVariant& argument : arguments)
        hack.arguments.append(argument.toString());
    hack.drawsOpenGL = info.value(openGLKey).toBool();
    return hack;
}

QVariantMap Hack::toInfo() const
{
    QVariantList words;
    for (const QString& argument : arguments)
        words.append(argument);
    return {
        {principalKey, hackHostName}, {programKey, program}, {argumentsKey, words}, {openGLKey, drawsOpenGL}};
}

QString Hack::executable() const
{
    if (!program.contains(u'/')) {
        const QString found = QStandardPaths::findExecutable(program, hackFolders());
        return found.isEmpty() ? QStandardPaths::findExecutable(program) : found;
    }
    const QFileInfo file(program);
    const bool isProgram = file.isAbsolute() && file.isFile() && file.isExecutable();
    return isProgram ? QDir::cleanPath(program) : QString();
}

QStringList hackFolders()
{
    return {QStringLiteral("/usr/libexec/xscreensaver"), QStringLiteral("/usr/lib/xscreensaver"),
            QStringLiteral("/usr/local/libexec/xscreensaver")};
}

} // namespace kestro
