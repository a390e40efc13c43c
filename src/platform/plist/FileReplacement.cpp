#include "platform/plist/FileReplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

// What files end with while they are written, and six digits; earlier releases had but six random letters.
const QString beginning = QStringLiteral(".kestro-new-");
constexpr int digits = 6;
constexpr quint32 endOfNumbers = 1'000'000;
constexpr int mostTries = 100;
constexpr std::time_t ageOfOldBeginnings = 3600; // seconds: nobody of an earlier release writes that long
constexpr mode_t modeBits = 07777;
constexpr mode_t modeOfNew = 0666; // less the process's mask

/// An open file of the system's.
class Descriptor final {
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~Descriptor() { static_cast<void>(close()); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int number() const { return m_descriptor; }
    [[nodiscard]] bool close()
    {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor >= 0 && ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

/// Whether a name that begins like that of our file is one that an earlier release gave to what it wrote.
bool isOldName(const QString& ending)
{
    static const QRegularExpression sixLetters(QStringLiteral("^\\.[A-Za-z]{6}$"));
    return sixLetters.match(ending).hasMatch();
}

/// Whether the file is a beginning of what a release wrote. What is whole, or anything else, may be a
/// person's own copy.
bool isTorn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    constexpr QByteArrayView start("<?xml");
    if (!start.startsWith(file.read(start.size()))) return false;
    constexpr qint64 tail = 64;
    file.seek(std::max<qint64>(0, file.size() - tail));
    return !file.readAll().trimmed().endsWith("</plist>");
}

bool isLeftBehind(const QString& path, const QString& ending)
{
    struct stat found = {};
    if (lstat(QFile::encodeName(path).constData(), &found) != 0) return false;
    if (!S_ISREG(found.st_mode) || found.st_uid != geteuid() || found.st_nlink != 1) return false;
    if (ending.size() == beginning.size() + digits && ending.startsWith(beginning)) return true;
    const bool isOld = isOldName(ending) && found.st_mtime < std::time(nullptr) - ageOfOldBeginnings;
    return isOld && isTorn(path);
}

void removeLeftBehind(const QFileInfo& file)
{
    const QDir folder = file.dir();
    const QString name = file.fileName();
    for (const QString& entry : folder.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!entry.startsWith(name) || !isLeftBehind(folder.filePath(entry), entry.sliced(name.size())))
            continue;
        QFile::remove(folder.filePath(entry));
    }
}

/// Everybody who writes in a folder holds a share of its lock, which ends with its process; whoever has it
/// alone knows that what was begun there was given up.
void enterFolder(const Descriptor& folder, const QFileInfo& file)
{
    if (!folder.isOpen()) return;
    if (flock(folder.number(), LOCK_EX | LOCK_NB) == 0) removeLeftBehind(file);
    // Whoever has it alone is about to let go; a stranger who is not must not hold a saver up.
    for (int tries = 0; tries < mostTries && flock(folder.number(), LOCK_SH | LOCK_NB) != 0; ++tries)
        QThread::msleep(1);
}

bool writeAll(int file, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t more =
            write(file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (more < 0 && errno == EINTR) continue;
        if (more <= 0) return false;
        written += more;
    }
    return true;
}

bool takeModeOf(const QByteArray& path, int file)
{
    struct stat before = {};
    return stat(path.constData(), &before) != 0 || fchmod(file, before.st_mode & modeBits) == 0;
}

/// A file that is new, with its name.
std::pair<int, QByteArray> begin(const QString& path)
{
    for (int tries = 0; tries < mostTries; ++tries) {
        const quint32 number = QRandomGenerator::global()->bounded(endOfNumbers);
        const QByteArray name =
            QFile::encodeName(path + beginning + QStringLiteral("%1").arg(number, digits, 10, QChar(u'0')));
        const int file = open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, modeOfNew);
        if (file >= 0 || errno != EEXIST) return {file, name};
    }
    return {-1, {}};
}

} // namespace

bool replaceFile(const QString& path, const QByteArray& bytes)
{
    const QFileInfo place(path);
    const Descriptor folder(
        open(QFile::encodeName(place.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    enterFolder(folder, place);
    const QByteArray target = QFile::encodeName(path);
    const auto [number, begun] = begin(path);
    Descriptor file(number);
    if (!file.isOpen()) return false;
    const bool isWritten = takeModeOf(target, file.number()) && writeAll(file.number(), bytes) &&
                           fsync(file.number()) == 0 && file.close();
    if (isWritten && std::rename(begun.constData(), target.constData()) == 0) {
        if (folder.isOpen()) fsync(folder.number());
        return true;
    }
    unlink(begun.constData());
    return false;
}

} // namespace kestro
