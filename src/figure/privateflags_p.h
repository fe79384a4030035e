#pragma once

namespace Velmora::Figura {

// More flag bits of a figure, for the library's own use.

/// The last parent figure that the figure was given was not null. With no parent figure any more,
/// that one was destroyed.
constexpr int FLAG_HAD_PARENT = 0x40000000;

/// The figure is to have a DelegatingLayout of its own, which is made when somebody asks for it.
/// Until then all is as if it were there, without children.
constexpr int FLAG_LAYOUT_ON_DEMAND = 0x20000000;

/// The figure is just being validated.
constexpr int FLAG_VALIDATING = 0x10000000;

} // namespace Velmora::Figura
