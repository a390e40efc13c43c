#pragma once

#include <QByteArray>
#include <QList>

namespace kestro {

/// The settings file of xscreensaver, ~/.xscreensaver, as far as its list of savers goes: entries below
/// "programs:", each `name and command \n\`, a "-" before one that is switched off. Every byte that is not
/// asked to change stays as it is. A plain value.
class XscreensaverFile final {
public:
    explicit XscreensaverFile(const QByteArray& text);

    [[nodiscard]] QByteArray text() const { return m_lines.join(); }

    /// Whether Kestro is in the list and switched on.
    [[nodiscard]] bool isListed() const;
    /// Puts Kestro, run by `command`, at the end of the list, where no other entry's number changes: the
    /// chosen saver is stored as one. Switches it on where it is there but off; nothing where it is there and
    /// on. Where the file has no list it gets one: xscreensaver adds its own savers to it.
    void add(const QByteArray& command);
    /// Whether Kestro is in the list, switched on or off.
    [[nodiscard]] bool isMentioned() const { return !kestroEntries().isEmpty(); }
    /// Has Kestro in the list, but switched off, where xscreensaver would take it from another list.
    void switchOff(const QByteArray& command);
    /// Takes every entry of Kestro out, and keeps the chosen saver the chosen one.
    void remove();

private:
    /// A range of lines: the first, and the one after the last.
    struct Lines {
        qsizetype begin = 0;
        qsizetype end = 0;
        [[nodiscard]] bool isEmpty() const { return begin == end; }
    };

    [[nodiscard]] Lines find(const QByteArray& key) const;
    [[nodiscard]] QList<Lines> kestroEntries() const;
    [[nodiscard]] QByteArray payload(Lines lines) const;
    [[nodiscard]] bool isOff(Lines entry) const { return payload(entry).startsWith('-'); }
    void switchOn(Lines entry);
    void putDash(Lines entry);
    void append(Lines list, const QByteArray& entry);
    void removeEntry(Lines entry);
    [[nodiscard]] QList<qsizetype> numbersOf(const QList<Lines>& entries) const;
    void keepChosen(const QList<qsizetype>& removedNumbers);

    QList<QByteArray> m_lines; ///< each with its line end
};

} // namespace kestro
