#!/usr/bin/python3
"""Tests of the check itself."""

import unittest

import ink

PALETTE = "root.ThemePaletteKey.palette"
THIN = "Typography.reading(12, Font.Normal)"


class InkTest(unittest.TestCase):
    def count(self, text):
        return len(list(ink.faults_in(text)))

    def test_finds_thin_text_in_the_accent_or_on_it(self):
        for text in [
            f"Text {{\n    color: {PALETTE}.accent\n    font: {THIN}\n}}",
            f"Text {{ color: {PALETTE}.accentForeground; font: Typography.reading(12, 400) }}",
            f"Text {{\n    color: {PALETTE}.accent\n}}",
            f"Text {{\n    color: root.isLit ? {PALETTE}.primaryText\n"
            f"        : {PALETTE}.accentForeground\n    font.bold: false\n}}",
            f"Item {{\n    property color ink: {PALETTE}.accentForeground\n"
            "    Text { color: root.ink }\n}",
            f"TextInput {{\n    selectedTextColor: {PALETTE}.accentForeground\n}}",
        ]:
            with self.subTest(text=text):
                self.assertEqual(self.count(text), 1)

    def test_takes_bold_text_and_other_colours(self):
        for text in [
            f"Text {{\n    color: {PALETTE}.accent\n    font: Typography.rounded(9, Font.Bold)\n}}",
            f"Text {{\n    color: {PALETTE}.accent\n    font: Typography.rounded(12, root.isLit\n"
            "        ? Font.DemiBold : Font.Normal)\n}",
            f"Text {{\n    color: {PALETTE}.secondaryText\n}}",
            f"Rectangle {{\n    color: {PALETTE}.accent\n}}",
            f"Text {{ color: {PALETTE}.primaryText }}\nRectangle {{ color: {PALETTE}.accent }}",
        ]:
            with self.subTest(text=text):
                self.assertEqual(self.count(text), 0)


if __name__ == "__main__":
    unittest.main()
