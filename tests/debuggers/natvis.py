"""Gives gdb the command "natvis NAME": a variable as kyr.natvis shows it, by gdb's own evaluation of
the expressions in that file. $natvis names the file."""
import fnmatch
import re
import xml.etree.ElementTree

import gdb

PLACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"
MEMBER = re.compile(r"(?<![\w.>])_\w+")


def evaluated(variable, expression):
    """The value of an expression that names the variable's members."""
    return gdb.parse_and_eval(MEMBER.sub(lambda member: f"({variable}).{member[0]}", expression))


def shown(variable, part):
    """What becomes of one pair of braces: an expression, perhaps with the length of a text."""
    expression, _, length = part.partition(",")
    value = evaluated(variable, expression)
    if not length:
        return str(value)
    size, kind = re.fullmatch(r"\[(.*)\](s|su|sub)", length).groups()
    encoding = "latin-1" if kind == "s" else "utf-16-le"
    text = value.string(encoding, length=int(evaluated(variable, size)))
    return text if kind == "sub" else f'"{text}"'


def display(variable, strings):
    for string in strings:
        try:
            return re.sub(r"\{(.*?)\}", lambda part: shown(variable, part[1]), string.text)
        except gdb.error:
            if string.get("Optional") != "true":
                raise
    raise gdb.GdbError("no DisplayString holds here")


class Natvis(gdb.Command):
    """natvis NAME: a variable as the file $natvis shows it."""

    def __init__(self):
        super().__init__("natvis", gdb.COMMAND_DATA)

    def invoke(self, argument, from_tty):
        root = xml.etree.ElementTree.parse(gdb.convenience_variable("natvis").string()).getroot()
        name = gdb.parse_and_eval(argument).type.strip_typedefs().unqualified().name
        [described] = [part for part in root if fnmatch.fnmatchcase(name, part.get("Name"))]
        print(display(argument, described.findall(PLACE + "DisplayString")))
        expand = described.find(PLACE + "Expand")
        for part in expand.iter() if expand is not None else []:
            if part.tag in (PLACE + "Item", PLACE + "Size"):
                print(" ", evaluated(argument, part.text))
            if part.tag == PLACE + "ValuePointer":
                print(" ", evaluated(argument, part.text).dereference())


Natvis()
