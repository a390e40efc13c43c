#include "platform/base/OneLine.h"

#include <algorithm>

namespace kestro {

namespace {

bool breaksLine(QChar c)
{
    const QChar::Category category = c.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

bool turnsText(QChar c)
{
    switch (c.direction()) {
    case QChar::DirLRE:
    case QChar::DirLRO:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

} // namespace

QString onOneLine(QString words)
{
    std::replace_if(
        words.begin(), words.end(), [](QChar c) { return breaksLine(c) || turnsText(c); }, QChar(u' '));
    return words;
}

} // namespace kestro
