#include "platform/network/Fetch.h"

namespace kestro {

Fetch::~Fetch() = default;

} // namespace kestro
