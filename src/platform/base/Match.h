#pragma once

namespace kestro {

/// One function for each alternative of a variant, for std::visit: Match{[](const A&) …, [](const B&) …}.
template <typename... Cases>
struct Match : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Match(Cases...) -> Match<Cases...>;

} // namespace kestro
