"""The files with the texts: strings and licences."""

import os

from rows import FaultsTestCase, row

STRINGS = "en.lproj/Localizable.strings"
LICENCE = "LA_en"
COULD_NOT = f"Could not open $RESOURCES/{STRINGS}\n"
BUILT_IN = "start screen: Start"
ENTRY = b'"Start" = "Begin"\n'
NOTHING = "licence: empty"


class TextFilesTest(FaultsTestCase):
    """Files that are none or hold what they should not; "Begin" stands in a strings file alone."""

    section = "Strings files and licences"

    def opened_over(self, name, content, mode=None):
        """The program, which finds under that name a file with that content, or what a function makes."""
        stage = self.stage()
        path = stage.resources / name
        path.unlink()
        if callable(content):
            content(path)
            self.made(path)
        elif content is not None:
            self.put(path, content, mode)
        return self.opened(stage)

    @row("The strings file is missing", BUILT_IN, COULD_NOT, given=[None], sample=True)
    @row("The strings file is a FIFO", BUILT_IN, COULD_NOT, given=[os.mkfifo])
    @row("The strings file may not be read", BUILT_IN, COULD_NOT, given=[ENTRY, 0])
    @row("The strings file is a folder", BUILT_IN, given=[os.mkdir])
    @row("The strings file is empty", BUILT_IN, given=[b""])
    @row("The strings file is binary", BUILT_IN, given=[bytes(range(256)) * 100])
    @row("The strings file is UTF-16", BUILT_IN, given=[ENTRY.decode().encode("utf-16")])
    @row("A mark of UTF-8 stands before the entry", BUILT_IN, given=[b"\xef\xbb\xbf" + ENTRY])
    @row("A semicolon stands behind the entry", 'start screen: Begin";', given=[b'"Start" = "Begin";\n'])
    @row("The entry has a zero byte", "start screen: Beg", given=[b'"Start" = "Beg\0in"\n'])
    @row("The strings file is cut in a character", "start screen: Begin \N{REPLACEMENT CHARACTER}",
         given=['"Start" = "Begin ü"'.encode()[:-2]], sample=True)
    @row("The entry has half a pair of surrogates", f"start screen: Begin {3 * chr(0xfffd)}",
         given=[b'"Start" = "Begin \xed\xa0\x80"\n'])
    def strings(self, content, mode=None):
        return self.opened_over(STRINGS, content, mode)

    @row("The licence is missing", NOTHING, given=[None], sample=True)
    @row("The licence is a FIFO", NOTHING, given=[os.mkfifo], sample=True)
    @row("The licence may not be read", NOTHING, given=["Agreed".encode("utf-16"), 0])
    @row("The licence is a folder", NOTHING, given=[os.mkdir])
    @row("The licence is empty", NOTHING, given=[b""])
    @row("The licence is binary", NOTHING, given=[bytes(range(256)) * 100])
    @row("The licence is UTF-8", NOTHING, given=[b"Agreed"])
    @row("The licence has no mark of its byte order", NOTHING, given=["Agreed".encode("utf-16-le")])
    @row("The licence is cut in a character", NOTHING, given=["Agreed".encode("utf-16")[:-1]])
    @row("The licence has half a pair of surrogates", NOTHING,
         given=["Agre\ud800ed".encode("utf-16", "surrogatepass")])
    @row("The licence has the mark of the other byte order", "licence: 䄀最爀攀攀搀",
         given=[b"\xfe\xff" + "Agreed".encode("utf-16-le")])
    def licences(self, content, mode=None):
        installer = self.opened_over(LICENCE, content, mode)
        installer.press(installer.find("link"))
        return installer
