"""What he wears, and what he has to do with. Worn things fit the sitting body."""

from tobble.paint import *

BAND = "M130 206 C150 236 250 236 270 206 L276 228 C256 272 144 272 124 228 Z"
BAND_SHADE = "M270 206 L276 228 C264 254 232 263 200 262 C236 256 262 240 270 206 Z"
THROAT = "M134 200 L266 200 L268 214 C250 262 150 262 132 214 Z"
LYING_BAND = "M222 262 C268 272 284 326 264 384 L244 384 C262 334 252 292 214 282 Z"

BARREL = "M154 262 C148 276 148 300 154 314 L246 314 C252 300 252 276 246 262 Z"
BARREL_SHADE = "M152 296 C152 302 152 308 154 314 L246 314 C248 308 248 302 248 296 Z"
LEFT_HOOP = "M162 260 C156 276 156 300 162 316 L176 316 C171 300 171 276 176 260 Z"
RIGHT_HOOP = "M238 260 C244 276 244 300 238 316 L224 316 C229 300 229 276 224 260 Z"

PAGE = ("M34 262 C34 256 38 252 44 252 L132 252 C138 252 142 256 142 262 L142 372"
        " C142 378 138 382 132 382 L44 382 C38 382 34 378 34 372 Z")
PAGE_HEAD = "M34 284 L34 262 C34 256 38 252 44 252 L132 252 C138 252 142 256 142 262 L142 284 Z"
RINGS = "M62 244 V262 M88 244 V262 M114 244 V262"
MARKED_DAY = (77, 343)


def collar():
    return (fill(THROAT, CREAM_SHADE) + shape(BAND, HONEY, fill(BAND_SHADE, HONEY_SHADE)))


def tag():
    return disc(200, 274, 15, HONEY_LIGHT) + paw_print(200, 274, 9)


def collar_of_the_lying():
    return (shape(LYING_BAND, HONEY).placed("translate(5 0)")
            + tag().placed("translate(276 340) scale(.9) translate(-200 -274)"))


def keg():
    return (shape(BARREL, CHESTNUT_LIGHT, fill(BARREL_SHADE, CHESTNUT)) + shape(LEFT_HOOP, HONEY)
            + shape(RIGHT_HOOP, HONEY_SHADE) + disc(200, 288, 16, CREAM)
            + paw_print(200, 288, 9.5))


def calendar_page():
    days = "".join(f'<circle cx="{x}" cy="{y}" r="4.6"/>'
                   for y in (305, 324, 343, 362) for x in (54, 77, 100, 123)
                   if (x, y) != MARKED_DAY)
    return (shape(PAGE, CREAM_LIGHT, fill(PAGE_HEAD, HONEY),
                  Part(f'<g fill="{CREAM_SHADE}">{days}</g>'))
            + line("M34 284 H142") + contour(RINGS, 6)
            + paw_print(*MARKED_DAY, 11, HONEY_SHADE)).placed("translate(6 0) rotate(-5 88 380)")
