#!/usr/bin/env python3
"""Holds the texts in the code against the catalogues of their translations in messages/.

A text counts where the code says translate("context", "text") or QT_TRANSLATE_NOOP with both.
Every catalogue must list every text of its part of the code, and no other; those of the languages
named below must have it translated. A translation has the same places for arguments as its text, and
no entities of XML within.
Prints one line for each breach and ends with 1 if there is any.

With --update, Qt's lupdate first brings the catalogues up to date: it adds what is new and takes
out what is gone.
"""
import argparse
import ast
import re
import subprocess
import sys
import xml.etree.ElementTree as xml
from pathlib import Path

# A catalogue, and where the code is that uses it.
PARTS = {"Kyr": ("src/base/kyr",), "KyrTool": ("tools/kyr",),
         "Examples": ("examples/gauge", "examples/surface", "examples/tour", "examples/viewer")}
LANGUAGES = ("en", "de", "fr", "jp", "cn", "pt")
LOCALES = {"en": "en", "de": "de", "fr": "fr", "jp": "ja", "cn": "zh_CN", "pt": "pt_PT"}
# Into these everything is translated; in the others everybody needs the following.
COMPLETE = ("de", "fr")
EVERYWHERE = ("Kyr_zip_err", "KyrChangeLog", "Kyr_Translator")
# English shows the text that is in the code, unless that is only a name for it.
IN_ENGLISH = ("Kyr_Translator",)

LITERAL = r'"(?:[^"\\\n]|\\.)*"'
LITERALS = rf"{LITERAL}(?:\s*{LITERAL})*"
CALL = re.compile(rf"\b(?:translate|QT_TRANSLATE_NOOP)\(\s*({LITERALS})\s*,\s*({LITERALS})\s*\)")
# A call whose text CALL cannot see, as one of two behind a question mark.
HIDDEN = re.compile(rf"\btranslate\(\s*{LITERALS}\s*,(?!\s*{LITERALS}\s*\))[^;()]*({LITERAL})")
# What has quotes, or slashes, without being code for CALL.
COMMENT = re.compile(rf"//[^\n]*|/\*.*?\*/|({LITERAL}|'(?:[^'\\\n]|\\.)')", re.DOTALL)
PLACE = re.compile(r"%L?\d{1,2}")
# What stands in the file for a character, and has become text.
ENTITY = re.compile(r"&#|\b(?:amp|apos|gt|lt|quot);")


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
    """Pairs of context and text."""
    return {(unquoted(context), unquoted(text)) for _, code in code_of(root, folders)
            for context, text in CALL.findall(code)}


def texts_in_catalogue(path):
    """The translation of each pair of context and text; empty where there is none."""
    found = {}
    for context in xml.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            done = translation.get("type") is None
            key = context.findtext("name"), message.findtext("source")
            found[key] = (translation.text or "") if done else ""
    return found


def is_required(language, context):
    if language == "en":
        return context in IN_ENGLISH
    return language in COMPLETE or context in EVERYWHERE


def breaches_of(path, language, texts):
    if not path.is_file():
        yield f"{path} is missing"
        return
    translations = texts_in_catalogue(path)
    for context, text in sorted(texts - translations.keys()):
        yield f"{path}: misses {context}: {text!r} (--update adds it)"
    for context, text in sorted(translations.keys() - texts):
        yield f"{path}: nobody asks for {context}: {text!r} (--update removes it)"
    for (context, text), translation in sorted(translations.items()):
        if not translation and is_required(language, context):
            yield f"{path}: no translation of {context}: {text!r}"
        if translation and sorted(PLACE.findall(text)) != sorted(PLACE.findall(translation)):
            yield f"{path}: other places for arguments than {context}: {text!r}"
        if ENTITY.search(translation):
            yield f"{path}: an entity in the translation of {context}: {text!r}"


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
    for name, folders in PARTS.items():
        if given.update:
            update(given.root, name, folders)
        breaches += hidden_texts(given.root, folders)
        texts = texts_in_code(given.root, folders)
        for language in LANGUAGES:
            path = given.root / f"messages/{name}_{language}.ts"
            breaches += breaches_of(path, language, texts)
    for breach in breaches:
        print(breach.replace(f"{given.root}/", ""))
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
