#include "support/LoopbackServer.h"

#include <arpa/inet.h>
#include <chrono>
#include <cstdlib>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace kestro {

namespace {

/// What a test cannot go on without.
int required(int result)
{
    if (result < 0) std::abort();
    return result;
}

int portOf(int socket)
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    required(getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size));
    return ntohs(address.sin_port);
}

} // namespace

LoopbackServer::LoopbackServer(Answering answering)
    : m_answering(std::move(answering))
{
    m_listener = required(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    required(bind(m_listener, reinterpret_cast<sockaddr*>(&address), sizeof address));
    required(listen(m_listener, 16));
    m_port = portOf(m_listener);
    required(pipe(m_end));
    m_thread = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    close(m_end[1]);
    m_thread.join();
    for (const Client& client : m_clients)
        close(client.socket);
    close(m_end[0]);
    close(m_listener);
}

LoopbackServer::Answer LoopbackServer::whole(const std::string& body, const std::string& status,
                                             const std::string& headers)
{
    return {"HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
                "\r\n\r\n" + body,
            Then::KeepOpen};
}

std::string LoopbackServer::url(const std::string& path) const
{
    return "http://127.0.0.1:" + std::to_string(m_port) + path;
}

std::vector<std::string> LoopbackServer::requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

int LoopbackServer::connections() const
{
    const std::lock_guard lock(m_mutex);
    return m_connections;
}

bool LoopbackServer::waitForRequests(std::size_t count) const
{
    std::unique_lock lock(m_mutex);
    return m_hasAnswered.wait_for(lock, std::chrono::minutes(3), [&] { return m_answered >= count; });
}

void LoopbackServer::serve()
{
    for (;;) {
        std::vector<pollfd> waited = {{m_end[0], POLLIN, 0}, {m_listener, POLLIN, 0}};
        for (const Client& client : m_clients)
            waited.push_back({client.socket, POLLIN, 0});
        poll(waited.data(), waited.size(), -1);
        if (waited[0].revents != 0) return;
        for (std::size_t i = m_clients.size(); i-- > 0;) {
            if (waited[i + 2].revents == 0 || serveClient(m_clients[i])) continue;
            close(m_clients[i].socket);
            m_clients.erase(m_clients.begin() + std::ptrdiff_t(i));
        }
        if (waited[1].revents != 0) accept();
    }
}

void LoopbackServer::accept()
{
    const int socket = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) return;
    // So that sending to who does not read ends now and then, to look whether all is over.
    const timeval patience = {0, 100'000};
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    m_clients.push_back({socket, {}});
    const std::lock_guard lock(m_mutex);
    ++m_connections;
}

bool LoopbackServer::serveClient(Client& client)
{
    char bytes[4096];
    const ssize_t count = recv(client.socket, bytes, sizeof bytes, 0);
    if (count <= 0) return false;
    client.text.append(bytes, std::size_t(count));
    const auto end = client.text.find("\r\n\r\n");
    if (end == std::string::npos) return true;
    const std::string head = client.text.substr(0, end + 2);
    client.text.erase(0, end + 4);
    return answer(client, head);
}

bool LoopbackServer::answer(const Client& client, const std::string& head)
{
    const auto begin = head.find(' ') + 1;
    const std::string path = head.substr(begin, head.find(' ', begin) - begin);
    {
        // Before the answer, so that whoever has that finds the request here.
        const std::lock_guard lock(m_mutex);
        m_requests.push_back(path);
    }
    const Answer answer = m_answering(path, head);
    bool isOpen = send(client.socket, answer.bytes);
    {
        const std::lock_guard lock(m_mutex);
        ++m_answered;
    }
    m_hasAnswered.notify_all();
    while (isOpen && answer.then == Then::Repeat)
        isOpen = send(client.socket, answer.bytes);
    return isOpen && answer.then != Then::Close;
}

bool LoopbackServer::send(int socket, const std::string& bytes) const
{
    std::size_t sent = 0;
    while (sent < bytes.size() && !isOver()) {
        const ssize_t count = ::send(socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count < 0 && errno != EAGAIN && errno != EINTR) return false;
        if (count > 0) sent += std::size_t(count);
    }
    return !isOver();
}

bool LoopbackServer::isOver() const
{
    const std::lock_guard lock(m_mutex);
    return m_isOver;
}

} // namespace kestro
