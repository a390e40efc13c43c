#include "platform/display/gl/QuadProgram.h"

#include "platform/display/gl/OpenGLTexture.h"
#include "platform/display/view/Layer.h"

#include <QOpenGLFunctions>

#include <array>
#include <vector>

namespace kestro {

namespace {

// In the language that both OpenGL 2 and OpenGL ES 2 understand.
constexpr auto cornerSource = R"(
attribute vec4 corner;
uniform vec2 scale;
uniform vec2 shift;
varying vec2 place;
void main()
{
    gl_Position = vec4(corner.xy * scale + shift, 0.0, 1.0);
    place = corner.zw;
}
)";

// options: red and blue swapped, alpha 1, black.
constexpr auto pixelSource = R"(
#ifdef GL_ES
precision highp float;
#endif
uniform sampler2D picture;
uniform float opacity;
uniform vec3 options;
varying vec2 place;
void main()
{
    vec4 pixel = texture2D(picture, place);
    pixel = mix(pixel, pixel.bgra, options.x);
    pixel.a = max(pixel.a, options.y);
    pixel.rgb *= 1.0 - options.z;
    gl_FragColor = pixel * opacity;
}
)";

constexpr GLuint cornerAttribute = 0;

struct Corner {
    float x, y; ///< of the canvas
    float u, v; ///< of the texture, 0 … 1
};

std::array<Corner, 6> cornersOf(const QRect& rect, const QRect& place)
{
    const auto corner = [&place](int x, int y) {
        const auto u = static_cast<float>(double{x - place.left() + 0.0} / place.width());
        const auto v = static_cast<float>(double{y - place.top() + 0.0} / place.height());
        return Corner{static_cast<float>(x), static_cast<float>(y), u, v};
    };
    const int right = rect.left() + rect.width();
    const int bottom = rect.top() + rect.height();
    const Corner topLeft = corner(rect.left(), rect.top());
    const Corner bottomRight = corner(right, bottom);
    return {topLeft,     corner(right, rect.top()),  bottomRight, topLeft,
            bottomRight, corner(rect.left(), bottom)};
}

} // namespace

std::unique_ptr<QuadProgram> QuadProgram::create(QOpenGLFunctions& functions)
{
    std::unique_ptr<QuadProgram> program(new QuadProgram(functions));
    return program->build() ? std::move(program) : nullptr;
}

void QuadProgram::free()
{
    m_gl.glDeleteProgram(m_program);
    m_gl.glDeleteBuffers(1, &m_corners);
}

bool QuadProgram::build()
{
    m_program = m_gl.glCreateProgram();
    if (!addShader(GL_VERTEX_SHADER, cornerSource) || !addShader(GL_FRAGMENT_SHADER, pixelSource))
        return false;
    m_gl.glBindAttribLocation(m_program, cornerAttribute, "corner");
    m_gl.glLinkProgram(m_program);
    GLint isLinked = 0;
    m_gl.glGetProgramiv(m_program, GL_LINK_STATUS, &isLinked);
    m_scale = m_gl.glGetUniformLocation(m_program, "scale");
    m_shift = m_gl.glGetUniformLocation(m_program, "shift");
    m_opacity = m_gl.glGetUniformLocation(m_program, "opacity");
    m_options = m_gl.glGetUniformLocation(m_program, "options");
    m_gl.glGenBuffers(1, &m_corners);
    return isLinked;
}

bool QuadProgram::addShader(unsigned kind, const char* source) const
{
    const GLuint shader = m_gl.glCreateShader(kind);
    m_gl.glShaderSource(shader, 1, &source, nullptr);
    m_gl.glCompileShader(shader);
    GLint isCompiled = 0;
    m_gl.glGetShaderiv(shader, GL_COMPILE_STATUS, &isCompiled);
    m_gl.glAttachShader(m_program, shader);
    m_gl.glDeleteShader(shader); // goes with the program
    return isCompiled;
}

void QuadProgram::begin(const FramebufferTarget& target, Top top)
{
    const float down = top == Top::FirstRow ? 1 : -1;
    m_gl.glBindFramebuffer(GL_FRAMEBUFFER, target.framebuffer);
    m_gl.glViewport(0, 0, target.width, target.height);
    m_gl.glEnable(GL_BLEND);
    m_gl.glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    m_gl.glUseProgram(m_program);
    m_gl.glUniform2f(m_scale, 2.0F / static_cast<float>(target.width),
                     down * 2.0F / static_cast<float>(target.height));
    m_gl.glUniform2f(m_shift, -1, -down);
    m_gl.glBindBuffer(GL_ARRAY_BUFFER, m_corners);
    m_gl.glEnableVertexAttribArray(cornerAttribute);
    m_gl.glVertexAttribPointer(cornerAttribute, 4, GL_FLOAT, GL_FALSE, sizeof(Corner), nullptr);
}

void QuadProgram::end()
{
    m_gl.glDisableVertexAttribArray(cornerAttribute);
    m_gl.glBindBuffer(GL_ARRAY_BUFFER, 0);
    m_gl.glBindTexture(GL_TEXTURE_2D, 0);
    m_gl.glUseProgram(0);
    m_gl.glDisable(GL_BLEND);
}

void QuadProgram::setLook(Look look, bool isBlueFirst, bool isPlain)
{
    m_gl.glUniform1f(m_opacity, look.opacity);
    m_gl.glUniform3f(m_options, isBlueFirst ? 1 : 0, look.isSolid ? 1 : 0, isPlain ? 1 : 0);
}

void QuadProgram::draw(const OpenGLTexture& texture, const QRect& place, const QRegion& region, Look look)
{
    setLook(look, texture.isBlueFirst(), false);
    m_gl.glBindTexture(GL_TEXTURE_2D, texture.name());
    drawRegion(place, region);
}

void QuadProgram::fillBlack(const QRegion& region, float opacity)
{
    setLook({opacity, true}, false, true);
    m_gl.glBindTexture(GL_TEXTURE_2D, 0);
    drawRegion(region.boundingRect(), region);
}

void QuadProgram::drawRegion(const QRect& place, const QRegion& region)
{
    std::vector<Corner> corners;
    corners.reserve(static_cast<size_t>(region.rectCount()) * 6);
    for (const QRect& rect : region)
        for (const Corner& corner : cornersOf(rect, place))
            corners.push_back(corner);
    if (corners.empty()) return;
    m_gl.glBufferData(GL_ARRAY_BUFFER, static_cast<qopengl_GLsizeiptr>(corners.size() * sizeof(Corner)),
                      corners.data(), GL_STREAM_DRAW);
    m_gl.glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(corners.size()));
}

} // namespace kestro
