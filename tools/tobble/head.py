"""The head, drawn about its own middle: 0 0 lies between the eyes and the nose."""

from tobble.paint import *

# Where the eyes are.
LEFT, RIGHT = -44, 44

SKULL = ("M0 -97 C-44 -97 -76 -80 -86 -46 C-90 -28 -94 -8 -102 20 C-106 36 -107 50 -112 61"
         " C-105 63 -99 62 -93 60 C-93 67 -94 73 -98 80 C-89 79 -81 76 -74 71"
         " C-58 90 -32 98 0 98 C32 98 58 90 74 71 C81 76 89 79 98 80 C94 73 93 67 93 60"
         " C99 62 105 63 112 61 C107 50 106 36 102 20 C94 -8 90 -28 86 -46 C76 -80 44 -97 0 -97"
         " Z")
PATCH = ("M-17 -96 C-11 -74 -20 -56 -23 -34 C-25 -14 -26 2 -38 14 C-45 22 -52 28 -61 35"
         " C-63 31 -65 29 -68 27 C-72 33 -77 37 -84 41 C-85 36 -87 33 -90 31"
         " C-94 35 -99 37 -105 38 C-104 32 -103 26 -102 20 C-94 -8 -90 -28 -86 -46"
         " C-77 -77 -52 -95 -17 -96 Z")
PATCH_LIGHT = ("M-20 -93 C-48 -90 -70 -72 -79 -44 C-68 -64 -50 -78 -24 -84"
               " C-19 -86 -17 -91 -20 -93 Z")
MUZZLE = ("M0 -22 C-20 -22 -30 -2 -46 14 C-68 32 -76 60 -58 74 C-43 85 -14 83 0 66"
          " C14 83 43 85 58 74 C76 60 68 32 46 14 C30 -2 20 -22 0 -22 Z")
MUZZLE_SHADE = "M60 30 C72 46 73 62 58 74 C43 85 14 83 0 66 C24 74 52 60 60 30 Z"
CHIN = "M-25 77 C-22 92 22 92 25 77 C14 80 6 74 0 66 C-6 74 -14 80 -25 77 Z"
JAW_SHADE = ("M74 71 C58 90 32 98 0 98 C-14 98 -28 97 -40 94 C10 93 46 84 68 62"
             " C84 46 92 22 94 -6 C96 2 100 12 102 20 C106 36 107 50 112 61 C105 63 99 62 93 60"
             " C93 67 94 73 98 80 C89 79 81 76 74 71 Z")
NOSE = "M0 3 C-18 3 -30 7 -30 19 C-30 32 -14 43 0 43 C14 43 30 32 30 19 C30 7 18 3 0 3 Z"
EAR = ("M-62 -80 C-80 -96 -104 -86 -117 -58 C-130 -28 -139 4 -131 22 C-122 38 -101 30 -92 10"
       " C-85 -8 -87 -28 -77 -46 C-71 -57 -64 -66 -62 -80 Z")
EAR_LIGHT = ("M-66 -82 C-82 -91 -101 -82 -113 -56 C-123 -32 -131 -10 -130 8"
             " C-122 -6 -118 -34 -104 -54 C-94 -68 -80 -76 -66 -82 Z")
EAR_FOLD = "M-62 -80 C-72 -84 -82 -82 -90 -76"
EAR_UP = ("M-46 -90 C-50 -108 -62 -122 -78 -126 C-92 -128 -102 -118 -104 -104"
          " C-106 -80 -100 -58 -88 -36 Z")
EAR_UP_INSIDE = "M-60 -78 C-62 -96 -72 -110 -86 -112 C-96 -102 -96 -74 -86 -50 Z"
EAR_UP_TIP = ("M-62 -118 C-76 -132 -98 -134 -112 -122 C-126 -110 -134 -92 -130 -84"
              " C-123 -76 -106 -88 -93 -96 C-80 -103 -68 -110 -62 -118 Z")


def ear(lit):
    gleam = fill(EAR_LIGHT, CHESTNUT) if lit else Part()
    return shape(EAR, CHESTNUT_SHADE, gleam) + line(EAR_FOLD)


def raised_ear():
    """It stands, and its tip falls over."""
    return (shape(EAR_UP, CHESTNUT_SHADE, fill(EAR_UP_INSIDE, CHESTNUT_LIGHT))
            + shape(EAR_UP_TIP, CHESTNUT))


def open_eye(x, look):
    dx, dy = look
    return Part(f'<ellipse cx="{x}" cy="-13" rx="11.5" ry="13.5" fill="{BARK}"/>'
                f'<circle cx="{x + dx}" cy="{-13 + dy}" r="4.4" fill="{CREAM_LIGHT}"/>'
                f'<circle cx="{x - 0.8 * dx}" cy="-7" r="2" fill="{NOSE_LIGHT}"/>')


def half_eye(x):
    """The lid has come down half the way, and lower at the outer corner."""
    out = -1 if x < 0 else 1
    edge = f"C{x - 6 * out} -16 {x + 7 * out} -15 {x + 15 * out} -10"
    back = f"C{x + 14 * out} -32 {x - 14 * out} -32 {x - 14 * out} -17 Z"
    return (Part(f'<ellipse cx="{x}" cy="-12" rx="12" ry="13" fill="{BARK}"/>'
                 f'<circle cx="{x - 4}" cy="-6" r="3.2" fill="{CREAM_LIGHT}"/>')
            + fill(f"M{x - 14 * out} -17 {edge} {back}", CHESTNUT_LIGHT)
            + line(f"M{x - 13 * out} -17 {edge}", 3.8))


def closed_eye(x):
    return line(f"M{x - 14} -15 C{x - 8} -3 {x + 8} -3 {x + 14} -15", 4.6)


def merry_eye(x):
    """Closed by a laugh: the cheek pushes it up."""
    return line(f"M{x - 14} -7 C{x - 8} -20 {x + 8} -20 {x + 14} -7", 4.6)


def brow(x, lift=0, slant=0):
    return line(f"M{x - 9} {-41 - lift + slant} C{x - 4} {-46 - lift} {x + 4} {-46 - lift}"
                f" {x + 9} {-41 - lift - slant}", 6, CHESTNUT_LIGHT)


SMILE = "M0 43 L0 58 C-8 76 -38 80 -55 60 M0 58 C8 76 38 80 55 60"
BROAD_SMILE = "M0 43 L0 58 C-8 79 -44 83 -61 55 M0 58 C8 79 44 83 61 55"
CALM = "M0 43 L0 60 C-10 73 -34 75 -50 66 M0 60 C10 73 34 75 50 66"
PONDERING = "M0 43 L0 59 C-8 68 -24 70 -37 65 M0 59 C10 70 34 70 49 59"
LAUGH = "M-27 76 C-25 102 25 102 27 76 C14 82 6 76 0 66 C-6 76 -14 82 -27 76 Z"
TONGUE = "M-17 90 C-12 80 12 80 17 90 C11 97 -11 97 -17 90 Z"
WHISKERS = Part("".join(
    f'<circle cx="{side * x}" cy="{y}" r="1.7" fill="{CHESTNUT_LIGHT}"/>'
    for side in (-1, 1) for x, y in ((30, 50), (40, 44), (38, 56))))


def closed_mouth(path):
    return fill(CHIN, CREAM_SHADE) + line("M-20 84 C-12 91 12 91 20 84"), line(path)


def laughing_mouth():
    return fill(LAUGH, BARK) + fill(TONGUE, BLUSH) + line(LAUGH), line(SMILE)


def nose():
    return fill(NOSE, BARK) + line("M-16 13 C-11 9 -3 8.5 4 9", 4.5, NOSE_LIGHT)


def head(look, mouth, left_ear=None, whiskers=WHISKERS, gaze=(0, 0), tilt=0):
    """`look` is eyes and brows. `gaze` moves the face over the skull, as it moves when he turns his
    head; however he tilts it by `tilt` degrees, the ears hang down."""
    dx, dy = gaze
    below, lips = mouth
    skull = (fill(SKULL, CREAM) + fill(JAW_SHADE, CREAM_SHADE) + fill(PATCH, CHESTNUT)
             + fill(PATCH, CHESTNUT).mirrored(0) + fill(PATCH_LIGHT, CHESTNUT_LIGHT))
    snout = (below + fill(MUZZLE, CREAM_LIGHT) + fill(MUZZLE_SHADE, CREAM_SHADE) + whiskers + lips
             + nose())
    left_ear = left_ear or ear(True).placed(f"rotate({-0.8 * tilt:g} -64 -76)")
    right_ear = ear(False).mirrored(0).placed(f"rotate({-0.8 * tilt:g} 64 -76)")
    return (skull + snout.placed(f"translate({dx} {dy})") + contour(SKULL) + left_ear + right_ear
            + look.placed(f"translate({0.6 * dx:g} {0.6 * dy:g})")).placed(f"rotate({tilt})")


def both(draw, *rest):
    return draw(LEFT, *rest) + draw(RIGHT, *rest)
