#!/usr/bin/python3
"""Checks that the symbols are one family, and that no picture is asked for that does not exist."""

import pathlib
import re
import sys
import xml.etree.ElementTree

SVG = "{http://www.w3.org/2000/svg}"
GRID = "0 0 24 24"
STROKE = {
    "stroke": "#000",
    "stroke-width": "2",
    "stroke-linecap": "round",
    "stroke-linejoin": "round",
    "fill": "none",
}
ELEMENTS = {"svg", "g", "path", "rect", "circle"}
# What an element may have besides the stroke; no colour is among it, for colour is the tint's.
ATTRIBUTES = {"viewBox", "d", "x", "y", "width", "height", "rx", "cx", "cy", "r", "transform",
              "fill-rule"}

MASCOT = "tobble-"
LITERAL = re.compile(r'u?"([^"\n]*)"')
SYMBOL_NAME = re.compile(r"[a-z][a-z0-9]*(\.[a-z0-9]+)*$")
MASCOT_NAME = re.compile(r'"(tobble-[a-z-]+)"')
# Where QML names a symbol: the item's own name, and the properties that hand one on.
QML_SYMBOL = re.compile(r"\bSymbol\s*\{[^{}]*?\bname:([^;\n]*)|\b\w*[sS]ymbol:([^;\n]*)")
# Where C++ does: a function that returns one, and a call or a field that is given one.
CPP_FUNCTION = re.compile(r"^[^\n;]*\b\w*[sS]ymbol\([^\n;]*\{\n(.*?)^\}", re.M | re.S)
# A word with dots in it names nothing else, where no hosts, files and services are named.
CPP_DOTTED = re.compile(r'"([a-z]+(?:\.[a-z0-9]+)+)"')
ROOMS_WITH_OTHER_DOTS = {"links", "linux"}
CPP_USE = re.compile(r"\b(?:symbolPicture|setImage)\(\s*([^;]*)|\.\w*[sS]ymbol\s*=([^,;\n]*)")


def drawing_faults(name, text):
    root = xml.etree.ElementTree.fromstring(text)
    if root.get("viewBox") != GRID:
        yield f"is drawn on {root.get('viewBox')}, not on {GRID}"
    for element in root.iter():
        kind = element.tag.removeprefix(SVG)
        if kind not in ELEMENTS:
            yield f"has a <{kind}>, which is not single-coloured paint"
        attributes = dict(element.attrib)
        if "stroke" in attributes:
            for key, value in STROKE.items():
                if attributes.pop(key, None) != value:
                    yield f"has a stroke whose {key} is not {value}"
            if name.endswith(".fill"):
                yield "is called filled and has a stroke"
        for key in attributes.keys() - ATTRIBUTES:
            yield f"says {key} on a <{kind}>"


def names_asked_for(path, text):
    """The symbols and pictures of the mascot that a source asks for by a literal."""
    pattern = QML_SYMBOL if path.suffix == ".qml" else CPP_USE
    places = [place for match in pattern.findall(text) for place in match if place]
    if path.suffix != ".qml":
        places += CPP_FUNCTION.findall(text)
        if path.parts[0] not in ROOMS_WITH_OTHER_DOTS:
            includes_aside = re.sub(r"^\s*#.*$", "", text, flags=re.M)
            places += [f'"{name}"' for name in CPP_DOTTED.findall(includes_aside)]
    names = {name for place in places for name in LITERAL.findall(place) if SYMBOL_NAME.match(name)}
    yield from sorted(names | set(MASCOT_NAME.findall(text)))


def faults(source):
    art = {file.stem: file for file in source.glob("theme/art/*.svg")}
    listed = (source / "theme/CMakeLists.txt").read_text()
    for name, file in sorted(art.items()):
        if f"art/{file.name}" not in listed:
            yield f"{file}: is not among the files of the module"
        if not name.startswith(MASCOT):
            for fault in drawing_faults(name, file.read_text()):
                yield f"{file}: {fault}"
    for file in sorted(source.rglob("*")):
        if file.suffix not in {".qml", ".cpp", ".h"}:
            continue
        for name in names_asked_for(file.relative_to(source), file.read_text()):
            if name not in art:
                yield f"{file}: asks for {name}, which is not drawn"
            elif name.startswith(MASCOT) and f"{name}-rimmed" not in art:
                yield f"{file}: asks for {name}, which is not drawn for dark grounds"


def main():
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
