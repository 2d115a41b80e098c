#pragma once

#include <platform/Color.h>

namespace vantrel {

/// The fixed colours that Vantrel is known by; the default theme is made of them. Each is built
/// once, on first use.
struct BrandColors {
    BrandColors() = delete;

    [[nodiscard]] static const Color &honey();
    [[nodiscard]] static const Color &amber();
    [[nodiscard]] static const Color &moss();
    [[nodiscard]] static const Color &blush();
    [[nodiscard]] static const Color &cream();
    [[nodiscard]] static const Color &parchment();
    [[nodiscard]] static const Color &bark();
};

} // namespace vantrel
