#pragma once

#include "script.h"

namespace Velmora::Figura::Storm {

/// Runs a list of operations in a new world, checks what comes of it, and ends that world. Returns
/// what is wrong, the name of the check first; empty when nothing is. Needs a QApplication.
QByteArray play(const Script &script);

} // namespace Velmora::Figura::Storm
