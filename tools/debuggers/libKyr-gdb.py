"""How gdb shows values of libKyr: texts as texts, moments as dates, arrays as their elements.

gdb loads this file with the library when it lies where gdb looks for it; otherwise a line
"source .../libKyr-gdb.py" does. An object that was not initialised, or is damaged, is shown as what
it is; no printer ends in an error.
"""
import datetime

import gdb
import gdb.printing

LONGEST = 1 << 20  # bytes of one text that are read
BROKEN = (gdb.error, ValueError, OverflowError)  # what reading a damaged object raises
LATE = 10 ** 9  # seconds: no span in practice, but a moment behind the year 2000


class Damaged(ValueError):
    """The object holds what it never holds between its constructor and its destructor."""


def bytes_at(address, length, room):
    """The first bytes of a text, as far as they are shown at all."""
    if not 0 <= length <= room:
        raise Damaged(f"{length} of {room} bytes")
    if length == 0:
        return b""
    return gdb.selected_inferior().read_memory(address, min(length, LONGEST)).tobytes()


def printable(text):
    """What gdb can show in its character set; the rest by its codes."""
    charset = gdb.target_charset()
    return text.encode(charset, "backslashreplace").decode(charset, "replace")


def text_of(string):
    """The content of a QString, of Qt 5 or Qt 6."""
    data = string["d"]
    if data.type.code == gdb.TYPE_CODE_PTR:
        header = data.dereference()
        begin, size = int(data) + int(header["offset"]), int(header["size"])
    else:
        begin, size = int(data["ptr"]), int(data["size"])
    unicode = bytes_at(begin, 2 * size, 1 << 40)
    return printable(unicode.decode("utf-16-le", "backslashreplace"))


def bytes_of(string):
    """The content of a std::string; those of the library are in no particular encoding."""
    begin, length = int(string["_M_dataplus"]["_M_p"]), int(string["_M_string_length"])
    in_place = begin == int(string["_M_local_buf"].address)
    room = 15 if in_place else int(string["_M_allocated_capacity"])
    text = bytes_at(begin, length, room)
    return printable(text.decode(gdb.target_charset(), "backslashreplace"))


def part_of(value, name):
    """The value as the class of that name, if that is its own class or a base of it."""
    if value.type.strip_typedefs().unqualified().name == name:
        return value
    parts = [part_of(value[field], name) for field in value.type.fields() if field.is_base_class]
    return next((part for part in parts if part is not None), None)


def number_of(name):
    """The number that is part of the name, in its digits; nothing for names without."""
    numbered = part_of(name.cast(name.dynamic_type), "Kyr::Filename::NameWithNumber")
    if numbered is None:
        return ""
    return str(int(numbered["_number"])).rjust(min(int(numbered["_digits"]), 255), "0")


def name_of(value):
    """A Filename::Name in one piece."""
    is_reference = value.type.strip_typedefs().code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF)
    name = value.referenced_value() if is_reference else value
    base = text_of(name["_baseName"]) + number_of(name)
    return text_of(name["_directory"]) + "/" + base + text_of(name["_extension"])


class Printer:
    """A value that may be damaged: what _show() raises becomes a word about it."""

    def __init__(self, value):
        self.value = value
        try:
            self.shown, self.whole = self._show(), True
        except BROKEN as error:
            self.shown, self.whole = f"<not a valid {value.type.strip_typedefs().name}: {error}>", False

    def to_string(self):
        return self.shown


class Text(Printer):
    """A value that is shown as one text, in quotes."""

    def display_hint(self):
        return "string" if self.whole else None


class KStringPrinter(Text):
    def _show(self):
        return bytes_of(self.value)


class NumStringPrinter(Text):
    def _show(self):
        return text_of(self.value["_text"])


class NamePrinter(Text):
    def _show(self):
        return name_of(self.value)


class TimePrinter(Printer):
    """Seconds, and for what is no span the moment as well."""

    def _show(self):
        seconds, microseconds = int(self.value["_seconds"]), int(self.value["_microseconds"])
        if microseconds >= 10 ** 6:
            return f"{seconds} s + {microseconds} us"
        span = f"{seconds}.{microseconds:06} s"
        if seconds < LATE:
            return span
        moment = datetime.datetime(1970, 1, 1) + datetime.timedelta(0, seconds, microseconds)
        return f"{span} ({moment.isoformat(' ')} UTC)"


class StructVectorPrinter(Printer):
    """The elements; gdb asks only for as many as it is set to show."""

    def _show(self):
        self.data, self.size = self.value["_data"], int(self.value["_size"])
        capacity = int(self.value["_capacity"])
        if self.size > capacity or (capacity > 0) != (int(self.data) != 0):
            raise Damaged(f"{self.size} of {capacity} elements at {int(self.data):#x}")
        if self.size > 0:  # nobody may print what is not there
            self.data[0].fetch_lazy()
            self.data[self.size - 1].fetch_lazy()
        return f"{self.size} elements, room for {capacity}"

    def children(self):
        for index in range(self.size if self.whole else 0):
            yield f"[{index}]", self.data[index]

    def display_hint(self):
        return "array" if self.whole else None


def printers():
    """For each class, by its whole name without typedefs, references and qualifiers."""
    known = gdb.printing.RegexpCollectionPrettyPrinter("libKyr")
    known.add_printer("KString", "^Kyr::KString$", KStringPrinter)
    known.add_printer("NumString", "^Kyr::NumString$", NumStringPrinter)
    known.add_printer("Time", "^Kyr::Time$", TimePrinter)
    known.add_printer("Name", "^Kyr::Filename::Name(WithNumber)?$", NamePrinter)
    known.add_printer("StructVector", "^Kyr::StructVector<.*>$", StructVectorPrinter)
    return known


gdb.printing.register_pretty_printer(gdb.current_objfile(), printers(), replace=True)
