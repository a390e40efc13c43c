#include "host/hacks/HackCatalog.h"

#include "platform/base/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamReader>

namespace kestro {

namespace {

constexpr qint64 mostBytes = 1 << 20;

/// What a description calls the hack's command, less the words that name the window to draw in. A hack's
/// options are in there where they differ from the program's own defaults; the controls that follow in the
/// description stand at those and give no words.
QStringList argumentsIn(const QString& command)
{
    const QStringList namesOfWindow{QStringLiteral("--root"), QStringLiteral("-root")};
    // Written for a shell, which knows both quotes.
    QStringList arguments = QProcess::splitCommand(QString(command).replace(u'\'', u'"'));
    arguments.removeIf([&](const QString& word) { return namesOfWindow.contains(word); });
    return arguments;
}

void readElement(const QXmlStreamReader& xml, InstalledHack& found)
{
    const auto attributes = xml.attributes();
    if (xml.name() == u"screensaver") {
        found.name = attributes.value(QStringLiteral("name")).toString();
        found.label = attributes.value(QStringLiteral("_label")).toString().simplified();
        found.hack.drawsOpenGL = attributes.value(QStringLiteral("gl")) == u"yes";
    } else if (xml.name() == u"command") {
        found.hack.arguments += argumentsIn(attributes.value(QStringLiteral("arg")).toString());
    }
}

/// The whole of a description's file; empty where it cannot be read.
QByteArray descriptionIn(const QString& path)
{
    const auto description = readRegularFile(path, mostBytes);
    return description ? description.value() : QByteArray();
}

} // namespace

std::optional<InstalledHack> readHackDescription(const QByteArray& description)
{
    QXmlStreamReader xml(description);
    InstalledHack found;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement) readElement(xml, found);
    const bool isPlainName = !found.name.isEmpty() && !found.name.contains(u'/');
    if (xml.hasError() || !isPlainName || found.name == u"kestro") return {};
    if (found.label.isEmpty()) found.label = found.name;
    return found;
}

QList<InstalledHack> installedHacks(const QStringList& descriptionFolders, const QStringList& programFolders)
{
    QMap<QString, InstalledHack> byName;
    for (const QString& path : descriptionFolders) {
        const QDir folder(path);
        for (const QString& file : folder.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
            auto found = readHackDescription(descriptionIn(folder.filePath(file)));
            if (!found || byName.contains(found->name)) continue;
            found->hack.program = QStandardPaths::findExecutable(found->name, programFolders);
            if (!found->hack.program.isEmpty()) byName.insert(found->name, *found);
        }
    }
    return byName.values();
}

QStringList hackDescriptionFolders()
{
    return {QStringLiteral("/usr/share/xscreensaver/config"),
            QStringLiteral("/usr/local/share/xscreensaver/config")};
}

} // namespace kestro
