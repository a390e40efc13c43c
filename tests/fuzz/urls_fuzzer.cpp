#include "Target.h"
#include "platform/base/URLKind.h"

#include <QString>
#include <QUrl>

using namespace kestro;

/// The input is a URL. What it is told to be is the same however it is written down and read again, and has
/// nothing to do with its query and its fragment.
void kestro::tryInput(std::string_view input)
{
    const QUrl url(QString::fromUtf8(input.data(), qsizetype(input.size())));
    const QString name = lastPathComponent(url);
    expect(!name.contains(u'/'), "a component holds no slash");
    const QString extension = upperCasePathExtension(url);
    expect(!extension.contains(u'.'), "an extension holds no point");
    expect(extension.isEmpty() || name.endsWith(extension, Qt::CaseInsensitive) ||
               name.toUpper().endsWith(extension),
           "an extension ends the name");
    expect(namesWebContent(url) == (extension == u"SWF"), "web content is told by the extension");
    if (isWebURL(url))
        expect(!url.host().isEmpty() && url.scheme().startsWith(u"http"),
               "a web site has a scheme and a host");
    if (!url.isValid()) return;

    const QUrl again = QUrl::fromEncoded(url.toEncoded());
    expect(isWebURL(again) == isWebURL(url), "a URL that is written down leads to the same kind of place");
    expect(namesWebContent(again) == namesWebContent(url), "and names the same kind of content");
    const QUrl bare = url.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment);
    expect(upperCasePathExtension(bare) == extension, "the path alone decides");
}
