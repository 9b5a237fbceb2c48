#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT
"""Checks the texts in the code against the tables of translations, in both directions.

Every text is a pair of literals in a call of `localized`, and stands, translated, in the table of
its module in every language; a table holds nothing else.
"""

import collections
import re
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

MODULES = ("Platform", "QuorvelKit", "Quorvel")
LANGUAGE_LIST = "cmake/StringTables.cmake"

# Where `localized` itself is declared and defined.
LOOKUP = ("Platform/Foundation/StringTable.h", "Platform/Foundation/StringTable.cpp")

# What else Qt offers would look in tables that nobody keeps.
OTHER_LOOKUPS = ("tr", "trUtf8", "qtTrId", "QT_TR_NOOP", "QT_TRANSLATE_NOOP")

TOKEN = re.compile(r"""
    (?P<comment> //[^\n]* | /\*.*?\*/ )
  | (?P<raw>     (?:u8|[uUL])?R"(?P<tag>[^()\\\s]{0,16})\((?P<body>.*?)\)(?P=tag)" )
  | (?P<text>    "(?:[^"\\\n]|\\.)*" )
  | (?P<char>    '(?:[^'\\\n]|\\.)+' )
  | (?P<word>    [A-Za-z_]\w* )
  | (?P<number>  \d[\w'.]* )
  | (?P<other>   \S )
""", re.VERBOSE | re.DOTALL)

ESCAPE = re.compile(r'\\(?:u([0-9A-Fa-f]{4})|U([0-9A-Fa-f]{8})|(.))', re.DOTALL)
SIMPLE_ESCAPES = {"n": "\n", "t": "\t", '"': '"', "'": "'", "\\": "\\"}
PLACEHOLDER = re.compile(r"%(?:L?\d{1,2}|n)")
BLANKS = re.compile(r"^\s+|\s+$|\s{2,}")

Text = collections.namedtuple("Text", "context english")
Token = collections.namedtuple("Token", "kind text line")


class Unreadable(Exception):
    """A call, or a literal in it, whose text cannot be told."""


def tokens_of(code):
    """The code without its comments; strings are decoded when they are needed."""
    line, end = 1, 0
    result = []
    for found in TOKEN.finditer(code):
        line += code.count("\n", end, found.start())
        end = found.start()
        if found["comment"]:
            continue
        kind = "raw" if found["raw"] else found.lastgroup
        result.append(Token(kind, found["body"] if kind == "raw" else found[0], line))
    return result


def decoded(token):
    if token.kind == "raw":
        return token.text

    def character(found):
        code = found[1] or found[2]
        if code:
            return chr(int(code, 16))
        if found[3] not in SIMPLE_ESCAPES:
            raise Unreadable(f"write the character itself instead of \\{found[3]}")
        return SIMPLE_ESCAPES[found[3]]

    return ESCAPE.sub(character, token.text[1:-1])


def argument(tokens, position, end):
    """The text of the adjacent literals here, and the place behind the `end` that follows."""
    parts = []
    while position < len(tokens) and tokens[position].kind in ("text", "raw"):
        parts.append(decoded(tokens[position]))
        position += 1
    if not parts or position == len(tokens) or tokens[position].text != end:
        raise Unreadable("localized() takes two literals, so that its texts can be found")
    return "".join(parts), position + 1


def call(tokens, position):
    """The text that the `localized` at this place looks up; absent where it is only named."""
    following = [token.text for token in tokens[position + 1:position + 2]]
    if following == [";"] and "using" in (t.text for t in tokens[max(position - 4, 0):position]):
        return None
    if following != ["("]:
        raise Unreadable("localized is called where it is named, so that its texts can be found")
    context, position = argument(tokens, position + 2, ",")
    english, _ = argument(tokens, position, ")")
    return Text(context, english)


def goes_past_tables(tokens, position):
    word = tokens[position].text
    if [token.text for token in tokens[position + 1:position + 2]] != ["("]:
        return False
    before = [token.text for token in tokens[max(position - 3, 0):position]]
    return word in OTHER_LOOKUPS or (
        word == "translate" and before == ["QCoreApplication", ":", ":"])


def texts_of(path, code):
    """The texts that one source file uses, and what is wrong with how it does."""
    module = path.split("/", 1)[0]
    texts, wrong = [], []
    tokens = tokens_of(code)
    for position, token in enumerate(tokens):
        place = f"{path}:{token.line}"
        if token.kind != "word":
            continue
        if goes_past_tables(tokens, position):
            wrong.append(f"{place}: texts are looked up by localized(), not by {token.text}()")
        if token.text != "localized":
            continue
        try:
            text = call(tokens, position)
        except Unreadable as error:
            wrong.append(f"{place}: {error}")
            continue
        if text and text.context != module:
            wrong.append(f'{place}: the table of this code is "{module}", not "{text.context}"')
        elif text:
            texts.append(text.english)
    return texts, wrong


def faults_of_message(english, message):
    """What is wrong with one entry of a table that the code uses."""
    if message.get("numerus") == "yes" or message.find("comment") is not None:
        yield "localized() asks for neither plural forms nor comments"
        return
    translation = message.find("translation")
    wording = "" if translation is None else "".join(translation.itertext())
    if not wording.strip():
        yield "the translation is empty"
        return
    if translation.get("type"):
        yield f"the translation is marked {translation.get('type')}"
    if sorted(PLACEHOLDER.findall(english)) != sorted(PLACEHOLDER.findall(wording)):
        yield f'the placeholders differ in "{wording}"'
    if BLANKS.findall(english) != BLANKS.findall(wording):
        yield f'the blanks at its ends or the double ones differ in "{wording}"'


def faults_of_table(module, language, xml, texts):
    """What is wrong with one table, given all texts of its module."""
    try:
        root = ElementTree.fromstring(xml)
    except ElementTree.ParseError as error:
        yield f"it cannot be read: {error}"
        return
    named = root.get("language", "").replace("_", "-")
    if named != language:
        yield f'it says that its language is "{named}"'
    seen = set()
    for context in root.iter("context"):
        name = context.findtext("name")
        if name != module:
            yield f'it has the context "{name}", where nobody looks'
            continue
        for message in context.iter("message"):
            english = message.findtext("source") or ""
            if english in seen:
                yield f'"{english}": there are two of it'
            elif english not in texts:
                yield f'"{english}": no code uses it'
            else:
                for fault in faults_of_message(english, message):
                    yield f'"{english}": {fault}'
            seen.add(english)
    for english in sorted(set(texts) - seen):
        yield f'"{english}": it has no translation'


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def tracked(*patterns):
    return subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard", "--", *patterns],
        capture_output=True, text=True, check=True).stdout.split()


def main():
    wrong = []
    texts = {module: [] for module in MODULES}
    for path in tracked(*(f"{module}/*.{suffix}" for module in MODULES for suffix in ("h", "cpp"))):
        if path not in LOOKUP:
            found, faults = texts_of(path, read(path))
            texts[path.split("/", 1)[0]] += found
            wrong += faults
    languages = re.search(r"set\(QUORVEL_LANGUAGES ([^)]+)\)", read(LANGUAGE_LIST))[1].split()
    expected = {f"{module}/Resources/{language}.ts": (module, language)
                for module in MODULES for language in languages}
    present = set(tracked(*(f"{module}/*.ts" for module in MODULES)))
    wrong += [f"{path}: {LANGUAGE_LIST} does not name its language"
              for path in sorted(present - set(expected))]
    for path, (module, language) in expected.items():
        if path not in present:
            wrong.append(f"{path}: it is missing")
        else:
            wrong += [f"{path}: {fault}"
                      for fault in faults_of_table(module, language, read(path), texts[module])]
    count = sum(len(set(found)) for found in texts.values())
    if count == 0:
        wrong.append("no text was found in the code at all")
    print("\n".join(wrong) if wrong else f"{count} texts are translated: {', '.join(languages)}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
