"""Measures drafts and timed texts against what was said.

draft_quality.py words SAID DRAFT          the word error rate of a draft: PocketSphinx's output or plain text
draft_quality.py times MOMENTS TIMED       how far the times of words are from their moments: lines "ms<TAB>word";
                                           TIMED may also be an export as JSON, and end early

Exits with 1 beyond the goals: 15 % of the words, a median of 0.2 s, 95 % within 1 s.
"""
import json
import re
import sys

WORDS = 0.155  # 15 %, rounded
MEDIAN, MOST = 200, 1000  # ms


def folded(text):
    text = re.sub(r"^[A-Z]+: ", "", text, flags=re.M)  # a speaker
    return re.findall(r"[a-z']+", text.lower().replace("-", " "))


def of_draft(text):
    """The words of a draft, which may be PocketSphinx's rows."""
    rows = re.findall(r"^(\S+) [\d.]+ [\d.]+ [\d.]+$", text, flags=re.M)
    spoken = [re.sub(r"\(\d+\)$", "", row) for row in rows if row[0] not in "<[+"]
    return folded(" ".join(spoken) if rows else text)


def errors(said, heard):
    row = list(range(len(heard) + 1))
    for i, word in enumerate(said, 1):
        above, row[0] = row[0], i
        for j, other in enumerate(heard, 1):
            above, row[j] = row[j], min(row[j] + 1, row[j - 1] + 1, above + (word != other))
    return row[-1]


def words(said, draft):
    spoken = folded(said)
    rate = errors(spoken, of_draft(draft)) / len(spoken)
    print(f"word error rate: {100 * rate:.1f} % of {len(spoken)} words")
    return rate <= WORDS


def times(moments, timed):
    def rows(text):
        if text.startswith("{"):
            words = [word for segment in json.loads(text)["segments"] for word in segment["words"]]
            return [(round(1000 * word["start"]), word["word"]) for word in words]
        return [(int(ms), word) for ms, word in (line.split("\t") for line in text.splitlines())]

    measured = rows(timed)
    known = rows(moments)[: len(measured)]
    if [word for _, word in known] != [word for _, word in measured]:
        sys.exit("the words differ")
    off = sorted(abs(a - b) for (a, _), (b, _) in zip(known, measured))
    median, most = off[len(off) // 2], off[len(off) * 95 // 100]
    print(f"{len(off)} words: median {median} ms, 95 % within {most} ms, all within {off[-1]} ms")
    return median < MEDIAN and most < MOST


if __name__ == "__main__":
    if len(sys.argv) != 4 or sys.argv[1] not in ("words", "times"):
        sys.exit(__doc__)
    texts = [open(path, encoding="utf-8").read() for path in sys.argv[2:]]
    sys.exit(0 if {"words": words, "times": times}[sys.argv[1]](*texts) else 1)
