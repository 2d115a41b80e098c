"""Each pose by the name of its picture, and the part of the ground that the picture shows."""

from tobble.head import *
from tobble.lying import front_paws, lying
from tobble.sitting import lifted_leg, sitting, sitting_with_a_leg_lifted
from tobble.things import *

FRAME = "20 22 372 372"
ICON_FRAME = "0 0 256 256"


def leaning(part, lean):
    """The feet stay; what is higher moves to the right, by `lean` times its height."""
    return part.placed(f"matrix(1 0 {-lean:g} 1 {384 * lean:g} 0)")


def seated(body, face, lean=0.0, neck=(200, 140)):
    x, y = neck
    return leaning(body, lean) + face.placed(f"translate({x + lean * (384 - 220):g} {y})")


def relaxed():
    face = head(both(half_eye) + brow(LEFT, 4, 2) + brow(RIGHT, 4, -2), closed_mouth(SMILE))
    return lying() + collar_of_the_lying() + face.placed("translate(142 281)") + front_paws()


def curious():
    face = head(both(open_eye, (-4.5, -4)) + brow(LEFT, 6, 2) + brow(RIGHT, 4),
                closed_mouth(CALM), gaze=(-13, 6), tilt=-12)
    before = lifted_leg() + collar() + tag() + face.placed("translate(200 140)")
    aside = "translate(28 0)"
    return sitting_with_a_leg_lifted().placed(aside) + calendar_page() + before.placed(aside)


def thoughtful():
    face = head(both(open_eye, (5, -6)) + brow(LEFT, -1, 3) + brow(RIGHT, 7, 1),
                closed_mouth(PONDERING), gaze=(14, -11), tilt=9)
    return seated(sitting() + collar() + tag(), face, lean=-0.05)


def acknowledging():
    face = head(both(merry_eye) + both(brow), closed_mouth(SMILE), left_ear=raised_ear(),
                gaze=(0, 6), tilt=-4)
    return seated(sitting() + collar() + tag(), face, lean=0.03, neck=(200, 152))


def content():
    face = head(both(closed_eye) + both(brow, 2), closed_mouth(BROAD_SMILE), gaze=(0, -4), tilt=-5)
    return seated(sitting() + collar() + tag(), face, lean=-0.04, neck=(200, 138))


def rescue():
    face = head(both(open_eye, (-3.5, -4.5)) + both(brow), laughing_mouth())
    return seated(sitting() + collar() + keg(), face)


def icon():
    """The program's own: his face on a tile, plain enough for 16 pixels, where the tile's edge lies
    on whole ones."""
    def large_eye(x):
        return open_eye(0, (-3.5, -4.5)).placed(f"translate({x} -3) scale(1.75) translate(0 2)")

    tile = Part(f'<rect x="16" y="16" width="224" height="224" rx="56" fill="{HONEY}"/>')
    large_nose = nose().placed("translate(0 20) scale(1.25) translate(0 -20)")
    face = head(both(large_eye), closed_mouth(SMILE), whiskers=Part()) + large_nose
    return tile + face.placed("translate(128 130) scale(.9)")


POSES = {
    "tobble-friday-relaxed": (relaxed, "0 138 400 262"),
    "tobble-curious-calendar": (curious, "14 0 404 404"),
    "tobble-thoughtful": (thoughtful, FRAME),
    "tobble-acknowledging": (acknowledging, "14 8 388 388"),
    "tobble-content": (content, FRAME),
    "tobble-rescue": (rescue, FRAME),
}
