#include "Target.h"
#include "platform/base/Log.h"
#include "platform/base/URLKind.h"
#include "trailers/TrailerListFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

using namespace kestro;

namespace {

/// A home folder in memory, where there is such a place, for a file that is written some thousand times a
/// second.
class Home final {
public:
    Home() { expect(QDir().mkpath(m_folder.filePath(preferences)), "there is a folder for the list"); }

    [[nodiscard]] TrailerListFile file() const { return TrailerListFile(m_folder.path(), QString()); }
    void write(const QByteArray& bytes) const
    {
        QDir folder(m_folder.filePath(preferences));
        const QStringList names = folder.entryList(QDir::Files);
        for (const QString& name : names)
            folder.remove(name);
        QFile list(file().path());
        expect(list.open(QIODevice::WriteOnly) && list.write(bytes) == bytes.size(),
               "the list can be written");
    }

private:
    static inline const QString preferences = QStringLiteral("Library/Preferences");

    QTemporaryDir m_folder{QDir(QStringLiteral("/dev/shm")).exists()
                               ? QStringLiteral("/dev/shm/kestro-fuzz-XXXXXX")
                               : QDir::tempPath() + QStringLiteral("/XXXXXX")};
};

} // namespace

/// The input is a list file, of any form. What is read of it can be saved, and reads the same again.
void kestro::tryInput(std::string_view input)
{
    static const Home home;
    static const LogCapture quiet([](const QString&) {});
    home.write(QByteArray(input.data(), qsizetype(input.size())));
    const TrailerListContents read = home.file().load();
    expect(read.hasTrailers || read.trailers.isEmpty(), "trailers come from a list of them");
    for (const TrailerRecord& trailer : read.trailers)
        expect(isWebURL(QUrl(trailer.url)), "a trailer is on a web site");
    if (!home.file().save(read)) return;
    const TrailerListContents again = home.file().load();
    expect(again.trailers.size() <= read.trailers.size(), "saving adds no trailer");
    expect(again.sites == read.sites, "saving keeps the sites");
}
