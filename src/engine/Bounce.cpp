#include "engine/Bounce.h"

#include "platform/saver/ScreenSaverFunctions.h"

namespace kestro {

void Bounce::assignRndValues()
{
    m_incPt.x = static_cast<float>(SSRandomIntBetween(m_random, 4, 8));
    m_incPt.y = static_cast<float>(SSRandomIntBetween(m_random, 4, 8));
}

void Bounce::assignRndValuesWithSign()
{
    const int quadrant = SSRandomIntBetween(m_random, 0, 3);
    assignRndValues();
    if (quadrant == 1 || quadrant == 3) m_incPt.x = -m_incPt.x;
    if (quadrant == 2 || quadrant == 3) m_incPt.y = -m_incPt.y;
}

// One edge a call, in this order: a rectangle in a corner is turned by its second edge at the next call.
void Bounce::turnAtEdge(const Rect& rect, const Rect& area)
{
    const bool atLeft = rect.left() <= area.left();
    const bool atBottom = rect.bottom() <= area.bottom();
    const bool atRight = rect.right() >= area.right();
    const bool atTop = rect.top() >= area.top();
    if (!atLeft && !atBottom && !atRight && !atTop) return;

    const bool wentLeft = m_incPt.x < 0;
    const bool wentDown = m_incPt.y < 0;
    assignRndValues();
    const bool sideways = atLeft || (!atBottom && atRight);
    const bool goesLeft = sideways ? !atLeft : wentLeft;
    const bool goesDown = sideways ? wentDown : !atBottom;
    if (goesLeft) m_incPt.x = -m_incPt.x;
    if (goesDown) m_incPt.y = -m_incPt.y;
}

Rect Bounce::newRectFromScreen(const Rect& rect, const Rect& screenFrame)
{
    turnAtEdge(rect, screenFrame);
    return rect.movedBy(m_incPt);
}

Rect Bounce::newRectFromView(const Rect& rect, const Rect& bounds)
{
    turnAtEdge(rect, {{0, 0}, bounds.size});
    return rect.movedBy(m_incPt);
}

} // namespace kestro
