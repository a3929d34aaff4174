#!/usr/bin/env python3
"""Writes what Doxygen makes the reference of: the public headers with the request of each function in its comment, and
the table of all requests.

What a request consists of is not written down here. It comes from the debug information of the library
(debug_information.py) and from calls of its functions (probe.py), and a function of which it cannot be told ends the
program."""

import argparse
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.append(os.path.join(HERE, "../../tests/gates"))

import debug_information  # noqa: E402
from headers import RECORD, Header, with_places  # noqa: E402
from inspection import read_names  # noqa: E402
from probe import TYPE_OFFSET, Probe  # noqa: E402

NOTHING_TO_USE = {"record.h"}  # what checks the other headers' records


def table(titles, rows):
    return ["|" + "|".join(row) + "|" for row in [titles, ["---"] * len(titles), *rows]]


def quoted(names):
    return ", ".join(f"`{name}`" for name in names)


def parts_of(field, kinds):
    """The field itself, or its elements where these have nothing to do with one another, as `kinds` says: what their
    bytes are filled from or go to."""
    return field.elements() if field.count and len(set(kinds)) > 1 else [field]


def source_of(traffic, start, end, function):
    """What stands in these bytes of a request."""
    if any(traffic.unfilled[start:end]):
        return "not filled"
    names = set().union(*traffic.sources[start:end])
    if names:
        return quoted(parameter.name for parameter in function.parameters if parameter.name in names)
    return str(int.from_bytes(traffic.request[start:end], "little"))


def merged(rows):
    """Rows of offset, size, type, name and meaning, in which neighbours without a name become one."""
    result = []
    for row in rows:
        if result and not row[3] and not result[-1][3] and result[-1][4] == row[4]:
            result[-1][1] += row[1]
        else:
            result.append(list(row))
    return [[str(offset), str(size), kind, f"`{name}`" if name else "", meaning]
            for offset, size, kind, name, meaning in result]


def request_rows(request, traffic, function):
    rows = []
    for whole in request.request:
        start = request.data_offset + whole.offset
        sources = [frozenset(source) for source in traffic.sources[start:start + whole.size] if source]
        for field in parts_of(whole, sources):
            start = request.data_offset + field.offset
            meaning = source_of(traffic, start, start + field.size, function)
            name = "" if meaning == "not filled" else field.name
            rows.append([start, field.size, field.type if name else "", name, meaning])
    return merged(rows)


def reply_rows(request, traffic):
    rows = []
    for whole in request.reply:
        start = request.data_offset + whole.offset
        inside = range(start, start + whole.size)
        destinations = [tuple(names) for offset, names in traffic.destinations.items() if offset in inside]
        for field in parts_of(whole, destinations):
            start = request.data_offset + field.offset
            names = traffic.destinations.get(start, [])
            name = field.name if names else ""
            rows.append([start, field.size, field.type if name else "", name, quoted(names) or "not looked at"])
    return merged(rows)


RESULTS = {"u8": "The caller gets its low byte.", "u32": "The caller gets all of it.",
           "": "The caller gets none of it."}


def request_text(function, request, traffic):
    """The paragraphs on one request, which stand behind the function's own."""
    lines = ["", "@par Request",
             f"Queue {request.queue}, module (`cmd`) {request.module}, code (`type`) {request.code}, "
             f"`msg_size` {request.msg_size}."]
    titles = ["Offset", "Size", "Type", "Field"]
    if request.request:
        lines += ["", *table([*titles, "Filled from"], request_rows(request, traffic, function))]
    stored = quoted(traffic.destinations[TYPE_OFFSET])
    result = f"It is stored in {stored}." if stored else RESULTS[request.result]
    lines += ["", "@par Reply",
              f"{request.whole_reply_size} bytes, of which the first four are the result, in `type`. {result}"]
    if request.reply:
        lines += ["", *table([*titles, "Goes to"], reply_rows(request, traffic))]
    return lines


class Pages:
    def __init__(self, functions, probe):
        self.functions = functions
        self.probe = probe
        self.documented = set()

    def text_of_function(self, name):
        self.documented.add(name)
        function = self.functions.get(name)
        if function is None:
            return []
        senders = [call for call in function.calls if self.functions[call].request]
        if function.request:
            return request_text(function, function.request, self.probe.examine(function, function.request))
        if len(senders) == 1:
            request = self.functions[senders[0]].request
            return ["", f"It is {senders[0]} that sends the request.",
                    *request_text(function, request, self.probe.examine(function, request))]
        if senders:
            return ["", "@par Request", "Those of " + ", ".join(senders) + "."]
        return ["", "@par Request", "None."]

    def missing(self):
        return sorted(self.functions.keys() - self.documented)

    def table_of_requests(self):
        lines = ["Requests by module and code {#requests}", "===========================", "",
                 "`msg_size` and the size of the reply are counted from `type`.", ""]
        modules = {}
        for function in self.functions.values():
            if function.request:
                modules.setdefault(function.request.module, []).append(function)
        for module, functions in sorted(modules.items()):
            rows = [[str(function.request.code), function.name + "()", str(function.request.queue),
                     str(function.request.msg_size), str(function.request.whole_reply_size)]
                    for function in sorted(functions, key=lambda function: function.request.code)]
            start = functions[0].request.data_offset
            lines += [f"Module {module} {{#module{module}}}", "-----------", "", f"Members start at byte {start}.", "",
                      *table(["Code", "Function", "Queue", "`msg_size`", "Reply"], rows), ""]
        return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True, help="with debug information")
    parser.add_argument("--platform", required=True, help="what is built of probe_platform.c")
    parser.add_argument("--declared", required=True, help="the functions of the families' headers, one a line")
    parser.add_argument("--include", required=True, help="the folder that holds quillon/")
    parser.add_argument("--output", required=True, help="the folder that the pages are written to")
    arguments = parser.parse_args()

    headers = {}
    for name in sorted(set(os.listdir(os.path.join(arguments.include, "quillon"))) - NOTHING_TO_USE):
        with open(os.path.join(arguments.include, "quillon", name), encoding="ascii") as file:
            headers[name] = file.read()
    functions, records = debug_information.read(
        arguments.library, arguments.platform, set(read_names(arguments.declared)),
        {record["name"] for text in headers.values() for record in RECORD.finditer(text)})
    pages = Pages(functions, Probe(arguments.platform, arguments.library))
    os.makedirs(os.path.join(arguments.output, "quillon"), exist_ok=True)
    for name, text in headers.items():
        written = Header(name, pages.text_of_function).write(with_places(text, records))
        with open(os.path.join(arguments.output, "quillon", name), "w", encoding="ascii") as file:
            file.write(written)
    if pages.missing():
        sys.exit("These functions have no comment of their own in include/quillon/: " + " ".join(pages.missing()))
    with open(os.path.join(arguments.output, "requests.md"), "w", encoding="ascii") as file:
        file.write(pages.table_of_requests())


if __name__ == "__main__":
    main()
