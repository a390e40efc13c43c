// A disk that goes bad: shows the files of a folder, read only, and never answers what it is told not to.
//
// usage: dead_disk FOLDER MOUNT_POINT [NAME=stat|open|read[@BYTE]|.=list]...
//
// A file named twice is silent to both. Each question that stays without an answer is one line on standard
// output, "NAME stat"; before them one line, "mounted". Where nothing can be mounted the status is 77.
// Whoever waits for an answer comes free when this process ends, however that happens, and the mount goes
// with it.

#define FUSE_USE_VERSION 312
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fuse_lowlevel.h>
#include <optional>
#include <string>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int cannotMount = 77;
constexpr double forLong = 3600; // seconds

struct File {
    std::string name;
    std::string path;
    bool isSilentToStat = false;
    bool isSilentToOpen = false;
    std::optional<off_t> lastByte = {}; ///< what lies beyond is never read
};

/// The files, by their numbers less 2: 1 is the folder.
std::vector<File>& files()
{
    static std::vector<File> all;
    return all;
}

File* fileOf(fuse_ino_t number)
{
    return number < 2 || number - 2 >= files().size() ? nullptr : &files()[number - 2];
}

bool isSilentToList = false; ///< the folder, of what is in it

void leaveUnanswered(const char* name, const char* question)
{
    std::printf("%s %s\n", name, question);
    std::fflush(stdout);
}

void leaveUnanswered(const File& file, const char* question)
{
    leaveUnanswered(file.name.c_str(), question);
}

struct stat statusOf(fuse_ino_t number)
{
    struct stat status = {};
    if (const File* file = fileOf(number))
        ::stat(file->path.c_str(), &status);
    else
        status.st_mode = S_IFDIR | 0555;
    status.st_ino = number;
    return status;
}

void lookUp(fuse_req_t request, fuse_ino_t, const char* name)
{
    for (std::size_t i = 0; i < files().size(); ++i) {
        if (files()[i].name != name) continue;
        if (files()[i].isSilentToStat) return leaveUnanswered(files()[i], "stat");
        fuse_entry_param entry = {};
        entry.ino = i + 2;
        entry.attr = statusOf(entry.ino);
        entry.attr_timeout = entry.entry_timeout = forLong;
        fuse_reply_entry(request, &entry);
        return;
    }
    fuse_reply_err(request, ENOENT);
}

void getStatus(fuse_req_t request, fuse_ino_t number, fuse_file_info*)
{
    const struct stat status = statusOf(number);
    fuse_reply_attr(request, &status, forLong);
}

void openFile(fuse_req_t request, fuse_ino_t number, fuse_file_info* info)
{
    const File& file = *fileOf(number);
    if (file.isSilentToOpen) return leaveUnanswered(file, "open");
    const int opened = ::open(file.path.c_str(), O_RDONLY | O_CLOEXEC);
    if (opened < 0) {
        fuse_reply_err(request, errno);
        return;
    }
    info->fh = static_cast<std::uint64_t>(opened);
    fuse_reply_open(request, info);
}

void readFile(fuse_req_t request, fuse_ino_t number, std::size_t size, off_t offset, fuse_file_info* info)
{
    const File& file = *fileOf(number);
    if (file.lastByte && offset + static_cast<off_t>(size) > *file.lastByte)
        return leaveUnanswered(file, "read");
    std::vector<char> bytes(size);
    const ssize_t count = ::pread(static_cast<int>(info->fh), bytes.data(), size, offset);
    if (count < 0)
        fuse_reply_err(request, errno);
    else
        fuse_reply_buf(request, bytes.data(), static_cast<std::size_t>(count));
}

void closeFile(fuse_req_t request, fuse_ino_t, fuse_file_info* info)
{
    ::close(static_cast<int>(info->fh));
    fuse_reply_err(request, 0);
}

void readFolder(fuse_req_t request, fuse_ino_t, std::size_t size, off_t offset, fuse_file_info*)
{
    if (isSilentToList) return leaveUnanswered(".", "list");
    std::vector<char> bytes(size);
    std::size_t filled = 0;
    for (auto i = static_cast<std::size_t>(offset); i < files().size(); ++i) {
        struct stat status = {};
        status.st_ino = i + 2;
        status.st_mode = S_IFREG;
        const std::size_t length =
            fuse_add_direntry(request, bytes.data() + filled, size - filled, files()[i].name.c_str(), &status,
                              static_cast<off_t>(i + 1));
        if (length > size - filled) break;
        filled += length;
    }
    fuse_reply_buf(request, bytes.data(), filled);
}

/// Nothing is read ahead, so that a file goes silent at the byte that was named.
void begin(void*, fuse_conn_info* connection)
{
    connection->max_readahead = 0;
    std::puts("mounted");
    std::fflush(stdout);
}

const fuse_lowlevel_ops& operations()
{
    static fuse_lowlevel_ops all = {};
    all.init = begin;
    all.lookup = lookUp;
    all.getattr = getStatus;
    all.open = openFile;
    all.read = readFile;
    all.release = closeFile;
    all.readdir = readFolder;
    return all;
}

/// `rule` is NAME=stat, NAME=open, NAME=read, NAME=read@BYTE or .=list. Answers whether it was understood.
bool silence(const std::string& rule)
{
    if (rule == ".=list") return isSilentToList = true;
    const auto sign = rule.rfind('=');
    if (sign == std::string::npos) return false;
    const std::string question = rule.substr(sign + 1);
    for (File& file : files()) {
        if (file.name != rule.substr(0, sign)) continue;
        if (question == "stat") return file.isSilentToStat = true;
        if (question == "open") return file.isSilentToOpen = true;
        if (!question.starts_with("read")) return false;
        file.lastByte = question.starts_with("read@") ? std::stoll(question.substr(5)) : 0;
        return true;
    }
    return false;
}

bool readArguments(int count, char** words)
{
    if (count < 3) return false;
    for (const auto& entry : std::filesystem::directory_iterator(words[1]))
        files().push_back({entry.path().filename().string(), entry.path().string()});
    for (int i = 3; i < count; ++i)
        if (!silence(words[i])) return false;
    return true;
}

int serve(fuse_session* session, const char* mountPoint)
{
    if (fuse_session_mount(session, mountPoint) != 0) return cannotMount;
    const int status = fuse_session_loop(session);
    fuse_session_unmount(session);
    return status == 0 ? 0 : 1;
}

} // namespace

int main(int count, char** words)
{
    if (!readArguments(count, words)) {
        std::fputs("usage: dead_disk FOLDER MOUNT_POINT [NAME=stat|open|read[@BYTE]|.=list]...\n", stderr);
        return 2;
    }
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // The mount goes even where this process is killed.
    const char* options[] = {words[0], "-o", "ro,auto_unmount,fsname=dead_disk"};
    fuse_args arguments = FUSE_ARGS_INIT(3, const_cast<char**>(options));
    fuse_session* session = fuse_session_new(&arguments, &operations(), sizeof(fuse_lowlevel_ops), nullptr);
    if (!session) return 1;
    fuse_set_signal_handlers(session);
    const int status = serve(session, words[2]);
    fuse_remove_signal_handlers(session);
    fuse_session_destroy(session);
    return status;
}
