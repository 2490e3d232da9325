"""Every change of the notch's state, picture by picture, as the tour films it on the screen."""

import math
import subprocess
from dataclasses import dataclass

import pytest
from PyQt5.QtGui import QImage

from desktop import Program, wait_until

DESKTOP = "#7a8fb0"
CHANGES = [("collapsed", "hovering"), ("hovering", "expanded"), ("expanded", "hovering"),
           ("hovering", "collapsed"), ("collapsed", "expanded"), ("expanded", "collapsed")]
BODIES = {"collapsed": (180, 32), "expanded": (550, 220)}  # that of the bar is as its widgets are
FLARE, CORNER = 14, 12
TABS = (36, 60)  # from the top edge
SMOOTHING = 1.5  # points by which a drawn edge may lie beside the reckoned one
CUT = 1  # points more while the closing shape is larger than its window
SHRUNK = 11  # the number of the first picture of a closing whose window may be the closed one


class Picture:
    """A picture of the black shape on a desktop of one colour."""

    def __init__(self, path, scale):
        image = QImage(str(path)).convertToFormat(QImage.Format_RGB32)
        assert not image.isNull(), path
        bits = image.constBits()
        bits.setsize(image.sizeInBytes())
        pixels = memoryview(bytes(bits)).cast("I")
        self.name = path.name
        self.scale = scale
        self.desktop = color(DESKTOP)
        self.rows = [pixels[y * image.width():(y + 1) * image.width()].tolist()
                     for y in range(image.height())]
        self.extents = [self.extent(row) for row in self.rows]
        self.height = next(y for y, extent in enumerate(self.extents) if extent is None)
        middle = max(FLARE * scale, self.height // 2)
        self.left, self.right = self.extents[min(middle, self.height - CORNER * scale - 1)]
        self.width = self.right - self.left + 1

    def extent(self, row):
        """The first and the last pixel that are not the desktop."""
        left = next((x for x, pixel in enumerate(row) if pixel != self.desktop), None)
        if left is None:
            return None
        return left, len(row) - 1 - next(x for x, pixel in enumerate(reversed(row))
                                         if pixel != self.desktop)

    def outline(self, y):
        """How far from the body's side the shape may begin in this row, inwards."""
        outer = self.left - self.extents[0][0]
        if y < FLARE * self.scale:
            way = math.sqrt(y / (FLARE * self.scale))  # the row's upper edge reaches out furthest
            return outer * (2 * way - way * way) - outer
        radius = CORNER * self.scale
        below = y - 1 - (self.height - radius)  # the border makes the corner a pixel larger
        return radius - math.sqrt(radius ** 2 - min(below, radius) ** 2) if below > 0 else 0

    def check_body(self, is_cut):
        """`is_cut`: the window may be as small as the closed notch already, while the shape still
        swings; it cuts the shape's lower corners then."""
        assert all(extent is None for extent in self.extents[self.height:]), self.name
        for y, (left, right) in enumerate(self.extents[:self.height]):
            where = f"{self.name}, row {y}"
            tolerance = SMOOTHING * self.scale
            if is_cut and y >= self.height - CORNER * self.scale:
                tolerance += CUT * self.scale
            assert self.desktop not in self.rows[y][left:right + 1], where
            assert left >= self.left + self.outline(y) - tolerance, where
            assert right <= self.right - self.outline(y) + tolerance, where


def color(name):
    return int("ff" + name[1:], 16)


@dataclass
class Film:
    is_composited: bool
    pictures: dict


@pytest.fixture(params=[(1, True), (1, False), (2, True)],
                ids=["composited", "without-compositor", "twice-as-fine"])
def film(request, binary, desktop, tmp_path):
    scale, is_composited = request.param
    desktop.environment["QT_SCALE_FACTOR"] = str(scale)
    subprocess.run(["hsetroot", "-solid", DESKTOP], env=desktop.environment, check=True, timeout=20,
                   stdout=subprocess.DEVNULL)
    if is_composited:
        desktop.start_compositor()
    tour = Program(desktop, [binary, "--tour", tmp_path / "tour"])
    # The first picture of the stops comes after the last of the film.
    after = tmp_path / "tour/collapsed.png"

    def is_over():
        assert tour.process.poll() is None, tour.describe()
        return after.exists()

    wait_until(is_over, "film", tour.describe, bound=240)
    tour.stop()
    return Film(is_composited, {
        (start, end): [Picture(tmp_path / f"tour/film/{start}-{end}-{number:02}.png", scale)
                       for number in range(1, 13)]
        for start, end in CHANGES})


def test_every_picture_shows_a_whole_body_and_nothing_beside_it(film):
    for (start, end), pictures in film.pictures.items():
        scale = pictures[0].scale
        for number, picture in enumerate(pictures, 1):
            picture.check_body(is_cut=end == "collapsed" and number >= SHRUNK)
        for before, after in zip(pictures, pictures[1:]):
            grows = {"collapsed": 0, "hovering": 1, "expanded": 2}
            sign = 1 if grows[end] > grows[start] else -1
            assert sign * (after.width - before.width) >= -scale, after.name
            assert sign * (after.height - before.height) >= -scale, after.name
        assert len({(picture.width, picture.height) for picture in pictures}) > 6, "it moves"
        if end in BODIES:
            # Half of the border's line lies beside the body: a pixel on either side.
            border = 2 if end == "expanded" and film.is_composited else 0
            width, height = (length * scale for length in BODIES[end])
            assert (pictures[-1].width, pictures[-1].height) == (width + border, height)

    # Tabs stand in their place from their first picture to their last: where the open panel's bar
    # is black, it never was anything else.
    settled = film.pictures["collapsed", "expanded"][-1]
    for change in (("collapsed", "expanded"), ("expanded", "collapsed")):
        for picture in film.pictures[change]:
            edge = 16 * picture.scale  # the border comes and goes there
            shown = range(picture.left + edge, picture.right - edge)
            for y in range(TABS[0] * picture.scale, min(TABS[1] * picture.scale,
                                                        picture.height - edge)):
                moved = [x for x in shown if picture.rows[y][x] & 0xffffff > 0
                         and settled.rows[y][x] & 0xffffff == 0]
                assert not moved, f"{picture.name}, row {y}"
