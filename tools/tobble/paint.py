"""Colours, and parts that are drawn once and then placed."""

import dataclasses

BARK = "#3D2E22"
CREAM, CREAM_LIGHT, CREAM_SHADE = "#F5EBDC", "#FDF8EF", "#E2CDB0"
CHESTNUT, CHESTNUT_LIGHT, CHESTNUT_SHADE = "#B4693D", "#C98A5C", "#8F4E2C"
HONEY, HONEY_LIGHT, HONEY_SHADE = "#E8A04C", "#F6C678", "#C97A2B"
NOSE_LIGHT, BLUSH = "#8A7565", "#D97E70"
RIM = "#F2DDBB"

OUTLINE = 3.6
DETAIL = 3
RIM_WIDTH = 8


@dataclasses.dataclass(frozen=True)
class Part:
    """SVG elements, and of those the outer shapes again, which a rim of light follows."""

    drawing: str = ""
    outline: str = ""

    def __add__(self, other):
        return Part(self.drawing + other.drawing, self.outline + other.outline)

    def placed(self, transform):
        group = f'<g transform="{transform}">{{}}</g>'
        return Part(group.format(self.drawing), group.format(self.outline) if self.outline else "")

    def mirrored(self, about):
        return self.placed(f"matrix(-1 0 0 1 {2 * about} 0)")


def fill(path, colour):
    return Part(f'<path d="{path}" fill="{colour}"/>')


def line(path, width=DETAIL, colour=BARK):
    return Part(f'<path d="{path}" stroke="{colour}" stroke-width="{width}"/>')


def contour(path, width=OUTLINE):
    """The outline of a shape whose fills lie below already."""
    return Part(line(path, width).drawing, f'<path d="{path}"/>')


def shape(path, colour, *within):
    """A filled and outlined shape; what lies `within` it comes between fill and outline."""
    return sum(within, fill(path, colour)) + contour(path)


def shadow(x, width):
    """Where he rests on the floor."""
    return Part(f'<ellipse cx="{x}" cy="382" rx="{width / 2:g}" ry="8" fill="{BARK}"'
                ' fill-opacity="0.14"/>')


def paw_print(x, y, size, colour=BARK):
    toes = "".join(f'<circle cx="{x + dx * size:g}" cy="{y + dy * size:g}" r="{0.26 * size:g}"/>'
                   for dx, dy in ((-0.78, -0.18), (-0.29, -0.66), (0.29, -0.66), (0.78, -0.18)))
    return Part(f'<g fill="{colour}"><ellipse cx="{x}" cy="{y + 0.4 * size:g}"'
                f' rx="{0.58 * size:g}" ry="{0.48 * size:g}"/>{toes}</g>')


def disc(x, y, radius, colour):
    return Part(f'<circle cx="{x}" cy="{y}" r="{radius}" fill="{colour}" stroke="{BARK}"'
                f' stroke-width="{OUTLINE}"/>')


def picture(part, frame, rimmed):
    rim = f'<g stroke="{RIM}" stroke-width="{RIM_WIDTH}">{part.outline}</g>' if rimmed else ""
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="{frame}">'
            '<g fill="none" stroke-linecap="round" stroke-linejoin="round">'
            f"{rim}{part.drawing}</g></svg>\n")
