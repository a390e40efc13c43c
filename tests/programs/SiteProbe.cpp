// site_probe site FOLDER NUMBER [COUNT]: saves the record of a published site and a page of it. It is a
// program of its own because it loads what plays movies, which takes longer than all that the others do.

#include "programs/SaveProbe.h"
#include "publish/SiteFolder.h"

using namespace kestro;

namespace {

bool saveSite(const QString& folder, int number)
{
    SiteFolder site(folder);
    const QString file = QStringLiteral("page.html");
    const bool isWritten = site.open() && site.claim({file}) && site.write(file, longText(number).toUtf8());
    SourceMovie movie;
    movie.path = QStringLiteral("%1.mov").arg(number);
    movie.bytes = number;
    return isWritten && site.finish({movie});
}

} // namespace

int main(int argc, char** argv)
{
    return saveOneOf({{"site", saveSite}}, argc, argv);
}
