#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>

namespace kestro {

/// One thing that was looked at, and how it is. Plain English; no text of it shows what lets others in. A
/// plain value. Tested by DoctorTest.
struct Finding {
    enum class Verdict {
        Fine,
        Better, ///< works, and could be better
        Broken,
    };
    Verdict verdict = Verdict::Fine;
    QString words;
    QString remedy{}; ///< what to do about it; empty where it is fine

    bool operator==(const Finding&) const = default;

    [[nodiscard]] QJsonObject json() const;
    /// One that json() made; Broken where it is not understood.
    [[nodiscard]] static Finding from(const QJsonObject& object);
};

using Findings = QList<Finding>;

[[nodiscard]] inline Finding fine(const QString& words)
{
    return {Finding::Verdict::Fine, words};
}
[[nodiscard]] inline Finding better(const QString& words, const QString& remedy)
{
    return {Finding::Verdict::Better, words, remedy};
}
[[nodiscard]] inline Finding broken(const QString& words, const QString& remedy)
{
    return {Finding::Verdict::Broken, words, remedy};
}

/// All findings about one thing.
struct Chapter {
    QString title;
    Findings findings;
};

/// What a person reads: the chapters, and how many findings are not fine.
[[nodiscard]] QString textOf(const QList<Chapter>& chapters);
/// What a program reads: "isBroken", and "chapters" of "title" and "findings" ("verdict": "fine", "better" or
/// "broken"; "words"; "remedy").
[[nodiscard]] QJsonObject jsonOf(const QList<Chapter>& chapters);
[[nodiscard]] bool isBroken(const QList<Chapter>& chapters);

} // namespace kestro
