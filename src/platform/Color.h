#pragma once

namespace vantrel {

/// A colour in the sRGB space; each component from 0.0 to 1.0, alpha not premultiplied.
struct Color {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 1.0;

    bool operator==(const Color &) const = default;
};

} // namespace vantrel
