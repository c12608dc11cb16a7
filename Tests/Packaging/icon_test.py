"""The icon file of the bundle, and the script that packs it."""

import os
import struct
import zlib
from pathlib import Path

from case import PACKAGING, PROGRAM, PackagingTestCase

IMAGES = Path(os.environ["VEXORA_SOURCE"]) / "Resources/Images"
SIZES = (32, 64, 128, 256, 512, 1024)

# Points and pixels per point of the types.
TYPES = {
    "ic11": (16, 2), "ic12": (32, 2),
    "ic07": (128, 1), "ic13": (128, 2),
    "ic08": (256, 1), "ic14": (256, 2),
    "ic09": (512, 1), "ic10": (512, 2),
}


def entries(data):
    """Type and content of the parts of an icon file; raises where lengths do not add up."""
    kind, length = struct.unpack_from(">4sI", data)
    if kind != b"icns" or length != len(data):
        raise ValueError(f"{kind} of {length} bytes in a file of {len(data)}")
    parts = []
    position = 8
    while position < len(data):
        kind, length = struct.unpack_from(">4sI", data, position)
        if length <= 8 or position + length > len(data):
            raise ValueError(f"{kind} of {length} bytes at {position}")
        parts.append((kind.decode("ascii"), data[position + 8:position + length]))
        position += length
    return parts


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(width, height):
    """A transparent image."""
    rows = bytes(height * (1 + 4 * width))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


class IconTest(PackagingTestCase):
    """The icon that the build has packed."""

    def setUp(self):
        super().setUp()
        self.entries = entries((Path(os.environ["VEXORA_CONTENTS"]) / f"Resources/{PROGRAM}.icns").read_bytes())

    def test_every_type_occurs_once(self):
        self.assertEqual(sorted(kind for kind, _ in self.entries), sorted(TYPES))

    def test_every_entry_is_the_drawing_of_its_size(self):
        for kind, data in self.entries:
            points, scale = TYPES[kind]
            size = points * scale
            self.assertEqual(struct.unpack_from(">II", data, 16), (size, size), kind)
            self.assertEqual(data, (IMAGES / f"{PROGRAM}-{size}.png").read_bytes(), kind)


class MakeIconTest(PackagingTestCase):
    """The script over images of the test's choice."""

    def setUp(self):
        super().setUp()
        self.output = self.folder / "new.icns"
        self.images = {size: self.write(self.folder / f"{size}.png", png(size, size)) for size in SIZES}

    def make(self, images):
        return self.run_tool(PACKAGING / "make-icns", self.output, *images)

    def test_packs_images_in_any_order_over_an_earlier_icon(self):
        self.output.write_bytes(b"before")
        self.assert_works(self.make(reversed(list(self.images.values()))))
        for kind, data in entries(self.output.read_bytes()):
            points, scale = TYPES[kind]
            self.assertEqual(data, png(points * scale, points * scale), kind)

    def test_refuses_all_but_one_image_of_each_size_and_changes_nothing(self):
        gone = self.folder / "gone.png"
        twin = self.write(self.folder / "twin.png", png(64, 64))
        whole = png(32, 32)
        refusals = {
            f"[Errno 2] No such file or directory: '{gone}'": [gone],
            "There is no image of 64, 1024 pixels.": [self.images[size] for size in SIZES if size not in (64, 1024)],
            f"{twin} is a second image of 64 pixels.": [*self.images.values(), twin],
        }
        for width, height in ((48, 48), (64, 32), (32, 64), (33, 33)):
            odd = self.write(self.folder / f"{width}x{height}.png", png(width, height))
            reason = f"{odd} has {width} by {height} pixels; the icon takes squares of 32, 64, 128, 256, 512, 1024."
            refusals[reason] = [odd]
        for number, data in enumerate((b"", b"GIF89a", whole[:20], whole[:-1], whole + b"\0", b"\0" + whole)):
            broken = self.write(self.folder / f"broken {number}.png", data)
            refusals[f"{broken} is not a complete PNG file."] = [broken]
        self.output.write_bytes(b"before")
        for reason, images in refusals.items():
            result = self.make(images)
            self.assertEqual((result.returncode, result.stderr), (1, f"make-icns: {reason}\n"))
            self.assertEqual(self.output.read_bytes(), b"before")
        self.assertEqual(list(self.folder.glob("*.partial")), [])

    def test_leaves_nothing_behind_where_it_cannot_write(self):
        self.output.mkdir()
        self.assertEqual(self.make(self.images.values()).returncode, 1)
        self.assertEqual(list(self.folder.glob("new*")), [self.output])
