#include "trailers/panel/MovieFit.h"

namespace kestro {

namespace {

// For a movie that has neither a height nor a bar: a width, by design.
constexpr float heightOfNothing = 10;

} // namespace

Rect fittedMovieFrame(Size container, Size natural)
{
    if (container.isEmpty()) return {};
    Size movie = naturalContainerSize(natural);
    if (movie.width == 0) movie.width = container.width;
    if (movie.height == 0) movie.width = heightOfNothing;
    const float across = container.width / movie.width;
    const float along = container.height / movie.height;
    const Size fitted = across > along ? Size{along * movie.width, container.height}
                                       : Size{container.width, across * movie.height};
    return {{(container.width - fitted.width) / 2, (container.height - fitted.height) / 2}, fitted};
}

Size naturalContainerSize(Size natural)
{
    return {natural.width, natural.height + controllerBarHeight};
}

} // namespace kestro
