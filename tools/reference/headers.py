"""Public headers as Doxygen reads them."""
import re

COMMENT = re.compile(r"^\s*//")
NAME = re.compile(r"(operator\s*(?:\(\)|[^\s(]+)|~?\w+)\s*\(")
TEMPLATE = re.compile(r"^\s*template\s*<(?:[^<>]|<(?:[^<>]|<[^<>]*>)*>)*>\s*")
MACRO = re.compile(r"\b(?:KYR_[A-Z_]+|alignas|decltype|__attribute__)\s*\(")
NO_FUNCTION = re.compile(r"^\s*(?:class|struct|enum|union|friend|using|typedef|static_assert)\b")
SCOPE = re.compile(r"\b(class|struct|enum|union|namespace)\b[^;()]*\{\s*$")
LABEL = re.compile(r"^\s*(public|protected|private):\s*$")
LITERAL = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'|//.*')
COPY = re.compile(r"\b(\w+)\((?:const )?\1 ?&&?[^,]*\)|= (?:default|delete);")
PAGE_MENTION = re.compile(r"docs/[\w/-]+\.md|docs/decisions/\d{4}\b")


def declared_name(statement):
    """The name of the function that a statement declares; None if it declares none."""
    text = TEMPLATE.sub("", " ".join(statement))
    if NO_FUNCTION.match(text):
        return None
    found = NAME.search(MACRO.sub("", text))
    return found[1] if found else None


def statements(lines):
    """The number of the first line and the lines of each declaration, whose body belongs to it;
    what opens a scope is one of its own, and so is each comment and each blank line."""
    begin, gathered, depth = 0, [], 0
    for number, line in enumerate(lines):
        if not gathered:
            begin = number
            if not line.strip() or COMMENT.match(line) or line.startswith("#"):
                yield number, [line]
                continue
        gathered.append(line)
        code = LITERAL.sub("", line)
        depth += sum(map(code.count, "{(")) - sum(map(code.count, "})"))
        ends = code.rstrip().endswith((";", "}")) and depth <= 0
        if ends or LABEL.match(line) or SCOPE.search(" ".join(gathered)):
            yield begin, gathered
            gathered, depth = [], 0
    if gathered:
        yield begin, gathered


def with_shared_docstrings(text):
    """The text of a header with a mark at each function that shares the docstring above another one
    of its name: they stand directly below each other. The numbers of lines stay."""
    lines = text.splitlines()
    documented, fresh = None, False  # whose docstring counts; whether one was just read
    for begin, statement in list(statements(lines)):
        first = statement[0].strip()
        if first.startswith("///"):
            fresh, documented = True, None
            continue
        name = None if not first or COMMENT.match(first) else declared_name(statement)
        if name and not fresh and name == documented and "///<" not in statement[-1]:
            if not COPY.search(" ".join(statement)):
                lines[begin] = "/** As above, for other arguments. */ " + lines[begin]
        elif not fresh:
            name = None
        documented, fresh = name, False
    return "\n".join(lines) + "\n"


def without_private_types(text):
    """The text of a header whose private types and friends Doxygen passes over: it would link to a
    list of them that it does not make. The numbers of lines stay."""
    lines = text.splitlines()
    private = None  # the indentation of what is private
    for begin, line in enumerate(lines):
        if found := LABEL.match(line):
            private = line[:line.index(found[1])] + " " if found[1] == "private" else None
        elif private and re.match(rf"{private}(?:struct|class) [^;]*\{{$", line):
            end = next(number for number in range(begin, len(lines))
                       if lines[number].startswith(private + "};"))
            lines[begin] = r"/** \cond */ " + line
            lines[end] += r"  /** \endcond */"
        elif private and line.startswith(private[2:] + "};"):
            private = None
        elif re.match(r"\s*friend (?:class|struct) ", line):
            lines[begin] = ""
    return "\n".join(lines) + "\n"


def values_without_words(text):
    """The values of public enumerations that have no docstring, with their lines."""
    private = inside = False
    previous = ""
    for number, line in enumerate(text.splitlines(), 1):
        if found := LABEL.match(line):
            private = found[1] == "private"
        elif re.match(r"(?:class|struct) ", line):
            private = False
        if re.match(r"\s*enum\b.*\{", line):
            inside = not line.rstrip().endswith("};")
            if not inside and not private:
                yield number, line.strip()
        elif inside and (found := re.match(r"\s*(\w+)(?: = [^,]+)?(?:,| |$)", line)) and not private:
            if "///<" not in line and not previous.strip().startswith("///"):
                yield number, found[1]
        inside = inside and "}" not in line
        previous = line
