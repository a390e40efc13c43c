#include "platform/display/gl/OpenGLTexture.h"

#include "platform/display/gl/OpenGLDevice.h"
#include "platform/display/view/Layer.h"

#include <QOpenGLFunctions>
#include <QPainter>

namespace kestro {

namespace {

constexpr GLenum rowLength = 0x0CF2; // GL_UNPACK_ROW_LENGTH, which older headers for small devices lack

} // namespace

OpenGLTexture::~OpenGLTexture()
{
    free();
}

void OpenGLTexture::free()
{
    // What is lost took its textures with it.
    if (m_texture && m_device.makeCurrent()) {
        if (m_framebuffer) m_device.functions().glDeleteFramebuffers(1, &m_framebuffer);
        m_device.functions().glDeleteTextures(1, &m_texture);
    }
    m_texture = 0;
    m_framebuffer = 0;
    m_size = {};
}

void OpenGLTexture::make(QSize size)
{
    free();
    QOpenGLFunctions& gl = m_device.functions();
    gl.glGenTextures(1, &m_texture);
    gl.glBindTexture(GL_TEXTURE_2D, m_texture);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    gl.glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, size.width(), size.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE,
                    nullptr);
    m_size = size;
}

void OpenGLTexture::upload(const QImage& image, const QRegion& changed)
{
    const int most = m_device.mostTextureSide();
    if (image.width() > most || image.height() > most) {
        const QImage smaller = image.scaled(image.size().boundedTo({most, most}));
        return upload(smaller, smaller.rect());
    }
    const bool isNew = m_size != image.size();
    if (isNew) make(image.size());
    m_device.functions().glBindTexture(GL_TEXTURE_2D, m_texture);
    for (const QRect& rect : isNew ? QRegion(image.rect()) : changed& image.rect())
        uploadPart(image, rect);
    m_device.functions().glBindTexture(GL_TEXTURE_2D, 0);
}

void OpenGLTexture::uploadPart(const QImage& image, const QRect& rect)
{
    QOpenGLFunctions& gl = m_device.functions();
    const bool isInPlace = m_device.canUploadParts();
    const QImage part = isInPlace ? QImage() : image.copy(rect);
    const uchar* const pixels =
        isInPlace ? image.constScanLine(rect.top()) + qsizetype{rect.left()} * 4 : part.constBits();
    if (isInPlace) gl.glPixelStorei(rowLength, static_cast<GLint>(image.bytesPerLine() / 4));
    gl.glTexSubImage2D(GL_TEXTURE_2D, 0, rect.left(), rect.top(), rect.width(), rect.height(), GL_RGBA,
                       GL_UNSIGNED_BYTE, pixels);
    if (isInPlace) gl.glPixelStorei(rowLength, 0);
}

bool OpenGLTexture::makeTarget(QSize size)
{
    const int most = m_device.mostTextureSide();
    const QSize possible = size.boundedTo({most, most});
    if (m_framebuffer && m_size == possible) return true;
    make(possible);
    QOpenGLFunctions& gl = m_device.functions();
    gl.glGenFramebuffers(1, &m_framebuffer);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    gl.glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, m_texture, 0);
    gl.glBindTexture(GL_TEXTURE_2D, 0);
    if (gl.glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE) return true;
    free();
    return false;
}

FramebufferTarget OpenGLTexture::target() const
{
    return {m_framebuffer, m_size.width(), m_size.height()};
}

void OpenGLTexture::readInto(QImage& image, const QRect& rect) const
{
    QOpenGLFunctions& gl = m_device.functions();
    QImage part(rect.size(), QImage::Format_RGBX8888);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    gl.glReadPixels(rect.left(), rect.top(), rect.width(), rect.height(), GL_RGBA, GL_UNSIGNED_BYTE,
                    part.bits());
    QPainter(&image).drawImage(rect.topLeft(), part);
}

} // namespace kestro
