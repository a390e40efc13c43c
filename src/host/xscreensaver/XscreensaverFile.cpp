#include "host/xscreensaver/XscreensaverFile.h"

#include <QRegularExpression>

#include <algorithm>

namespace kestro {

namespace {

const QByteArray listKey = QByteArrayLiteral("programs");
const QByteArray chosenKey = QByteArrayLiteral("selected");
/// What ends an entry: a backslash and an n, as they stand in the file.
const QByteArray entryEnd = QByteArrayLiteral("\\n");

QList<QByteArray> linesOf(const QByteArray& text)
{
    QList<QByteArray> lines;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype end = text.indexOf('\n', start);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        lines.append(text.mid(start, next - start));
        start = next;
    }
    return lines;
}

/// Whether the next line belongs to it.
bool isContinued(const QByteArray& line)
{
    return line.endsWith("\\\n") || line.endsWith("\\\r\n");
}

/// What a line says, without the mark that it goes on and without blanks around.
QByteArray saidBy(const QByteArray& line)
{
    QByteArray said = line.trimmed();
    if (isContinued(line)) said.chop(1);
    return said.trimmed();
}

/// The list for everybody is a file of X resources, where a key has an asterisk before it.
bool isKey(const QByteArray& line, const QByteArray& key)
{
    const qsizetype colon = line.indexOf(':');
    QByteArray found = line.left(colon).trimmed();
    if (found.startsWith('*')) found.remove(0, 1);
    return colon > 0 && found.compare(key, Qt::CaseInsensitive) == 0;
}

QByteArray afterColon(const QByteArray& line)
{
    return line.mid(line.indexOf(':') + 1);
}

/// Whether an entry, `- GL: "Name" command \n`, runs a program of the name "kestro", wherever that lies.
bool runsKestro(const QByteArray& entry)
{
    static const QRegularExpression form(QStringLiteral(
        R"(^-?\s*(?:\w[\w-]*:\s)?\s*(?:"[^"]*")?\s*(?:'(?:[^']*/)?kestro'|(?:[^\s']*/)?kestro)(?:\s|\\n|$))"));
    return entry.contains("kestro") && form.match(QString::fromUtf8(entry)).hasMatch();
}

/// The line, so that another entry can follow it.
QByteArray opened(QByteArray line, bool isEntry)
{
    if (isContinued(line)) return line;
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    if (isEntry && !line.trimmed().endsWith(entryEnd)) line += " " + entryEnd;
    return line + "\\\n";
}

} // namespace

XscreensaverFile::XscreensaverFile(const QByteArray& text)
    : m_lines(linesOf(text))
{
}

XscreensaverFile::Lines XscreensaverFile::find(const QByteArray& key) const
{
    for (Lines lines; lines.begin < m_lines.size(); lines.begin = lines.end) {
        lines.end = lines.begin + 1;
        while (lines.end < m_lines.size() && isContinued(m_lines[lines.end - 1]))
            ++lines.end;
        if (isKey(m_lines[lines.begin], key)) return lines;
    }
    return {};
}

QByteArray XscreensaverFile::payload(Lines lines) const
{
    QByteArray said;
    for (qsizetype i = lines.begin; i < lines.end; ++i)
        said += saidBy(m_lines[i]) + ' ';
    return said.trimmed();
}

QList<XscreensaverFile::Lines> XscreensaverFile::kestroEntries() const
{
    QList<Lines> found;
    const Lines list = find(listKey);
    for (Lines entry{list.begin + 1, list.begin + 1}; entry.begin < list.end; entry.begin = entry.end) {
        do
            ++entry.end;
        while (entry.end < list.end && !saidBy(m_lines[entry.end - 1]).endsWith(entryEnd));
        if (runsKestro(payload(entry))) found.append(entry);
    }
    return found;
}

bool XscreensaverFile::isListed() const
{
    const auto present = kestroEntries();
    return !std::ranges::all_of(present, [this](Lines entry) { return isOff(entry); });
}

void XscreensaverFile::add(const QByteArray& command)
{
    const auto present = kestroEntries();
    if (!present.isEmpty()) {
        if (isListed()) return;
        switchOn(present.front());
        return;
    }
    if (find(listKey).isEmpty()) {
        if (!m_lines.isEmpty() && !m_lines.back().endsWith('\n')) m_lines.back() += '\n';
        if (!m_lines.isEmpty() && isContinued(m_lines.back())) m_lines.append("\n");
        m_lines.append(listKey + ":\t\\\n");
    }
    append(find(listKey), "  \"Kestro\"  " + command + " \\n\\\n");
}

/// Takes the "-" away, which need not stand in the first line of the entry.
void XscreensaverFile::switchOn(Lines entry)
{
    const auto begin = m_lines.begin();
    const auto line = std::find_if(begin + entry.begin, begin + entry.end,
                                   [](const QByteArray& text) { return saidBy(text).startsWith('-'); });
    if (line != begin + entry.end) (*line)[line->indexOf('-')] = ' ';
}

void XscreensaverFile::switchOff(const QByteArray& command)
{
    if (!isMentioned()) add(command);
    for (const Lines entry : kestroEntries())
        if (!isOff(entry)) putDash(entry);
}

/// In the blanks before the entry, where there are some.
void XscreensaverFile::putDash(Lines entry)
{
    const auto begin = m_lines.begin();
    const auto line = std::find_if(begin + entry.begin, begin + entry.end,
                                   [](const QByteArray& text) { return !saidBy(text).isEmpty(); });
    const qsizetype place = line->indexOf(saidBy(*line));
    line->replace(std::max<qsizetype>(place - 2, 0), std::min<qsizetype>(place, 2), "- ");
}

void XscreensaverFile::append(Lines list, const QByteArray& entry)
{
    const bool hasBlankEnd = list.end - list.begin > 1 && saidBy(m_lines[list.end - 1]).isEmpty() &&
                             !isContinued(m_lines[list.end - 1]);
    qsizetype place = list.end - 1;
    if (!hasBlankEnd) {
        QByteArray& last = m_lines[place++];
        const bool isHeader = list.end - list.begin == 1;
        last = opened(last, !isHeader || !saidBy(afterColon(last)).isEmpty());
        m_lines.insert(place, "\n");
    }
    // An entry before that goes on without an end would take ours in.
    const QByteArray before = payload({list.begin + 1, place});
    if (!before.isEmpty() && !before.endsWith(entryEnd)) m_lines.insert(place++, entryEnd + "\\\n");
    m_lines.insert(place, entry);
}

void XscreensaverFile::remove()
{
    const auto entries = kestroEntries();
    keepChosen(numbersOf(entries));
    std::for_each(entries.rbegin(), entries.rend(), [this](Lines entry) { removeEntry(entry); });
}

void XscreensaverFile::removeEntry(Lines entry)
{
    const bool endsList = !isContinued(m_lines[entry.end - 1]);
    m_lines.remove(entry.begin, entry.end - entry.begin);
    if (endsList) m_lines.insert(entry.begin, "\n"); // the line before still goes on
}

/// How many entries stand before each of these.
QList<qsizetype> XscreensaverFile::numbersOf(const QList<Lines>& entries) const
{
    QList<qsizetype> numbers;
    qsizetype number = 0;
    qsizetype line = find(listKey).begin;
    for (const Lines& entry : entries) {
        for (; line < entry.begin; ++line)
            number += saidBy(m_lines[line]).count(entryEnd);
        numbers.append(number);
    }
    return numbers;
}

void XscreensaverFile::keepChosen(const QList<qsizetype>& removedNumbers)
{
    const Lines chosen = find(chosenKey);
    if (chosen.isEmpty()) return;
    QByteArray& line = m_lines[chosen.begin];
    bool isNumber = false;
    const QByteArray value = afterColon(line).trimmed();
    const qsizetype number = value.toLongLong(&isNumber);
    const qsizetype before =
        std::ranges::count_if(removedNumbers, [=](qsizetype removed) { return removed < number; });
    if (isNumber && before > 0)
        line.replace(line.lastIndexOf(value), value.size(), QByteArray::number(number - before));
}

} // namespace kestro
