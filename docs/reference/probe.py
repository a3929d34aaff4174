"""Tells which argument of a function fills which byte of its request, and which of its outputs a byte of the reply goes
to, by calling the function: what changes with what."""

import ctypes
import os
import resource
import sys
from dataclasses import dataclass

HEADER_SIZE = 16
TYPE_OFFSET = 16
MAX_ARGUMENTS = 10
POINTED_SIZE = 8192
# More elements than this are no outputs of their own.
SHORT_LIST = 8
# glibc's parameter of mallopt for what stands in memory that was just allocated.
M_PERTURB = -6
STALE_BYTES = (0x5A, 0xA5)
FAMILIES = ("DEV_SWDRV", "DEV_AMTRDRV", "DEV_NICDRV", "DEV_SWDRVL4", "DEV_SWDRVL3", "DEV_NMTRDRV", "DEVRM")


@dataclass
class Traffic:
    request: bytes
    # For each byte of the request: the arguments that it depends on, and whether nobody fills it.
    sources: list[set[str]]
    unfilled: list[bool]
    # For each field of the reply, and each element of a short list, by its offset in the envelope; and for the result
    # by that of `type`.
    destinations: dict[int, list[str]]


class Probe:
    def __init__(self, platform, library):
        # The library binds to the platform that is there before it.
        self.platform = ctypes.CDLL(platform, mode=ctypes.RTLD_GLOBAL)
        # ctypes binds at once; the platform here has no more functions than requests need.
        dlopen = ctypes.CDLL(None).dlopen
        dlopen.restype = ctypes.c_void_p
        self.library = ctypes.CDLL(library, handle=dlopen(library.encode(), os.RTLD_LAZY))
        self.mallopt = ctypes.CDLL(None).mallopt
        self.request = (ctypes.c_uint8 * 16384).in_dll(self.platform, "probe_request")
        self.reply = (ctypes.c_uint8 * 16384).in_dll(self.platform, "probe_reply")
        self.buffers = [(ctypes.c_uint8 * POINTED_SIZE)() for _ in range(MAX_ARGUMENTS)]
        for family in FAMILIES:
            getattr(self.library, family + "_PMGR_InitiateProcessResource")()

    def number(self, name):
        return ctypes.c_uint32.in_dll(self.platform, "probe_" + name).value

    def call(self, function, argument=None, null=None, reply=None, stale=STALE_BYTES[0]):
        """The request that a call sends, and what its outputs hold afterwards. Numbers are 1 and what pointers point to
        is 0, but for `argument`. Small as they are, none is refused, and no list is longer than it may be."""
        values = (ctypes.c_uint64 * MAX_ARGUMENTS)()
        outputs = {}
        for buffer, (index, parameter) in zip(self.buffers, enumerate(function.parameters)):
            changed = parameter.name == argument
            if not parameter.pointer:
                values[index] = 2 if changed else 1
            elif parameter.name != null:
                ctypes.memset(buffer, 1 if changed else 0, POINTED_SIZE)
                values[index] = ctypes.addressof(buffer)
                outputs[parameter.name] = buffer
        ctypes.memset(self.reply, 0, len(self.reply))
        for offset, value in (reply or {TYPE_OFFSET: 1}).items():
            self.reply[offset] = value
        before = self.number("requests")
        self.mallopt(M_PERTURB, stale)
        self.platform.probe_call(getattr(self.library, function.name), values, stale)
        self.mallopt(M_PERTURB, 0)
        if self.number("requests") != before + 1:
            sys.exit(f"{function.name} sent {self.number('requests') - before} requests when it was called")
        size = HEADER_SIZE + 4 + self.number("request_size")
        return bytes(self.request[:size]), {name: bytes(buffer) for name, buffer in outputs.items()}

    def request_without(self, function, pointer):
        """The request when `pointer` is null; nothing of a function that then dies or sends nothing."""
        reader, writer = os.pipe()
        child = os.fork()
        if child == 0:
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
            devnull = os.open(os.devnull, os.O_WRONLY)
            os.dup2(devnull, 1)
            os.dup2(devnull, 2)
            try:
                os.write(writer, self.call(function, null=pointer)[0])
            finally:
                os._exit(0)
        os.close(writer)
        with os.fdopen(reader, "rb") as pipe:
            request = pipe.read()
        os.waitpid(child, 0)
        return request

    def examine(self, function, request):
        first, _ = self.call(function)
        self.check(function, request, first)
        sources = [set() for _ in first]
        for parameter in function.parameters:
            others = [self.call(function, argument=parameter.name)[0]]
            if parameter.pointer:
                others.append(self.request_without(function, parameter.name))
            for other in others:
                for source, one, two in zip(sources, first, other):
                    if one != two:
                        source.add(parameter.name)
        other, _ = self.call(function, stale=STALE_BYTES[1])
        unfilled = [one != two for one, two in zip(first, other)]
        return Traffic(first, sources, unfilled, self.destinations(function, request))

    def destinations(self, function, request):
        # Accepted, as some outputs are written only then, and with counts that let lists come back.
        fields = [field for field in request.reply if field.name]
        parts = [part for field in fields for part in (field.elements() if 0 < field.count <= SHORT_LIST else [field])]
        ones = {TYPE_OFFSET: 1} | {request.data_offset + part.offset: 1 for part in parts}
        _, first = self.call(function, reply=ones)
        found = {}
        for offset in ones:
            _, other = self.call(function, reply=ones | {offset: 2})
            found[offset] = [name for name in first if first[name] != other[name]]
        return found

    def check(self, function, request, sent):
        """What was sent is what the debug information says."""
        was = (self.number("queue"), int.from_bytes(sent[8:10], "little"), int.from_bytes(sent[16:20], "little"),
               self.number("request_size"), self.number("reply_size"))
        said = (request.queue, request.module, request.code, request.msg_size, request.whole_reply_size)
        if was != said:
            sys.exit(f"{function.name} sends queue, module, code and sizes {was}, but its command says {said}")
