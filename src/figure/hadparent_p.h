#pragma once

namespace Velmora::Figura {

/// One more flag bit of a figure, for the library's own use: the last parent figure it was given
/// was not null. With no parent figure any more, that one was destroyed.
constexpr int FLAG_HAD_PARENT = 0x40000000;

} // namespace Velmora::Figura
