#include "platform/web/HelperProcess.h"

#include "platform/web/HelperEnvironment.h"

#include <QProcessEnvironment>

#include <unistd.h>

namespace kestro {

Result<std::unique_ptr<ChildProcess>> startHelper(const QString& program, const QString& home,
                                                  const QStringList& arguments, const Descriptor& channel)
{
    return ChildProcess::start(
        {.file = program,
         .arguments = QStringList(home) + arguments,
         .environment = helperEnvironment(QProcessEnvironment::systemEnvironment(), home, geteuid() == 0),
         .descriptors = {{STDOUT_FILENO, STDOUT_FILENO},
                         {STDERR_FILENO, STDERR_FILENO},
                         {channel.number(), helperChannelNumber}},
         .group = ChildProgram::Group::OwnSession});
}

} // namespace kestro
