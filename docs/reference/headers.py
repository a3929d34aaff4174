"""Makes a header of the library one that Doxygen documents: its comments are plain ones."""

import re
import sys

COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)
SECTION = re.compile(r"-{4} (.*?) -{4}\s*")
DECLARED_FUNCTION = re.compile(r"\b(\w+)\((?!\()")
MEMBER = re.compile(r" +(?:\w+|\}) (\w+)(?:\[\w+\])?;")
RECORD = re.compile(r"(?P<start>^typedef struct (?P<name>\w+) \{)\n(?P<body>.*?)\n(?P<end>\} \w+;)",
                    re.DOTALL | re.MULTILINE)


def comment_text(comment):
    """The lines of a comment without what makes them one."""
    text = comment[2:-2].strip()
    return [re.sub(r"^ *\* ?", "", line).rstrip() for line in text.split("\n")]


def escaped(line):
    """The line as Doxygen takes it: no tag or command in it, but in what stands between backquotes or far indented."""
    if line.startswith("    "):
        return line
    parts = line.split("`")
    parts[::2] = [re.sub(r"([<>@\\#])", r"\\\1", part) for part in parts[::2]]
    return "`".join(parts)


def doxygen_comment(lines):
    return "/**\n" + "".join(f" * {line}".rstrip() + "\n" for line in lines) + " */"


class Header:
    """Goes through a header once, comment by comment."""

    def __init__(self, name, text_of_function):
        self.name = name
        # What is said of a function behind its own comment, as lines.
        self.text_of_function = text_of_function
        self.output = []
        # The lines of the next group's comment, until something of the group comes.
        self.group = None
        self.group_is_open = False

    def write(self, text):
        at = 0
        first = True
        for comment in COMMENT.finditer(text):
            self.code(text[at:comment.start()])
            lines = [escaped(line) for line in comment_text(comment.group())]
            before, behind = text[:comment.start()], text[comment.end():]
            section = SECTION.match(lines[0])
            if before.rpartition("\n")[2].strip():
                self.output.append("/**< " + " ".join(lines) + " */")
            elif first:
                self.output.append(doxygen_comment(["@file", *lines]))
            elif section:
                self.end_group()
                self.group = [f"@name {section.group(1)}", *lines[1:]]
            elif behind.startswith("\n\n") and self.group:
                self.group += ["", *lines]
            elif behind.startswith("\n\n"):
                sys.exit(f"{self.name}: a comment belongs to nothing: {lines[0]}")
            else:
                self.begin_group()
                self.documentation(lines, behind)
            at = comment.end()
            first = False
        self.code(text[at:])
        return "".join(self.output)

    def documentation(self, lines, behind):
        declaration = behind.split(";")[0]
        function = DECLARED_FUNCTION.search(declaration)
        if function and "{" not in declaration and not declaration.lstrip().startswith(("typedef", "#")):
            lines = [*lines, *self.text_of_function(function.group(1))]
        self.output.append(doxygen_comment(lines))

    def begin_group(self):
        if self.group:
            self.output += [doxygen_comment(self.group), "\n/** @{ */\n"]
            self.group = None
            self.group_is_open = True

    def end_group(self):
        self.group = None
        if self.group_is_open:
            self.output.append("/** @} */\n")
            self.group_is_open = False

    def code(self, text):
        # What the compiler checks and what it exports is nothing to read.
        text = re.sub(r"^QUILLON_(RECORD_SIZE|FIELD_OFFSET)\(.*\n", "", text, flags=re.MULTILINE)
        before, visibility, behind = text.partition("#pragma GCC visibility pop\n")
        self.output.append(before)
        if visibility:
            self.end_group()
            self.output.append(behind)


def with_places(text, records):
    """Says of each field of the records in the header where it stands."""
    def placed(record):
        lines = record["body"].split("\n")
        # Backwards, as the name of a record inside the record stands behind its fields.
        path = []
        for number in reversed(range(len(lines))):
            name = MEMBER.match(lines[number])
            if name:
                path.append(name[1])
                field = records[record["name"]][".".join(path)]
                place = f"Byte {field.offset}, {field.size} byte{'s' if field.size > 1 else ''}."
                if lines[number].endswith(" */"):
                    lines[number] = lines[number].removesuffix(" */") + f". {place} */"
                else:
                    lines[number] += f" /* {place} */"
                if not lines[number].lstrip().startswith("}"):
                    path.pop()
            elif lines[number].endswith("struct {"):
                path.pop()
        return "\n".join([record["start"], *lines, record["end"]])

    return RECORD.sub(placed, text)
