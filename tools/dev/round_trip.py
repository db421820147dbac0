#!/usr/bin/python3
"""Sends a transcript with the moments of its words through other programs, and tells in a table what is left of them.

Usage: tools/dev/round_trip.py [MOMENT_ROWS]   (default: build/dev/tools/moment_rows/moment_rows)

The office suite is run as `soffice`; without it, its rows are left out. A plain editor is Python itself.
"""
import difflib
import json
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
ROWS = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "build/dev/tools/moment_rows/moment_rows"
CHAPTERS = 12
STAMP = re.compile(r"\[\d\d:\d\d:\d\d\] ?")


def draft():
    """The sample's interview, some times over, as a recogniser writes it: each word with its time."""
    random.seed(3)
    segments, now = [], 1.0
    for chapter in range(CHAPTERS):
        for line in (ROOT / "tools/sample/interview.txt").read_text().splitlines():
            words = []
            for word in f"Part {chapter + 1}. {line.partition(': ')[2]}".split():
                length = 0.08 + 0.05 * len(word)
                words.append({"word": " " + word, "start": round(now, 3), "end": round(now + length, 3)})
                now += length + random.uniform(0.02, 0.2)
            text = "".join(word["word"] for word in words)
            segments.append({"start": words[0]["start"], "end": words[-1]["end"], "text": text, "words": words})
            now += 2
    return json.dumps({"segments": segments})


def rows(file):
    """The words of a document, each with its moment in ms (None for none) and whether that is its own."""
    seen = subprocess.run([ROWS, file], check=True, capture_output=True, text=True).stdout
    found = []
    for line in seen.splitlines():
        moment, word = line.split("\t")
        if not STAMP.fullmatch(word):
            found.append((word, None if moment == "-" else int(moment.lstrip("~")), moment[0] not in "~-"))
    return found


def compare(way, before, file):
    """A line of the table: how far the old words' moments are off."""
    after = rows(file)
    kept = exact = none = 0
    off = []
    matcher = difflib.SequenceMatcher(None, [word for word, _, _ in before], [word for word, _, _ in after], False)
    for old, new, count in matcher.get_matching_blocks():
        for (_, first, _), (_, second, own) in zip(before[old:old + count], after[new:new + count]):
            kept += 1
            if second is None:
                none += 1
            elif own and second == first:
                exact += 1
            else:
                off.append(abs(second - first))
    half, one = (sum(distance <= most for distance in off) for most in (500, 1000))
    print(f"| {way} | {len(after)} | {kept} | {exact} | {half} | {one - half} | {len(off) - one} | {none} |", flush=True)


class Office:
    """The office suite without a window, with a profile of its own."""

    def __init__(self, folder):
        self.folder = folder

    def convert(self, file, *forms):
        for number, form in enumerate(forms):
            out = self.folder / f"{number}-{form}"
            subprocess.run(["soffice", f"-env:UserInstallation=file://{self.folder}/profile", "--headless",
                            "--convert-to", form, "--outdir", out, file],
                           check=True, capture_output=True, timeout=300)
            file = out / f"{file.stem}.{form}"
        return file


def edited(source):
    """As with a plain editor: words replaced and removed, a sentence added, two paragraphs exchanged."""
    body, group, rest = source.partition(r"{\*\quillmoments")
    body = body.replace(" harbour ", " port ").replace(" steps,", " rungs,").replace("coffee.", "coffee, of course.")
    lines = body.split("\\par")
    lines[3] += " This was added by hand, in the middle of the interview."
    lines[20], lines[21] = lines[21], lines[20]
    del lines[40]
    return "\\par".join(lines) + group + rest


def stamped(source, before):
    """The source with a stamp in front of each paragraph, in whole seconds as the program inserts them."""
    words = iter(before)
    lines = source.split("\\par")
    for number, line in enumerate(lines):
        match = re.search(r"Part \d+\.", line)
        if match:
            start = next(moment for word, moment, _ in words if word == "Part")
            lines[number] = (line[:match.start()] + f"[{start // 3600000:02}:{start // 60000 % 60:02}:"
                             f"{start // 1000 % 60:02}] " + line[match.start():])
    return "\\par".join(lines)


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "draft.json").write_text(draft())
        rtf = folder / "Interview.rtf"
        source = subprocess.run([ROWS, "--open", folder / "draft.json"], check=True, capture_output=True, text=True,
                                encoding="latin-1").stdout
        rtf.write_text(source, "latin-1")
        before = rows(rtf)
        print("| way | words | of the old ones | exact | within 0.5 s | 1 s | further off | no moment |")
        print("|---|---|---|---|---|---|---|---|")
        compare("saved and opened", before, rtf)
        changed = folder / "changed.rtf"
        changed.write_text(edited(source), "latin-1")
        compare("RTF changed with a plain editor", before, changed)
        with_stamps = folder / "Stamps.rtf"
        with_stamps.write_text(stamped(source, before), "latin-1")
        if shutil.which("soffice"):
            office = Office(folder)
            for file, what in ((rtf, ""), (with_stamps, ", with stamps in the text")):
                for forms in (("rtf",), ("odt", "rtf"), ("docx", "rtf"), ("txt",)):
                    way = " to ".join(form.upper() for form in ("rtf",) + forms)
                    compare(f"office suite, {way}{what}", before, office.convert(file, *forms))


main()
