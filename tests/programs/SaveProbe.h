#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <initializer_list>

namespace kestro {

/// One of the files that Kestro keeps: its name, and what saves it in a folder, with contents that tell by a
/// number which saving they are of. False when that failed.
struct SaveKind {
    const char* name;
    bool (*save)(const QString& folder, int number);
};

/// More than is written at once.
inline QString longText(int number)
{
    return QString::number(number).repeated(20'000);
}

/// The whole of a program "PROBE KIND FOLDER NUMBER [COUNT]": saves one of these kinds COUNT times, or once,
/// with one number after the other. The exit status: 0, 1 when a save failed, 2 for other arguments.
inline int saveOneOf(std::initializer_list<SaveKind> kinds, int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 4) return 2;
    const int first = words[3].toInt();
    const int count = words.size() > 4 ? words[4].toInt() : 1;
    for (const SaveKind& kind : kinds)
        if (words[1] == QLatin1String(kind.name)) {
            for (int number = first; number < first + count; ++number)
                if (!kind.save(words[2], number)) return 1;
            return 0;
        }
    return 2;
}

} // namespace kestro
