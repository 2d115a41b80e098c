"""Each pose by the name of its picture, and the part of the ground that the picture shows."""

from tobble.head import *
from tobble.lying import front_paws, lying
from tobble.sitting import lifted_leg, sitting, sitting_with_a_leg_lifted
from tobble.things import *

FRAME = "20 22 372 372"
ICON_FRAME = "0 0 256 256"


def relaxed():
    face = head(both(half_eye), brow(LEFT, 4, 2) + brow(RIGHT, 4, -2))
    return lying() + collar_of_the_lying() + face.placed("translate(142 281)") + front_paws()


def curious():
    face = head(both(open_eye, (-4.5, -4)), brow(LEFT, 6, 2) + brow(RIGHT, 4), CALM, gaze=(-13, 6))
    before = lifted_leg() + collar() + tag() + face.placed("translate(200 140) rotate(-11)")
    aside = "translate(28 0)"
    return sitting_with_a_leg_lifted().placed(aside) + calendar_page() + before.placed(aside)


def thoughtful():
    face = head(both(open_eye, (4, -5)), brow(LEFT, 2, 2) + brow(RIGHT, 6, 2), CALM, gaze=(8, -5))
    return sitting() + collar() + tag() + face.placed("translate(200 140) rotate(6)")


def acknowledging():
    face = head(both(merry_eye), both(brow), left_ear=raised_ear(), gaze=(0, 6))
    return sitting() + collar() + tag() + face.placed("translate(200 152) rotate(-4)")


def content():
    face = head(both(closed_eye), both(brow), gaze=(0, -4))
    return sitting() + collar() + tag() + face.placed("translate(200 138) rotate(-4)")


def rescue():
    face = head(both(open_eye, (-3.5, -4.5)), both(brow), laughs=True)
    return sitting() + collar() + keg() + face.placed("translate(200 140)")


def icon():
    """The program's own: his face on a tile, plain enough for 16 pixels."""
    def large_eye(x):
        return open_eye(0, (-3.5, -4.5)).placed(f"translate({x} -3) scale(1.35) translate(0 2)")

    tile = Part(f'<rect x="12" y="12" width="232" height="232" rx="56" fill="{HONEY}"/>')
    face = head(both(large_eye), both(brow, 6), whiskers=Part())
    return tile + face.placed("translate(128 132) scale(.9)")


POSES = {
    "tobble-friday-relaxed": (relaxed, "0 138 400 262"),
    "tobble-curious-calendar": (curious, "14 0 404 404"),
    "tobble-thoughtful": (thoughtful, FRAME),
    "tobble-acknowledging": (acknowledging, "14 8 388 388"),
    "tobble-content": (content, FRAME),
    "tobble-rescue": (rescue, FRAME),
}
