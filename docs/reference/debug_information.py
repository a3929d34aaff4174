"""The requests of the library's functions and the records that they carry, from the debug information of the library:
as the compiler laid them out."""

import re
import sys
from dataclasses import dataclass, field

from inspection import run

try:
    from elftools.elf.elffile import ELFFile
except ImportError:
    sys.exit("python3-pyelftools is missing: run scripts/install-deps")

SEND = "__SYSFUN_SendRequestMsg"
SIZE_OF_TYPE = 4


@dataclass
class Field:
    """A field of a member or record. One without a name stands for bytes that nobody fills."""

    name: str
    offset: int
    size: int
    type: str
    # Of an array: how many elements.
    count: int = 0

    def elements(self):
        """The elements of a list as fields of their own."""
        size = self.size // self.count
        kind = self.type.split("[")[0]
        return [Field(f"{self.name}[{index}]", self.offset + index * size, size, kind) for index in range(self.count)]


@dataclass
class Request:
    code: int
    module: int
    queue: int
    data_offset: int
    request: list[Field]
    reply: list[Field]
    request_size: int
    reply_size: int
    # What the caller gets of the reply's `type`: "u8", "u32" or nothing.
    result: str

    @property
    def msg_size(self):
        return SIZE_OF_TYPE + self.request_size

    @property
    def whole_reply_size(self):
        return SIZE_OF_TYPE + self.reply_size


@dataclass
class Parameter:
    name: str
    pointer: bool


@dataclass
class Function:
    name: str
    parameters: list[Parameter]
    # What it sends itself.
    request: Request | None = None
    # The public functions that it calls.
    calls: list[str] = field(default_factory=list)


def name_of(die):
    attribute = die.attributes.get("DW_AT_name")
    return attribute.value.decode() if attribute else ""


def template_of(die):
    return name_of(die).split("<")[0]


def referred(die, attribute="DW_AT_type"):
    return die.get_DIE_from_attribute(attribute) if attribute in die.attributes else None


def type_of(die):
    """The type of a field, parameter or template argument, without what merely renames or qualifies it."""
    die = referred(die)
    while die is not None and die.tag in ("DW_TAG_typedef", "DW_TAG_const_type", "DW_TAG_volatile_type"):
        die = referred(die)
    return die


def origin_of(die):
    """The declaration that an inlined function goes back to."""
    for attribute in ("DW_AT_abstract_origin", "DW_AT_specification"):
        origin = referred(die, attribute)
        if origin is not None:
            return origin_of(origin)
    return die


def children(die, tag):
    return [child for child in die.iter_children() if child.tag == tag]


def type_arguments(die):
    return [type_of(argument) for argument in children(die, "DW_TAG_template_type_param")]


def value_arguments(die):
    return [argument.attributes["DW_AT_const_value"].value
            for argument in children(die, "DW_TAG_template_value_param")]


def base(die, template):
    """The class itself or that which it derives from, as an instance of `template`."""
    ancestor = die
    while not name_of(ancestor).startswith(template + "<"):
        inheritance = children(ancestor, "DW_TAG_inheritance")
        if not inheritance:
            sys.exit(f"{name_of(die)} does not derive from {template}: has ipc/command.h changed?")
        ancestor = type_of(inheritance[0])
    return ancestor


INTEGERS = {5: "i", 6: "i", 7: "u", 8: "u"}  # by DWARF's encodings


def described(die):
    """How a type is written, its size, and how many elements it has when it is an array."""
    if die.tag == "DW_TAG_base_type":
        size = die.attributes["DW_AT_byte_size"].value
        return f"{INTEGERS[die.attributes['DW_AT_encoding'].value]}{8 * size}", size, 0
    if die.tag == "DW_TAG_array_type":
        (length,) = children(die, "DW_TAG_subrange_type")
        element, count = type_of(die), length.attributes["DW_AT_upper_bound"].value + 1
    elif template_of(die) == "array":
        (element,), (count,) = type_arguments(die), value_arguments(die)
    else:
        return name_of(die), die.attributes["DW_AT_byte_size"].value, 0
    name, size, _ = described(element)
    return f"{name}[{count}]", size * count, count


def is_public(die):
    """A record of a public header, which stands in no namespace."""
    return die.get_parent().tag == "DW_TAG_compile_unit"


def fields_of(die, offset=0):
    """The fields of a member. Those of the library's own records inside it stand in their place."""
    fields = []
    for member in children(die, "DW_TAG_member"):
        kind = type_of(member)
        at = offset + member.attributes["DW_AT_data_member_location"].value
        text, size, count = described(kind)
        template = template_of(kind)
        if template in ("Unused", "UnusedWord"):
            fields.append(Field("", at, size, ""))
        elif template == "Padded":
            (narrow,) = type_arguments(kind)
            narrow_text, narrow_size, _ = described(narrow)
            fields.append(Field(name_of(member), at, narrow_size, narrow_text))
            fields.append(Field("", at + narrow_size, size - narrow_size, ""))
        elif kind.tag == "DW_TAG_structure_type" and template != "array" and not is_public(kind):
            fields += fields_of(kind, at)
        else:
            fields.append(Field(name_of(member), at, size, text, count))
    return fields


def member_of(die):
    """Fields and size of a request or reply member, which may be empty or a single record."""
    text, size, _ = described(die)
    if text == "Empty":
        return [], 0
    if template_of(die) in ("Unused", "UnusedWord"):
        return [Field("", 0, size, "")], size
    if is_public(die):
        return [Field("record", 0, size, text)], size
    return fields_of(die), size


def request_of(exchange):
    (command,) = type_arguments(exchange)
    family, queue, request, reply, result = type_arguments(base(command, "Command"))
    (code,) = value_arguments(base(command, "Command"))
    module, data_offset = value_arguments(base(family, "Family"))
    (key,) = value_arguments(base(queue, "Queue"))
    request_fields, request_size = member_of(request)
    reply_fields, reply_size = member_of(reply)
    return Request(code, module, key, data_offset, request_fields, reply_fields, request_size, reply_size,
                   "" if result is None else described(result)[0])


def exchanges_of(function):
    """The class of each exchange that the function makes. They are inlined, whatever the optimisation."""
    for child in function.iter_children():
        if child.tag == "DW_TAG_inlined_subroutine":
            origin = origin_of(child)
            if template_of(origin) == "send" and template_of(origin.get_parent()) == "Exchange":
                yield origin.get_parent()
        yield from exchanges_of(child)


def calls_of(library):
    """What each function of the library calls, from its machine code."""
    calls = {}
    current = set()
    for line in run(["objdump", "--disassemble", "--no-show-raw-insn", library]).splitlines():
        start = re.match(r"[0-9a-f]+ <(\w+)>:$", line)
        call = re.search(r"\t(?:call|jmp|bl|b)\s+[0-9a-f]+ <(\w+)(?:@plt)?>$", line)
        if start:
            current = calls.setdefault(start.group(1), set())
        elif call:
            current.add(call.group(1))
    return calls


def function_of(die, calls, names):
    parameters = [Parameter(name_of(parameter), type_of(parameter).tag == "DW_TAG_pointer_type")
                  for parameter in children(die, "DW_TAG_formal_parameter")]
    function = Function(name_of(die), parameters, calls=sorted((calls & names) - {name_of(die)}))
    exchanges = list(exchanges_of(die))
    if len(exchanges) > 1 or (SEND in calls) != bool(exchanges):
        sys.exit(f"{function.name} has {len(exchanges)} exchanges in its debug information, "
                 f"and its code {'does' if SEND in calls else 'does not'} send: its request cannot be told")
    if exchanges:
        function.request = request_of(exchanges[0])
    return function


def record_of(die, prefix="", offset=0):
    """Every field of a public record and of the records inside it, by its path."""
    fields = {}
    for member in children(die, "DW_TAG_member"):
        kind = type_of(member)
        at = offset + member.attributes["DW_AT_data_member_location"].value
        path = prefix + name_of(member)
        text, size, count = described(kind)
        fields[path] = Field(path, at, size, text, count)
        if kind.tag == "DW_TAG_structure_type":
            fields |= record_of(kind, path + ".", at)
    return fields


def entries_of(binary):
    """What stands at the top of the units of its debug information."""
    with open(binary, "rb") as file:
        elf = ELFFile(file)
        if elf.get_section_by_name(".debug_info") is None:
            sys.exit(f"{binary} has no debug information: build the reference with the preset dev")
        for unit in elf.get_dwarf_info().iter_CUs():
            yield from unit.get_top_DIE().iter_children()


def read(library, platform, names, record_names):
    """The functions of these names in the library, and the records of these names in one of the two, by name."""
    functions, records = {}, {}
    calls = calls_of(library)
    for die in entries_of(library):
        name = name_of(die)
        if die.tag == "DW_TAG_subprogram" and name in names and "DW_AT_low_pc" in die.attributes:
            functions[name] = function_of(die, calls.get(name, set()), names)
        elif die.tag == "DW_TAG_structure_type" and name in record_names:
            records[name] = record_of(die)
    for die in entries_of(platform):
        name = name_of(die)
        if die.tag == "DW_TAG_structure_type" and name in record_names - records.keys():
            records[name] = record_of(die)
    missing = sorted(names - functions.keys()) + sorted(record_names - records.keys())
    if missing:
        sys.exit(f"The debug information of {library} lacks: {' '.join(missing)}")
    return functions, records
