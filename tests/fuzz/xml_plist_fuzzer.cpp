#include "StoredForm.h"
#include "Target.h"
#include "platform/plist/PlainXmlPropertyList.h"
#include "platform/plist/XmlPropertyList.h"

using namespace kestro;

/// The input is an XML property list. Where it is plain enough for the fast reader, that one reads what the
/// reader of all XML reads. What can be written again reads the same.
void kestro::tryInput(std::string_view input)
{
    const QByteArray bytes(input.data(), qsizetype(input.size()));
    const auto plain = readPlainXmlPropertyList(bytes);
    const auto all = readAnyXmlPropertyList(bytes);
    if (plain) {
        expect(all.has_value(), "what is plain is XML");
        expect(storedForm(*all) == storedForm(*plain), "both readers read the same");
    }
    if (!all) return;
    const auto written = xmlPropertyList(*all);
    if (!written) return;
    const auto again = readXmlPropertyList(*written);
    expect(again.has_value(), "what is written can be read");
    expect(xmlPropertyList(*again) == written, "and is written the same again");
}
