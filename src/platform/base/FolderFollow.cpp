#include "platform/base/FolderFollow.h"

#include "platform/base/Descriptor.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>
#include <vector>

namespace kestro {

namespace {

namespace fs = std::filesystem;

constexpr int mostNames = 100'000;                ///< that are looked at
constexpr int firstNames = 256;                   ///< that are told of at once
constexpr int mostFolders = 4'096;                ///< that are watched
constexpr std::size_t mostText = 1024 * 1024 + 1; ///< of a list: a byte more tells that it is too long
constexpr int leisure = 3'000;                    ///< milliseconds before all of a large folder is read
constexpr int quiet = 1'000;                      ///< milliseconds without a change before it is read again
constexpr int mostBatches = 30;                   ///< of changes that are waited for
constexpr int absence = 5'000; ///< milliseconds between two looks for a folder that is not there
constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_MOVE | IN_CLOSE_WRITE | IN_DELETE_SELF |
                                  IN_MOVE_SELF | IN_ONLYDIR | IN_EXCL_UNLINK;

constexpr std::array<std::string_view, 34> movieExtensions{
    "3g2", "3gp",  "asf", "avi", "divx", "dv",  "f4v", "flv",  "m1v", "m2t", "m2ts", "m2v",
    "m4v", "mjpg", "mkv", "mng", "mov",  "mp4", "mpe", "mpeg", "mpg", "mpv", "mts",  "mxf",
    "nut", "ogm",  "ogv", "rm",  "rmvb", "ts",  "vob", "webm", "wmv", "y4m",
};
constexpr std::array<std::string_view, 3> downloadExtensions{"part", "crdownload", "download"};

struct Movie {
    std::string name; ///< relative to the folder
    fs::file_time_type written;
};

struct Listing {
    std::vector<Movie> movies;
    bool isWhole = true;
    bool isThere = true;
};

std::string lowerCaseExtension(std::string_view name)
{
    const auto point = name.rfind('.');
    std::string extension(point == std::string_view::npos ? std::string_view() : name.substr(point + 1));
    for (char& letter : extension)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return extension;
}

template <std::size_t N>
bool holds(const std::array<std::string_view, N>& extensions, const std::string& extension)
{
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

/// The text of a usual file; nothing where there is none that can be read.
std::optional<std::string> textIn(const fs::path& path)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat facts {};
    if (file.number() < 0 || fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return std::nullopt;
    std::string text(mostText, '\0');
    std::size_t done = 0;
    while (done < mostText) {
        const ssize_t count = ::read(file.number(), text.data() + done, mostText - done);
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    text.resize(done);
    return text;
}

/// Reads folders, and has them watched from when there is something to watch with.
class Reader final {
public:
    explicit Reader(const FolderQuestion& question)
        : m_question(question)
        , m_root(question.path)
    {
    }

    void watchWith(int watch) { m_watch = watch; }

    Listing read(int most)
    {
        if (m_question.isList) return readList();
        m_left = most;
        m_folders = 0;
        m_listing = {};
        m_downloads.clear();
        readFolder(m_root, true);
        std::erase_if(m_listing.movies,
                      [this](const Movie& movie) { return m_downloads.contains(movie.name); });
        sort();
        return std::move(m_listing);
    }

private:
    // The folder is watched: who writes a file anew may put another one in its place.
    [[nodiscard]] Listing readList() const
    {
        if (m_watch >= 0) inotify_add_watch(m_watch, m_root.parent_path().c_str(), changes);
        auto text = textIn(m_root);
        if (!text) return {.movies = {}, .isWhole = true, .isThere = false};
        std::replace(text->begin(), text->end(), '\0', '\n');
        return {.movies = {{text->insert(0, 1, '\n'), {}}}, .isWhole = true, .isThere = true};
    }

    // Watched before it is read: what comes in between is heard of.
    void readFolder(const fs::path& folder, bool isRoot)
    {
        if (m_watch >= 0 && m_folders++ < mostFolders) inotify_add_watch(m_watch, folder.c_str(), changes);
        std::error_code error;
        fs::directory_iterator at(folder, error);
        if (isRoot) m_listing.isThere = !error;
        std::vector<fs::path> below;
        for (; !error && at != fs::directory_iterator(); at.increment(error)) {
            if (--m_left < 0) {
                m_listing.isWhole = false;
                return;
            }
            look(*at, below);
        }
        for (const fs::path& each : below)
            if (m_left >= 0) readFolder(each, false);
    }

    void look(const fs::directory_entry& entry, std::vector<fs::path>& below)
    {
        std::error_code unknown;
        const std::string name = entry.path().filename().native();
        if (name.starts_with('.')) return;
        if (entry.is_directory(unknown)) {
            if (m_question.isRecursive && !entry.is_symlink(unknown)) below.push_back(entry.path());
            return;
        }
        const std::string extension = lowerCaseExtension(name);
        if (holds(downloadExtensions, extension))
            m_downloads.insert(relative(entry.path().parent_path() / entry.path().stem()));
        else if (holds(movieExtensions, extension) && entry.is_regular_file(unknown))
            m_listing.movies.push_back({relative(entry.path()), writtenAt(entry)});
    }

    [[nodiscard]] std::string relative(const fs::path& path) const
    {
        const std::size_t root = m_root.native().size();
        const bool endsWithSlash = m_root.native().ends_with('/');
        return path.native().substr(endsWithSlash ? root : root + 1);
    }

    [[nodiscard]] fs::file_time_type writtenAt(const fs::directory_entry& entry) const
    {
        std::error_code unknown;
        return m_question.isNewestFirst ? entry.last_write_time(unknown) : fs::file_time_type();
    }

    void sort()
    {
        const auto comesFirst = [](const Movie& one, const Movie& other) {
            return one.written != other.written ? one.written > other.written : one.name < other.name;
        };
        std::sort(m_listing.movies.begin(), m_listing.movies.end(), comesFirst);
    }

    const FolderQuestion m_question;
    const fs::path m_root;
    int m_watch = -1;
    int m_left = 0;
    int m_folders = 0;
    Listing m_listing;
    std::unordered_set<std::string> m_downloads; ///< what they will be called
};

bool write(const std::string& bytes)
{
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = ::write(STDOUT_FILENO, bytes.data() + done, bytes.size() - done);
        if (count <= 0) return false;
        done += static_cast<std::size_t>(count);
    }
    return true;
}

std::string textOf(const Listing& listing)
{
    std::string text;
    for (const Movie& movie : listing.movies)
        text.append(movie.name).push_back('\0');
    return text.append(listing.isWhole ? ".." : ".").append(1, '\0');
}

/// Waits for `milliseconds`, or for ever below 0, and shorter where something changed. Nothing once nobody
/// reads what is said here.
std::optional<bool> waitForChange(int watch, int milliseconds)
{
    pollfd watched[2] = {{STDOUT_FILENO, 0, 0}, {watch, POLLIN, 0}};
    const int count = poll(watched, 2, milliseconds);
    if (count < 0 || watched[0].revents != 0) return std::nullopt;
    return watched[1].revents != 0;
}

/// Takes changes as long as they come, within reason: what is being copied here is not looked at with each of
/// them. False once nobody reads what is said here.
bool takeChanges(int watch)
{
    std::optional<bool> isChanged = true;
    for (int batches = 0; isChanged && *isChanged && batches < mostBatches; ++batches) {
        alignas(inotify_event) char bytes[16 * 1024];
        if (::read(watch, bytes, sizeof bytes) <= 0) break;
        isChanged = waitForChange(watch, quiet);
    }
    return isChanged.has_value();
}

} // namespace

// To watch a large folder takes the system time, so that is not done before something was told.
int followFolder(const FolderQuestion& question)
{
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    Reader reader(question);
    std::optional<std::size_t> told;
    for (bool isFirst = true;; isFirst = false) {
        Listing listing = reader.read(isFirst && !question.isHurried ? firstNames : mostNames);
        const bool isSample = isFirst && !question.isHurried && !listing.isWhole;
        listing.isWhole = !isSample; // beyond the most names there is nothing for us
        const std::string text = textOf(listing);
        const std::size_t mark = std::hash<std::string>()(text);
        if ((told != mark && !write(text)) || question.isOnce) return EXIT_SUCCESS;
        told = mark;
        reader.watchWith(watch);
        const int rest = listing.isThere ? -1 : absence;
        const auto isChanged = waitForChange(watch, isSample ? leisure : isFirst ? 0 : rest);
        if (!isChanged || (*isChanged && !takeChanges(watch))) return EXIT_SUCCESS;
    }
}

} // namespace kestro
