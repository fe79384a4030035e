#pragma once

namespace Editor {

/// The look of the whole application.
namespace Appearance {

/// A style and a palette that do not depend on the desktop: a document looks the same everywhere.
void apply(bool dark);

} // namespace Appearance

} // namespace Editor
