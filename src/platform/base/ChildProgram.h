#pragma once

#include "platform/base/Result.h"

#include <QStringList>

#include <optional>
#include <sys/types.h>
#include <vector>

namespace kestro {

/// A program, and what a process that runs it has of ours: the descriptors that are named, at the numbers
/// that are named, and nothing else. A standard stream that is not named is /dev/null there. No signal is
/// blocked or ignored in it. A plain value. Tested by ChildProcessTest.
struct ChildProgram {
    enum class Group {
        Ours,
        Own,        ///< a group of its own, which is signalled as a whole
        OwnSession, ///< likewise, without a terminal whose keys could signal it
    };
    struct Handed {
        int descriptor; ///< ours
        int as;         ///< its number there
    };

    QString file = {};                           ///< its path; the search path is not looked at
    QStringList arguments = {};                  ///< those that follow its name
    std::optional<QStringList> environment = {}; ///< NAME=VALUE, exactly these; ours where nothing is said
    std::vector<Handed> descriptors = {};
    Group group = Group::Own;
    bool endsWithParent = false; ///< gets a TERM once the thread that started it is gone, however that ends
};

/// Runs it. Answers the number of the new process, which the caller has to take leave of; the error is the
/// reason alone. Waits no longer than until the program has begun. Any thread.
[[nodiscard]] Result<pid_t> startProgram(const ChildProgram& program);

} // namespace kestro
