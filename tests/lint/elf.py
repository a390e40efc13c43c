"""What the lint of built files asks of an ELF file of 64 bits, little-endian: its segments, its dynamic section, its
functions, and the options that the compiler noted in what debuggers read."""

import re
import struct
from collections import namedtuple

EXECUTABLE, SHARED = 2, 3
X86_64 = 62
LOAD, DYNAMIC, GNU_STACK, GNU_RELRO = 1, 2, 0x6474E551, 0x6474E552
TEXT_RELOCATIONS, RPATH, FLAGS, RUNPATH, FLAGS_1 = 22, 15, 30, 29, 0x6FFFFFFB
SYMBOL_TABLES = (2, 11)

Segment = namedtuple("Segment", "type flags offset address file_size")
Section = namedtuple("Section", "name type flags address offset size link entry_size")
Symbol = namedtuple("Symbol", "name value section is_function is_global")


class Elf:
    """`bytes` is the whole file. ValueError where it is of another kind of ELF, or none."""

    def __init__(self, content):
        if content[:6] != b"\x7fELF\x02\x01":
            raise ValueError("not an ELF file of 64 bits, little-endian")
        self.content = content
        (self.type, self.machine) = struct.unpack_from("<HH", content, 16)
        segments_at, sections_at = struct.unpack_from("<QQ", content, 32)
        segment_size, segments, section_size, sections, names = struct.unpack_from("<HHHHH", content, 54)
        self.segments = [
            Segment(*struct.unpack_from("<IIQQ", content, at), *struct.unpack_from("<Q", content, at + 32))
            for at in range(segments_at, segments_at + segments * segment_size, segment_size)
        ]
        raw = [
            struct.unpack_from("<IIQQQQIIQQ", content, at)
            for at in range(sections_at, sections_at + sections * section_size, section_size)
        ]
        self.sections = [
            Section(self._text(raw[names][4] + name), kind, flags, address, offset, size, link, entry)
            for name, kind, flags, address, offset, size, link, _, _, entry in raw
        ]

    def _text(self, at):
        return self.content[at : self.content.index(b"\0", at)].decode()

    def segment(self, kind):
        """The first of that type, or None."""
        return next((segment for segment in self.segments if segment.type == kind), None)

    def dynamic(self):
        """The dynamic section: tag to value, of each tag the last."""
        segment = self.segment(DYNAMIC)
        if not segment:
            return {}
        return dict(struct.iter_unpack("<qQ", self.content[segment.offset : segment.offset + segment.file_size]))

    def dynamic_text(self, tag):
        """The text that an entry of the dynamic section names, or None."""
        names = next((section for section in self.sections if section.name == ".dynstr"), None)
        value = self.dynamic().get(tag)
        return None if value is None or not names else self._text(names.offset + value)

    def symbols(self):
        """Those for the linker at run time, and the others where they were not stripped."""
        for table in self.sections:
            if table.type not in SYMBOL_TABLES:
                continue
            names = self.sections[table.link].offset
            rows = self.content[table.offset : table.offset + table.size]
            for name, info, _, section, value, _ in struct.iter_unpack("<IBBHQQ", rows):
                yield Symbol(self._text(names + name), value, section, info & 15 == 2, info >> 4 != 0)

    def code_at(self, symbol, count):
        """The first bytes of a function that the file defines."""
        section = self.sections[symbol.section]
        at = section.offset + symbol.value - section.address
        return self.content[at : at + count]

    def compiler_options(self):
        """For each way that some source of the file was compiled in, what the compiler noted of its options."""
        return {match.decode() for match in re.findall(rb"GNU C\+\+[^\0]*", self.content)}
