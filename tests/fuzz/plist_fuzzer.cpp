#include "Expect.h"
#include "platform/plist/PlainXmlPropertyList.h"
#include "platform/plist/XmlPropertyList.h"

#include <QDataStream>
#include <QIODevice>

#include <cstdint>

using namespace kestro;

namespace {

// With the kinds of values, and a number that is none the same as itself.
QByteArray storedForm(const QVariant& tree)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << tree;
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input is an XML property list. Where it is plain enough for the fast reader, that one reads what the
/// reader of all XML reads.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto plain = readPlainXmlPropertyList(bytes);
    if (!plain) return 0;
    const auto all = readAnyXmlPropertyList(bytes);
    expect(all.has_value(), "what is plain is XML");
    expect(storedForm(*all) == storedForm(*plain), "both readers read the same");
    return 0;
}
