#!/usr/bin/python3
"""Tests of the check itself: each kind of fault, planted in a small tree, has to be found."""

import pathlib
import tempfile
import unittest

import art

PLUS = (
    '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24"><!-- A comment. -->'
    '<path fill="none" stroke="#000" stroke-width="2" stroke-linecap="round"'
    ' stroke-linejoin="round" d="M12 4V20M4 12H20"/></svg>'
)


class ArtTest(unittest.TestCase):
    def faults(self, files):
        """Of a room with one good symbol, one pose without its rimmed twin, and `files`."""
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            pictures = {"theme/art/plus.svg": PLUS, "theme/art/tobble-flat.svg": "<svg/>"}
            for path, text in (pictures | files).items():
                file = root / path
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text)
            names = [file.name for file in root.glob("theme/art/*.svg")]
            unlisted = "art/unlisted.svg"
            (root / "theme/CMakeLists.txt").write_text(
                "\n".join(f"art/{name}" for name in names if f"art/{name}" != unlisted))
            return list(art.faults(root))

    def test_finds_nothing_wrong_with_a_symbol_of_the_family(self):
        self.assertEqual(self.faults({}), [])

    def test_finds_what_breaks_the_family(self):
        for old, new in [
            ('viewBox="0 0 24 24"', 'viewBox="0 0 16 16"'),
            ('stroke-width="2"', 'stroke-width="1.5"'),
            ('stroke-linecap="round"', 'stroke-linecap="butt"'),
            (' stroke-linejoin="round"', ""),
            ('stroke="#000"', 'stroke="#E8A04C"'),
            ("<path ", '<path style="color: red" '),
            ("<path ", '<path opacity="0.5" '),
            ("</svg>", '<circle r="4" fill="red"/></svg>'),
            ("</svg>", "<text>+</text></svg>"),
        ]:
            with self.subTest(new=new):
                self.assertEqual(len(self.faults({"theme/art/x.svg": PLUS.replace(old, new)})), 1)

    def test_finds_a_stroke_in_a_filled_one(self):
        self.assertEqual(len(self.faults({"theme/art/plus.fill.svg": PLUS})), 1)

    def test_finds_a_file_that_the_module_leaves_out(self):
        self.assertEqual(len(self.faults({"theme/art/unlisted.svg": PLUS})), 1)

    def test_finds_what_is_asked_for_and_not_drawn(self):
        for path, text in [
            ("a/A.qml", 'Symbol {\n    width: 4\n    name: "bell.badge"\n}'),
            ("a/A.qml", 'Symbol { width: 4; name: on ? "bell" : "plus" }'),
            ("a/A.qml", 'IconButton {\n    symbol: "bell"\n}'),
            ("a/A.qml", 'Row { readonly property string leadingSymbol: "bell" }'),
            ("a/A.qml", 'TobbleHero { assetName: "tobble-upright" }'),
            ("a/A.qml", 'Tobble { pose: "tobble-flat" }'),
            ("a/A.cpp", 'QString tabSymbol(Tab tab) {\n    return QStringLiteral("bell");\n}\n'),
            ("a/A.cpp", 'symbolPicture(QStringLiteral("bell"), size, color);'),
            ("a/A.cpp", 'item->setImage(paused ? QStringLiteral("plus")\n: text("bell"));'),
            ("a/A.cpp", 'Row{.symbol = "bell"}'),
            ("a/A.cpp", 'return {L("calendars"), L("bell.badge")};'),
            ("a/A.h", 'constexpr auto pose = u"tobble-upright";'),
        ]:
            with self.subTest(text=text):
                self.assertEqual(len(self.faults({path: text})), 1)

    def test_leaves_alone_what_names_no_picture(self):
        for path, text in [
            ("a/A.qml", 'Symbol { name: "plus" }'),
            ("a/A.qml", 'Item {\n    objectName: "bell"\n}'),
            ("a/A.qml", 'Button { symbol: root.symbol; text: "bell" }'),
            ("a/A.cpp", '#include "a.b"'),
            ("links/A.cpp", 'return host == "zoom.us";'),
            ("a/A.cpp", 'QString label() {\n    return QStringLiteral("bell");\n}\n'),
        ]:
            with self.subTest(text=text):
                self.assertEqual(self.faults({path: text}), [])


if __name__ == "__main__":
    unittest.main()
