#include "engine/Bounce.h"

#include "platform/saver/ScreenSaverFunctions.h"

namespace kestro {

namespace {

/// Points beyond an edge: where there is room to bounce, a corner is overshot by two steps of 8 at most.
constexpr float farthest = 16;

float turned(float step, float beyondLower, float beyondUpper)
{
    const bool strays = (step < 0 && beyondLower > farthest) || (step > 0 && beyondUpper > farthest);
    return strays ? -step : step;
}

} // namespace

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

void Bounce::turnStray(const Rect& rect, const Rect& area)
{
    m_incPt.x = turned(m_incPt.x, area.left() - rect.left(), rect.right() - area.right());
    m_incPt.y = turned(m_incPt.y, area.bottom() - rect.bottom(), rect.top() - area.top());
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
