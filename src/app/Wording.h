#pragma once

namespace vantrel {

/// Has the texts that speak of another platform shown in this one's words, which stand in
/// translations/vantrel_en_LINUX.ts. Called once, after the application object is made and ahead of
/// the first window.
void installWording();

} // namespace vantrel
