// kestro-completions SHELL FILE: writes what a shell (bash, zsh, fish) completes after "kestro" to FILE.

#include "completions/Completed.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace {

QString completionFor(const QString& shell)
{
    const auto commands = kestro::completedCommands();
    if (shell == u"bash") return kestro::bashCompletion(commands);
    if (shell == u"zsh") return kestro::zshCompletion(commands);
    if (shell == u"fish") return kestro::fishCompletion(commands);
    return {};
}

} // namespace

int main(int count, char** words)
{
    const QString text = count == 3 ? completionFor(QString::fromLocal8Bit(words[1])) : QString();
    if (text.isEmpty()) {
        std::fputs("usage: kestro-completions bash|zsh|fish FILE\n", stderr);
        return 2;
    }
    QFile file(QFile::decodeName(words[2]));
    if (file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) == text.toUtf8().size() && file.flush())
        return EXIT_SUCCESS;
    std::fprintf(stderr, "kestro-completions: %s\n", qPrintable(file.errorString()));
    return EXIT_FAILURE;
}
