#include "platform/display/view/Identity.h"

namespace kestro {

Identity makeIdentity()
{
    static Identity last = 0;
    return ++last;
}

} // namespace kestro
