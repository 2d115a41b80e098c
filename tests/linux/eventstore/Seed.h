#pragma once

#include <cstdlib>

namespace vantrel::tests {

/// What tests with random input begin with; VANTREL_SEED overrides it.
inline unsigned seed() {
    const char *const given = std::getenv("VANTREL_SEED");
    return given ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 20260302U;
}

} // namespace vantrel::tests
