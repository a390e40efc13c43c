#pragma once

#include <QObject>

#include <functional>
#include <utility>

class QThreadPool;

namespace kestro {

/// A function on its way through one of Qt's queues, from the thread that hands it over to the one that runs
/// it. The queue itself puts what either does in order. A tool that watches memory does not see that in a
/// library that was not built for it, so each way through is marked by an atomic besides, at the end of what
/// the one thread writes and at the beginning of what the other reads. Made by the functions below alone.
class PostedFunction final {
public:
    explicit PostedFunction(std::function<void()> run);
    PostedFunction(const PostedFunction& other);
    PostedFunction(PostedFunction&& other) noexcept;
    PostedFunction& operator=(const PostedFunction&) = delete;
    ~PostedFunction();

    void operator()() const;

private:
    std::function<void()> m_run;
};

/// Has `run` called from the event loop of the thread that `receiver` lives on; never where `receiver` is
/// destroyed before. Any thread; `receiver` must be there until this returns.
void postTo(QObject& receiver, std::function<void()> run);

/// Has `run` called on a thread of `pool`. Any thread.
void runOn(QThreadPool& pool, std::function<void()> run);

} // namespace kestro
