#include "host/doctor/Finding.h"

#include "platform/base/OneLine.h"
#include "platform/base/Paths.h"
#include "platform/base/ShownURL.h"

#include <QJsonArray>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace kestro {

namespace {

constexpr std::array names{"fine", "better", "broken"};

QString nameOf(Finding::Verdict verdict)
{
    return QLatin1String(names[static_cast<std::size_t>(verdict)]);
}

/// As others may read it, whom the person asks for help: the home folder often has the person's name.
QString shown(const QString& text)
{
    const QRegularExpression home(
        QStringLiteral("(?<![\\w.-])%1/").arg(QRegularExpression::escape(homeFolder())));
    return onOneLine(withoutSecrets(text)).replace(home, QStringLiteral("~/"));
}

qsizetype countOf(const QList<Chapter>& chapters, Finding::Verdict verdict)
{
    qsizetype count = 0;
    for (const Chapter& chapter : chapters)
        count += std::ranges::count(chapter.findings, verdict, &Finding::verdict);
    return count;
}

QString linesOf(const Finding& finding)
{
    const QString verdict = nameOf(finding.verdict).leftJustified(8);
    QString lines = QStringLiteral("  %1%2\n").arg(verdict, shown(finding.words));
    if (!finding.remedy.isEmpty()) lines += QStringLiteral("          > %1\n").arg(shown(finding.remedy));
    return lines;
}

QString summary(qsizetype broken, qsizetype better)
{
    const QString first =
        broken == 0 ? QStringLiteral("Nothing is broken") : QStringLiteral("Broken: %1").arg(broken);
    return better == 0 ? first + QStringLiteral(".\n")
                       : QStringLiteral("%1; could be better: %2.\n").arg(first).arg(better);
}

} // namespace

QJsonObject Finding::json() const
{
    return {{QStringLiteral("verdict"), nameOf(verdict)},
            {QStringLiteral("words"), shown(words)},
            {QStringLiteral("remedy"), shown(remedy)}};
}

Finding Finding::from(const QJsonObject& object)
{
    const QString name = object.value(u"verdict").toString();
    const auto* const known =
        std::ranges::find_if(names, [&](const char* one) { return name == QLatin1String(one); });
    const auto verdict =
        known == names.end() ? Verdict::Broken : static_cast<Verdict>(std::distance(names.begin(), known));
    return {verdict, object.value(u"words").toString(), object.value(u"remedy").toString()};
}

QString textOf(const QList<Chapter>& chapters)
{
    QString text;
    for (const Chapter& chapter : chapters) {
        text += chapter.title + u'\n';
        for (const Finding& finding : chapter.findings)
            text += linesOf(finding);
    }
    return text +
           summary(countOf(chapters, Finding::Verdict::Broken), countOf(chapters, Finding::Verdict::Better));
}

QJsonObject jsonOf(const QList<Chapter>& chapters)
{
    QJsonArray list;
    for (const Chapter& chapter : chapters) {
        QJsonArray findings;
        for (const Finding& finding : chapter.findings)
            findings.append(finding.json());
        list.append(
            QJsonObject{{QStringLiteral("title"), chapter.title}, {QStringLiteral("findings"), findings}});
    }
    return {{QStringLiteral("isBroken"), isBroken(chapters)}, {QStringLiteral("chapters"), list}};
}

bool isBroken(const QList<Chapter>& chapters)
{
    return countOf(chapters, Finding::Verdict::Broken) > 0;
}

} // namespace kestro
