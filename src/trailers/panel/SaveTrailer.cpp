#include "trailers/panel/SaveTrailer.h"

#include "platform/base/FileName.h"
#include "platform/base/URLKind.h"
#include "widgets/StartFolder.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QUrl>

namespace kestro {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("kestro::SaveTrailer", text);
}

// The folder chosen last, as long as the program runs.
QString& lastFolder()
{
    static QString folder = startFolder();
    return folder;
}

// The save panel asked about the name that was typed, not about the one with the extension.
bool mayReplace(const QString& path, QWidget* parent)
{
    if (!QFileInfo::exists(path)) return true;
    const QString text =
        translated(QT_TRANSLATE_NOOP("kestro::SaveTrailer", "%1 already exists.\nReplace it?"));
    return QMessageBox::question(parent, translated(QT_TRANSLATE_NOOP("kestro::SaveTrailer", "Save Trailer")),
                                 text.arg(QFileInfo(path).fileName())) == QMessageBox::Yes;
}

} // namespace

QString askWhereToSave(const QUrl& url, QWidget* parent)
{
    const QString extension = extensionOf(lastPathComponent(url));
    QFileDialog savePanel(parent, translated(QT_TRANSLATE_NOOP("kestro::SaveTrailer", "Save Trailer")),
                          lastFolder());
    savePanel.setAcceptMode(QFileDialog::AcceptSave);
    if (!extension.isEmpty()) savePanel.setNameFilter(QStringLiteral("*.") + extension);
    savePanel.setDefaultSuffix(extension);
    savePanel.selectFile(lastPathComponent(url));
    if (savePanel.exec() == QDialog::Rejected) return {};
    lastFolder() = savePanel.directory().path();
    const QString chosen = savePanel.selectedFiles().value(0);
    const QString path = withRequiredFileType(chosen, extension);
    return path == chosen || mayReplace(path, parent) ? path : QString();
}

QString withRequiredFileType(const QString& path, const QString& extension)
{
    if (extension.isEmpty()) return path;
    const QString ending = u'.' + extension;
    return path.endsWith(ending, Qt::CaseInsensitive) ? path : path + ending;
}

} // namespace kestro
