#pragma once

#include <script.h>

#include <functional>

namespace Velmora::Figura::Storm {

/// Whether a list of operations still fails in the same way.
using Judge = std::function<bool(const Script &)>;

/// The shortest list that can be had of \a script by leaving out operations and making numbers 0,
/// and that still fails. \a script has to fail; \a patience limits how often the judge is asked.
Script shrink(const Script &script, const Judge &fails, int patience = 600);

} // namespace Velmora::Figura::Storm
