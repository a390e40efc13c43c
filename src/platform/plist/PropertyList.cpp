#include "platform/plist/PropertyList.h"

#include "platform/base/Bounds.h"
#include "platform/plist/BinaryPropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "platform/plist/XmlPropertyList.h"

#include <utility>

namespace kestro {

std::optional<QVariant> readPropertyList(const QString& path)
{
    auto bytes = readPropertyListFile(path);
    if (!bytes) return {};
    return isBinaryPropertyList(*bytes) ? readBinaryPropertyList(*bytes)
                                        : readXmlPropertyList(std::move(*bytes));
}

std::optional<QVariantMap> readPropertyListDictionary(const QString& path)
{
    const auto root = readPropertyList(path);
    if (!root || root->typeId() != QMetaType::QVariantMap) return {};
    return root->toMap();
}

bool writePropertyList(const QString& path, const QVariant& root)
{
    const auto bytes = xmlPropertyList(root);
    return bytes && bytes->size() <= Bounds::propertyListBytes && replacePropertyListFile(path, *bytes);
}

} // namespace kestro
