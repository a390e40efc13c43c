#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kestro {

/// An HTTP server on loopback for one test, as well or as badly behaved as the test wants: it sends what the
/// test gives it, byte for byte. Serves on a thread of its own, one answer after the other; owned by the
/// test.
class LoopbackServer final {
public:
    enum class Then {
        KeepOpen, ///< wait for another request
        Close,
        Hang,   ///< keep the connection open and say nothing more
        Repeat, ///< send the bytes again and again, until the other side has enough
    };
    struct Answer {
        std::string bytes;
        Then then = Then::KeepOpen;
    };
    /// Called on the server's thread with the head of a request, the first line of which names the path.
    using Answering = std::function<Answer(const std::string& path, const std::string& head)>;

    explicit LoopbackServer(Answering answering);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    /// A whole answer with that status line ("200 OK"), body and further header lines, each ended by "\r\n".
    [[nodiscard]] static Answer whole(const std::string& body, const std::string& status = "200 OK",
                                      const std::string& headers = {});

    [[nodiscard]] int port() const { return m_port; }
    /// "http://127.0.0.1:port" and `path`.
    [[nodiscard]] std::string url(const std::string& path) const;
    /// The paths asked for so far.
    [[nodiscard]] std::vector<std::string> requests() const;
    /// How often somebody connected.
    [[nodiscard]] int connections() const;
    /// Returns once `count` requests have been answered, or are being answered without end; false when that
    /// takes three minutes.
    [[nodiscard]] bool waitForRequests(std::size_t count) const;

private:
    struct Client {
        int socket = -1;
        std::string text;
    };

    void serve();
    void accept();
    [[nodiscard]] bool serveClient(Client& client);
    [[nodiscard]] bool answer(const Client& client, const std::string& head);
    [[nodiscard]] bool send(int socket, const std::string& bytes) const;
    [[nodiscard]] bool isOver() const;

    Answering m_answering;
    int m_listener = -1;
    int m_port = 0;
    int m_end[2] = {-1, -1}; ///< a pipe; closed at the writing end when the server is to end
    std::vector<Client> m_clients;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_hasAnswered;
    std::vector<std::string> m_requests;
    std::size_t m_answered = 0;
    int m_connections = 0;
    bool m_isOver = false;
    std::thread m_thread;
};

} // namespace kestro
