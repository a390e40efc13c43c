// Runs the tests of a program inside a Qt application that draws with OpenGL, off screen: on an X server of
// its own, because that is where Qt has OpenGL without a display.

#include <QGuiApplication>

#include <array>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Ends with the object, or with the program.
class Server final {
public:
    Server()
    {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0) return;
        m_process = fork();
        if (m_process == 0) serve(ends[1]);
        close(ends[1]);
        // The server writes a line, not always at once.
        char digit = 0;
        while (read(ends[0], &digit, 1) == 1 && digit != '\n')
            m_display += digit;
        close(ends[0]);
        if (digit == '\n') m_display.insert(0, ":");
    }
    ~Server()
    {
        if (m_process <= 0) return;
        kill(m_process, SIGTERM);
        waitpid(m_process, nullptr, 0);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// ":7"; without the colon when the server did not come up.
    [[nodiscard]] const std::string& display() const { return m_display; }

private:
    [[noreturn]] static void serve(int answer)
    {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        const std::string number = std::to_string(answer);
        // A server that looks for a free one itself can take away the socket of one that runs beside it.
        const std::string display = ':' + std::to_string(1000 + getpid() % 49000);
        if (!std::freopen("/dev/null", "w", stderr)) _exit(1);
        execlp("Xvfb", "Xvfb", display.c_str(), "-displayfd", number.c_str(), "-screen", "0", "1024x768x24",
               "-noreset", "-nolisten", "tcp", nullptr);
        _exit(1);
    }

    pid_t m_process = -1;
    std::string m_display;
};

/// The driver stays loaded to the end: what it leaves behind can then be told from what we do.
void keepDriver()
{
    for (const char* path : {"/usr/lib/x86_64-linux-gnu/dri/swrast_dri.so", "/usr/lib/dri/swrast_dri.so"})
        dlopen(path, RTLD_LAZY | RTLD_NODELETE);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const Server server;
    if (server.display().rfind(':', 0) != 0) {
        std::fputs("Xvfb did not come up\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", server.display().c_str());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("KESTRO_RENDERER", "opengl");
    qputenv("LIBGL_ALWAYS_SOFTWARE", "1"); // the same pictures on every machine
    keepDriver();
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
