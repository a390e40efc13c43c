#pragma once

#include "platform/display/view/View.h"

namespace kestro {

/// A yellow backdrop for web content. Main thread.
class KTWebView final : public View {
public:
    using View::View;

    void drawRect(Painter& painter, const Rect& rect) override;
};

} // namespace kestro
