#pragma once

#include "platform/movie/MpvMovie.h"

#include <QSize>

namespace kestro {

/// Shows what the movie's players draw, forwards or backwards; being shown starts one. Owned by MpvMovie;
/// main thread.
class MpvMovie::PlayerLayer final : public Layer {
public:
    explicit PlayerLayer(MpvMovie& movie)
        : m_movie(movie)
    {
    }

    /// Pixels that the last frame was drawn with.
    [[nodiscard]] QSize drawnSize() const { return m_drawn; }
    void announce() const { announceFrame(); }

    void willShow() override { m_movie.beShown(); }

    [[nodiscard]] bool hasFrame() const override
    {
        const MpvPlayer* const player = m_movie.player();
        return m_movie.showsBackwards() || (player && !player->isContextLost() && player->hasFrame());
    }

    bool render(const PixelTarget& target) override
    {
        m_drawn = {target.width, target.height};
        if (m_movie.showsBackwards()) return m_movie.m_back->render(target);
        return hasFrame() && m_movie.player()->render(target);
    }

    [[nodiscard]] bool drawsWithOpenGL() const override
    {
        const MpvPlayer* const player = m_movie.player();
        return player && player->drawsWithOpenGL() && !m_movie.showsBackwards();
    }

    bool renderWithOpenGL(const FramebufferTarget& target) override
    {
        m_drawn = {target.width, target.height};
        return drawsWithOpenGL() && hasFrame() && m_movie.player()->renderWithOpenGL(target);
    }

private:
    MpvMovie& m_movie;
    QSize m_drawn;
};

} // namespace kestro
