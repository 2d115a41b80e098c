#pragma once

namespace vantrel {

/// Makes sure that the QML module Vantrel.Theme is part of the program: to be called by what shows
/// its types. Cheap, and harmless when called again.
void useThemeModule();

} // namespace vantrel
