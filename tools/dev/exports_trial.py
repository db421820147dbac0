"""Compares what other programs have read from exported files; see exports_trial.sh."""
import re
import sys
import xml.etree.ElementTree as tree
from pathlib import Path

NAMES = {
    "office": "urn:oasis:names:tc:opendocument:xmlns:office:1.0",
    "style": "urn:oasis:names:tc:opendocument:xmlns:style:1.0",
    "text": "urn:oasis:names:tc:opendocument:xmlns:text:1.0",
    "fo": "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0",
    "draw": "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0",
}


def name(short):
    prefix, local = short.split(":")
    return "{%s}%s" % (NAMES[prefix], local)


class Document:
    """A flat OpenDocument file as paragraphs of runs with their effective formats."""

    WANTED = ("fo:font-weight", "fo:font-style", "style:text-underline-style", "style:text-line-through-style",
              "fo:font-size", "fo:color", "style:font-name")

    def __init__(self, path):
        self.root = tree.parse(path).getroot()
        self.styles = {}
        for style in self.root.iter(name("style:style")):
            self.styles[style.get(name("style:family")), style.get(name("style:name"))] = style
        default = self.root.find(".//style:default-style[@style:family='paragraph']", NAMES)
        self.default = default
        self.fonts = {}
        for face in self.root.iter(name("style:font-face")):
            family = face.get("{urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0}font-family", "")
            self.fonts[face.get(name("style:name"))] = family.strip("'").split(",")[0].strip("'")
        self.pictures = 0
        self.paragraphs = []
        body = self.root.find("office:body/office:text", NAMES)
        self.walk(body, False)

    def chain(self, family, key):
        found = []
        while key is not None and (family, key) in self.styles:
            style = self.styles[family, key]
            found.append(style)
            key = style.get(name("style:parent-style-name"))
        return found

    def value(self, chains, properties, wanted, otherwise):
        for style in chains + [self.default]:
            found = style.find("style:%s-properties" % properties, NAMES)
            if found is not None and found.get(name(wanted)) is not None:
                return found.get(name(wanted))
        return otherwise

    def formats(self, chains):
        values = [self.value(chains, "text", wanted, "none") for wanted in self.WANTED]
        weight, slant, under, through, size, colour, font = values
        return (weight == "bold" or weight == "700", slant == "italic", under != "none", through != "none",
                size, "#000000" if colour in ("none", "auto") else colour, self.fonts.get(font, font))

    def walk(self, parent, listed):
        for child in parent:
            if child.tag in (name("text:p"), name("text:h")):
                chains = self.chain("paragraph", child.get(name("text:style-name")))
                align = self.value(chains, "paragraph", "fo:text-align", "start")
                runs = []
                self.runs(child, chains, runs)
                self.paragraphs.append(({"start": "left", "end": "right"}.get(align, align), listed, runs))
            elif child.tag in (name("text:list"), name("text:list-item"), name("text:section")):
                self.walk(child, listed or child.tag == name("text:list"))

    def runs(self, element, chains, runs):
        def add(text):
            text = text and re.sub(r"\s+", " ", text)
            if not text:
                return
            look = self.formats(chains)
            if runs and (runs[-1][1] == look or not text.strip()):
                runs[-1] = (runs[-1][0] + text, runs[-1][1])
            else:
                runs.append((text, look))
        add(element.text)
        for child in element:
            if child.tag == name("text:span"):
                self.runs(child, self.chain("text", child.get(name("text:style-name"))) + chains, runs)
            elif child.tag == name("text:s"):
                add(" ")
            elif child.tag == name("draw:frame"):
                self.pictures += 1
            else:
                self.runs(child, chains, runs)
            add(child.tail)

    def rows(self):
        """One line for each run; blank paragraphs at the end do not count."""
        rows = []
        for align, listed, runs in self.paragraphs:
            for text, look in runs:
                if text.strip():
                    rows.append((align, listed, re.sub(" +", " ", text.strip()), *look))
        return rows + [("pictures", self.pictures)]


def cues(path):
    """Start, end and text of each cue of a SubRip file, without marks of voices."""
    found = []
    for block in re.split(r"\n\s*\n", path.read_text("utf-8").replace("\r", "").strip()):
        lines = block.split("\n")
        start, end = lines[1].split(" --> ")
        found.append((start, end, "|".join(lines[2:])))
    return found


def plain(text):
    """Without the sign that keeps a bracket from being taken for a tag."""
    return text.replace("\u2060", "")


def letters(rows):
    """All text without line ends: the two forms break their lines differently."""
    return re.sub(r"[\s|]", "", "".join(text for _, _, text in rows))


def seconds(stamp):
    hours, minutes, rest = stamp.replace(",", ".").split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(rest)


def main():
    folder = Path(sys.argv[1])
    wrong = 0
    reference = Document(folder / "rtf/formats.fodt").rows()
    for form in ("docx", "odt", "html"):
        rows = Document(folder / form / "formats.fodt").rows()
        for row in reference:
            if row not in rows:
                print("%s lacks %s" % (form, row))
                wrong += 1
        for row in rows:
            if row not in reference:
                print("%s has %s" % (form, row))
                wrong += 1
        print("%s: %d of %d parts equal" % (form, sum(row in rows for row in reference), len(reference)))
    own = [(start, end, plain(text)) for start, end, text in cues(folder / "exported.srt")]
    for form in ("srt", "vtt"):
        read = cues(folder / (form + ".ffmpeg.srt"))
        read = [(start, end, plain(text)) for start, end, text in read]
        names = re.compile(r"^(Anna Berg|Dr\. Weiss): ")
        wanted = own if form == "srt" else [(s, e, names.sub("", t)) for s, e, t in own]
        if form == "srt" and read != wanted:
            print("ffmpeg reads from %s: %s" % (form, read))
            wrong += 1
        if form == "vtt" and letters(read) != letters(wanted):
            print("ffmpeg reads from %s: %s" % (form, read))
            wrong += 1
        shown = [line.split("\t", 1) for line in (folder / (form + ".mpv")).read_text("utf-8").splitlines()
                 if "\t" in line]
        texts = [plain(text) for _, text in shown]
        if texts != [text for _, _, text in read]:
            print("mpv shows from %s: %s" % (form, shown))
            wrong += 1
        for (second, _), (start, _, _) in zip(shown, read):
            if abs(float(re.sub(r"^\[.*?\] *", "", second)) - seconds(start)) > 0.11:
                print("mpv shows at %s what begins at %s" % (second, start))
                wrong += 1
        print("%s: %d subtitles read by ffmpeg, %d shown by mpv" % (form, len(read), len(shown)))
    sys.exit(1 if wrong else 0)


main()
