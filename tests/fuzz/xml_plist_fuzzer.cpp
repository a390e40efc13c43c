#include "Target.h"
#include "platform/plist/XmlPropertyList.h"

#include <QXmlStreamReader>

using namespace kestro;

namespace {

bool isWellFormed(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

} // namespace

/// The input is an XML property list. What is read is XML to another reader too, and what can be written
/// again reads the same.
void kestro::tryInput(std::string_view input)
{
    const QByteArray bytes(input.data(), qsizetype(input.size()));
    const auto tree = readXmlPropertyList(bytes);
    if (!tree) return;
    expect(isWellFormed(bytes), "what is read is well-formed");
    const auto written = xmlPropertyList(*tree);
    if (!written) return;
    const auto again = readXmlPropertyList(*written);
    expect(again.has_value(), "what is written can be read");
    expect(xmlPropertyList(*again) == written, "and is written the same again");
}
