#!/usr/bin/env python3
"""Holds the texts in the code against the catalogues of their translations in messages/.

A text counts where the code says translate("context", "text") or QT_TRANSLATE_NOOP with both; one
with a number has two English forms, translate("context", "one", "many", number) or
QT_TRANSLATE_N_NOOP3. Every catalogue must list every text of its part of the code, and no other,
and have it translated, those with numbers in all forms of the language. A translation

- has the same places for arguments as its text, and the same blanks and line ends at both ends;
- has one accelerator where its text has one, none elsewhere, and in a menu each letter once; texts
  belong to one menu between two addMenu() of a function;
- quotes places as its language does, where the text has "%1";
- uses the words of messages/glossary.tsv for the terms that are in its text;
- has no entities of XML within.

Prints one line for each breach and ends with 1 if there is any.

With --update, Qt's lupdate first brings the catalogues up to date: it adds what is new and takes
out what is gone.
"""
import argparse
import ast
import itertools
import re
import subprocess
import sys
import xml.etree.ElementTree as xml
from pathlib import Path
from typing import NamedTuple

# A catalogue, and where the code is that uses it.
PARTS = {"Kyr": ("src/base/kyr",), "KyrTool": ("tools/kyr",),
         "Examples": ("examples/gauge", "examples/surface", "examples/tour", "examples/viewer")}
LANGUAGES = ("en", "de", "fr", "jp", "cn", "pt")
LOCALES = {"en": "en", "de": "de", "fr": "fr", "jp": "ja", "cn": "zh_CN", "pt": "pt_PT"}
# English shows the text that is in the code, unless that is only a name for it.
IN_ENGLISH = ("Kyr_Translator",)

# How many forms for numbers Qt has in a language, and how its quotes look.
FORMS = {"en": 2, "de": 2, "fr": 2, "jp": 1, "cn": 1, "pt": 2}
QUOTES = {"en": '""', "de": "„“", "fr": ("«\xa0", "\xa0»"), "jp": "「」", "cn": "“”", "pt": "«»"}

LITERAL = r'"(?:[^"\\\n]|\\.)*"'
LITERALS = rf"{LITERAL}(?:\s*{LITERAL})*"
CALL = re.compile(r"\b(?:translate|QT_TRANSLATE_NOOP|QT_TRANSLATE_N_NOOP3)\("
                  rf"\s*({LITERALS})\s*,\s*({LITERALS})\s*(?:\)|,\s*({LITERALS})\s*[,)])")
# A call whose text CALL cannot see, as one of two behind a question mark.
HIDDEN = re.compile(rf"\btranslate\(\s*{LITERALS}\s*,"
                    rf"(?!\s*{LITERALS}\s*(?:\)|,\s*{LITERALS}\s*,))[^;()]*({LITERAL})")
# What has quotes, or slashes, without being code for CALL.
COMMENT = re.compile(rf"//[^\n]*|/\*.*?\*/|({LITERAL}|'(?:[^'\\\n]|\\.)')", re.DOTALL)
PLACE = re.compile(r"%L?\d{1,2}")
# What stands in the file for a character, and has become text.
ENTITY = re.compile(r"&#|\b(?:amp|apos|gt|lt|quot);")
QUOTED_PLACE = re.compile(r'"(%L?\d{1,2})"')
# Commands, options and names of arguments are no words.
NAME = re.compile(r"\bkyr \w+|--\w+|\b[A-Z]{2,}\b")
ACCELERATOR = re.compile(r"&(?!&)(.?)")
# A blank in front of a colon is French; blanks and line ends of the text itself are not.
EDGES = re.compile(r"^([ \n\t]*).*?([ \n\t]*)$", re.DOTALL)


class Text(NamedTuple):
    """What the code asks for; "many" is the English form for numbers but 1, "" without a number."""
    context: str
    text: str
    many: str = ""

    def __str__(self):
        return f"{self.context}: {self.text!r}"


def unquoted(literals):
    """The text that neighbouring literals of C++ are together."""
    plain = literals.encode().decode("latin-1")
    escaped = re.sub(r"[\x80-\xff]", lambda byte: f"\\x{ord(byte[0]):02x}", plain)
    return b"".join(ast.literal_eval("b" + each) for each in re.findall(LITERAL, escaped)).decode()


def code_of(root, folders):
    """Each file with its code, comments aside."""
    for folder in folders:
        for path in sorted([*(root / folder).rglob("*.h"), *(root / folder).rglob("*.cpp")]):
            yield path, COMMENT.sub(lambda match: match[1] or " ", path.read_text())


def texts_in_code(root, folders):
    return {text for _, code in code_of(root, folders) for text in texts_in(code)}


def texts_in(code):
    return [Text(*(unquoted(each) for each in call)) for call in CALL.findall(code)]


def menus_in_code(root, folders):
    """Sets of texts whose accelerators stand side by side: in a menu, or in the bar of a window."""
    for _, code in code_of(root, folders):
        bar = []
        for function in re.split(r"\n\}", code):
            before, *menus = map(texts_in, re.split(r"\baddMenu\(", function))
            bar += [menu.pop(0) for menu in menus if menu]
            yield from map(set, (before, *menus))
        yield set(bar)


def texts_in_catalogue(path):
    """The forms of the translation of each text; none where it has no translation."""
    found = {}
    for context in xml.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = [form.text or "" for form in translation.iter("numerusform")]
            done = translation.get("type") is None
            key = Text(context.findtext("name"), message.findtext("source"),
                       message.findtext("comment") or "")
            found[key] = (forms or [translation.text or ""]) if done else []
    return found


def glossary_of(path):
    """For each term a pattern of its English words and, by language, the words for it."""
    rows = [line.split("\t") for line in path.read_text().splitlines()
            if line and not line.startswith("#")] if path.is_file() else []
    for row in rows[1:]:
        words = dict(zip(rows[0], (cell.casefold().split("/") for cell in row)))
        yield re.compile(rf"\b(?:{'|'.join(map(re.escape, words['en']))})\b", re.IGNORECASE), words


def is_required(language, context):
    return language != "en" or context in IN_ENGLISH


def accelerator(text):
    """The letter under which a text can be reached, or several where that is wrong."""
    return "".join(ACCELERATOR.findall(text.replace("&&", ""))).casefold()


def words_of(text):
    return NAME.sub("", text.replace("&", ""))


def faults_of_form(text, form, language, glossary):
    """What is wrong with one form of a translation; text is the English one."""
    if sorted(PLACE.findall(text)) != sorted(PLACE.findall(form)):
        yield "other places for arguments than"
    if EDGES.match(text).groups() != EDGES.match(form).groups():
        yield "other blanks or line ends at the ends than"
    if text.count("\n") != form.count("\n"):
        yield "another number of lines than"
    if len(accelerator(form)) != len(accelerator(text)):
        yield "another number of accelerators than"
    if any(place.join(QUOTES[language]) not in form for place in QUOTED_PLACE.findall(text)):
        yield f"no {'%1'.join(QUOTES[language])} in the translation of"
    plain = form.replace("&", "").casefold()
    for pattern, words in glossary if language != "en" else ():
        known = words[language]
        if pattern.search(words_of(text)) and not any(each in plain for each in known):
            yield f"not {' or '.join(known)}, as the glossary says, in the translation of"
    if ENTITY.search(form):
        yield "an entity in the translation of"


def faults_of(text, forms, language, glossary):
    wanted = FORMS[language] if text.many else 1
    found = len([form for form in forms if form])
    if found != wanted:
        yield f"{found} forms, not {wanted}, of"
    for form in filter(None, forms):
        yield from faults_of_form(text.text, form, language, glossary)


def doubled_accelerators(menu, translations):
    """Pairs of texts of a menu that answer to the same letter."""
    letters = {text: accelerator("".join(translations.get(text) or [""])) for text in menu}
    for one, other in itertools.combinations(sorted(menu), 2):
        if letters[one] and letters[one] == letters[other]:
            yield f"the same accelerator for {one} and {other}"


def breaches_of(path, language, texts, menus, glossary):
    if not path.is_file():
        yield f"{path} is missing"
        return
    translations = texts_in_catalogue(path)
    for text in sorted(texts - translations.keys()):
        yield f"{path}: misses {text} (--update adds it)"
    for text in sorted(translations.keys() - texts):
        yield f"{path}: nobody asks for {text} (--update removes it)"
    for text, forms in sorted(translations.items()):
        if not any(forms):
            if is_required(language, text.context):
                yield f"{path}: no translation of {text}"
            continue
        for fault in faults_of(text, forms, language, glossary):
            yield f"{path}: {fault} {text}"
    if language == "en":
        translations = {text: [text.text] for text in texts}
    for menu in menus:
        yield from (f"{path}: {each}" for each in doubled_accelerators(menu, translations))


def hidden_texts(root, folders):
    for path, code in code_of(root, folders):
        for text in HIDDEN.findall(code):
            yield f"{path}: {text} is no argument by itself, so it is not collected"


def update(root, name, folders):
    qt = Path("/usr/lib/qt5/bin/lupdate")
    for language in LANGUAGES:
        subprocess.run([qt if qt.exists() else "lupdate", "-silent", "-no-obsolete",
                        "-locations", "none", "-source-language", "en",
                        "-target-language", LOCALES[language], *(root / each for each in folders),
                        "-extensions", "cpp,h", "-ts", root / f"messages/{name}_{language}.ts"],
                       check=True)


def main():
    arguments = argparse.ArgumentParser(description=__doc__)
    arguments.add_argument("--root", type=Path, default=Path(__file__).resolve().parent.parent)
    arguments.add_argument("--update", action="store_true")
    given = arguments.parse_args()
    breaches = []
    glossary = list(glossary_of(given.root / "messages/glossary.tsv"))
    for name, folders in PARTS.items():
        if given.update:
            update(given.root, name, folders)
        breaches += hidden_texts(given.root, folders)
        texts = texts_in_code(given.root, folders)
        menus = list(menus_in_code(given.root, folders))
        for language in LANGUAGES:
            path = given.root / f"messages/{name}_{language}.ts"
            breaches += breaches_of(path, language, texts, menus, glossary)
    for breach in breaches:
        print(breach.replace(f"{given.root}/", ""))
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
