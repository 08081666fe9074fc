#!/usr/bin/env python3
"""The guide in help/ is well-formed, every link, anchor and picture in it is there, every page stands in the contents,
every screen of the program has a heading, every message of the sources stands in the list of messages, and no picture
lies idle."""

import pathlib
import re
import sys
import xml.etree.ElementTree as tree

ROOT = pathlib.Path(__file__).resolve().parent.parent
HELP = ROOT / "help"
CONTENTS = "index.html"
XHTML = "{http://www.w3.org/1999/xhtml}"
# What the program's own window can show.
ELEMENTS = set("html head meta title link body h1 h2 h3 p a b i em ul ol li dl dt dd pre code kbd var table tr th td img br "
               "div".split())

problems = []


def read(path):
    try:
        return tree.parse(path).getroot()
    except tree.ParseError as error:
        problems.append(f"{path.name}: {error}")
        return tree.Element("html")


def check_links(name, page, anchors, pictures):
    for element in page.iter():
        tag = element.tag.removeprefix(XHTML)
        if tag not in ELEMENTS:
            problems.append(f"{name}: <{tag}> is no element of the guide")
        if tag == "img":
            pictures.add(element.get("src"))
            if not (HELP / element.get("src")).is_file():
                problems.append(f"{name}: no picture {element.get('src')}")
            if not element.get("alt"):
                problems.append(f"{name}: {element.get('src')} has no alternative text")
        target = element.get("href", "")
        if tag != "a" or re.match(r"https?:", target):
            continue
        file, _, anchor = target.partition("#")
        if (file or name) not in anchors:
            problems.append(f"{name}: no page {file}")
        elif anchor and anchor not in anchors[file or name]:
            problems.append(f"{name}: no anchor {target}")


pages = {path.name: read(path) for path in sorted(HELP.glob("*.html"))}
anchors = {}
for name, page in pages.items():
    ids = [element.get("id") for element in page.iter() if element.get("id")]
    problems += [f"{name}: two anchors {one}" for one in set(ids) if ids.count(one) > 1]
    anchors[name] = set(ids)

pictures = set()
for name, page in pages.items():
    check_links(name, page, anchors, pictures)

listed = {link.get("href") for items in pages[CONTENTS].iter(XHTML + "ul") for link in items.iter(XHTML + "a")}
problems += [f"{name} is not in the contents" for name in pages if name not in listed | {CONTENTS}]

idle = {f"pictures/{path.name}" for path in (HELP / "pictures").glob("*")} - pictures
problems += [f"{name} is shown nowhere" for name in sorted(idle)]

headings = {element.get("id") for page in pages.values() for element in page.iter() if re.fullmatch(
    r"h[123]", element.tag.removeprefix(XHTML))}
screens = {path.stem for path in ROOT.glob("src/**/frm*.ui")}
problems += [f"{screen} has no page: give a heading its name as id" for screen in sorted(screens - headings)]

CALL = re.compile(r"\b(?:Show(?:Exclamation|Critical|Information)|AskYesNo|Refuse|fRefuse|Reject|Fault)\(([^;{}]*?)\);")
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
FIELD = re.compile(r"\.(?:Text|Long|Boolean)\([^()]*\)")  # a value read from a row
SHORTEST = 10  # a shorter part of a message says nothing


def plain(text):
    return " ".join(text.replace("\\n", " ").replace('\\"', '"').split())


def parts_of_messages(source):
    for call in CALL.finditer(source.read_text(encoding="utf-8")):
        joined = re.sub(r'"\s*\n\s*"', "", FIELD.sub("", call.group(1)))
        yield from (part for part in map(plain, LITERAL.findall(joined)) if len(part) >= SHORTEST)


told = plain("".join(pages.get("messages.html", tree.Element("html")).itertext()))
for source in sorted(ROOT.glob("src/**/*.cpp")):
    problems += [f"messages.html doesn't tell of: {part} ({source.name})" for part in parts_of_messages(source)
                 if part not in told]

for problem in problems:
    print("help: " + problem)
sys.exit(1 if problems else 0)
