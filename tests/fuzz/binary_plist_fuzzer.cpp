#include "Target.h"
#include "platform/plist/BinaryPropertyList.h"
#include "platform/plist/XmlPropertyList.h"

using namespace kestro;

/// The input is a binary property list, less the first eight bytes that every one has. What it holds can be
/// written as XML, but for what XML cannot hold, and reads the same there.
void kestro::tryInput(std::string_view input)
{
    QByteArray bytes("bplist00");
    bytes.append(input.data(), qsizetype(input.size()));
    expect(isBinaryPropertyList(bytes), "it is one by its first bytes");
    const auto tree = readBinaryPropertyList(bytes);
    if (!tree) return;
    const auto written = xmlPropertyList(*tree);
    if (!written) return;
    const auto again = readXmlPropertyList(*written);
    expect(again.has_value(), "what is written can be read");
    expect(xmlPropertyList(*again) == written, "and is written the same again");
}
