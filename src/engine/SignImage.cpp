#include "engine/SignImage.h"

#include "engine/SignWords.h"
#include "platform/base/Log.h"
#include "platform/display/view/Painter.h"

#include <QCoreApplication>
#include <QPainter>

namespace kestro {

namespace {

constexpr SignWords selectWords{QT_TRANSLATE_NOOP("Kestro", "No movie selected"),
                                QT_TRANSLATE_NOOP("Kestro", "Add movies in the settings")};
constexpr SignWords failedWords{QT_TRANSLATE_NOOP("Kestro", "No movie could be loaded"),
                                QT_TRANSLATE_NOOP("Kestro", "Check the playlist and the network")};

} // namespace

SignPictures::SignPictures(QString resourcesFolder)
    : m_resourcesFolder(std::move(resourcesFolder))
{
}

Picture SignPictures::load(const QString& name) const
{
    const QString path = m_resourcesFolder + u'/' + name;
    auto picture = loadPicture(path, 2.0);
    if (!picture) logLine(QStringLiteral("Cannot read the picture %1").arg(path));
    return picture.value_or(Picture{});
}

Picture SignPictures::loadWith(const QString& name, const SignWords& words) const
{
    Picture picture = load(name);
    if (!picture.isNull()) drawWords(picture, words);
    return picture;
}

const Picture& SignPictures::selectImage()
{
    if (m_select.isNull()) m_select = loadWith(QStringLiteral("select.svg"), selectWords);
    return m_select;
}

const Picture& SignPictures::failedImage()
{
    if (m_failed.isNull()) m_failed = loadWith(QStringLiteral("failed.svg"), failedWords);
    return m_failed;
}

const Picture& SignPictures::previewImage()
{
    if (!m_preview.isNull()) return m_preview;
    const Picture sign = load(QStringLiteral("preview.svg"));
    if (sign.isNull()) return m_preview;
    m_preview = {QImage(sign.image.size(), QImage::Format_ARGB32_Premultiplied), sign.size};
    m_preview.image.fill(Qt::black);
    QPainter(&m_preview.image).drawImage(0, 0, sign.image);
    return m_preview;
}

void SignImage::setSignImage(const Picture& image)
{
    m_image = image;
    m_prevImage = image.isNull() ? Picture{} : blankPicture(image.size);
}

void SignImage::draw(Painter& painter, const Rect& viewBounds, bool overBackground)
{
    if (!m_filled) painter.fill(viewBounds, overBackground ? Qt::transparent : Qt::black);
    m_filled = true;
    if (overBackground) return drawOverBackground(painter);
    painter.draw(m_image, m_imgBounds, Compositing::SourceOver, 1.0);
}

void SignImage::drawOverBackground(Painter& painter)
{
    if (m_prevPt) painter.draw(m_prevImage, {*m_prevPt, m_prevImage.size}, Compositing::Copy, 0.0);
    painter.draw(m_image, m_imgBounds, Compositing::SourceOver, 0.5);
    m_prevPt = m_imgBounds.origin;
}

} // namespace kestro
