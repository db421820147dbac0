"""The session of needs_no_eyes.journey.sh: argument 1 is the program's folder."""
import sys

import pyatspi
from accessible import find, press, wait

folder = sys.argv[1]
heard = []
F2, F10, DOWN, RETURN = 0xFFBF, 0xFFC7, 0xFF54, 0xFF0D


def choose_file(button, dialog, path, confirm):
    press(button)
    asked = find("dialog", dialog)
    box = find("text", "File name:", within=asked)
    box.queryEditableText().setTextContents(path)
    press(find("push button", confirm, within=asked))


def is_on(thing):
    return thing.getState().contains(pyatspi.STATE_CHECKED)


def type_text(text):
    pyatspi.Registry.generateKeyboardEvent(0, text, pyatspi.KEY_STRING)


def key(symbol):
    pyatspi.Registry.generateKeyboardEvent(symbol, None, pyatspi.KEY_SYM)


def expect_focus(thing):
    wait(10, f"the focus on '{thing.name}'", lambda: thing.getState().contains(pyatspi.STATE_FOCUSED))


def expect_heard(text):
    wait(10, f"an announcement of '{text}', after {heard}", lambda: text in heard)


def note(event):
    if event.detail1 and event.source and event.source.getRoleName() == "notification":
        heard.append(event.source.name)


def session():
    find("frame", "Quillmere")
    choose_file(find("push button", "Open file\\.\\.\\."), "Open media file", f"{folder}/Samples/Interview.mp3", "Open")

    play = find("check box", "Play")
    wait(10, "the recording plays", lambda: is_on(play))
    expect_heard("Play")
    press(play)
    wait(10, "the recording rests", lambda: not is_on(play))
    expect_heard("Pause")

    position = find("slider", "Position")
    position.queryValue().currentValue = 20
    wait(10, "second 20", lambda: position.description == "00:20 of 01:05")
    volume = find("slider", "Volume")
    volume.queryValue().currentValue = 40
    wait(10, "volume 40", lambda: volume.description == "40%" and volume.queryValue().currentValue == 40)

    text = find("text", "Transcript")
    text.queryComponent().grabFocus()
    expect_focus(text)
    type_text("First words")
    wait(10, "the text", lambda: text.queryText().getText(0, -1) == "First words")

    press(find("menu item", "Playback"))
    press(find("menu item", "Add bookmark"))
    asked = find("dialog", "Add bookmark")
    find("text", "Name of the bookmark", within=asked).queryEditableText().setTextContents("First name")
    press(find("push button", "OK", within=asked))
    marks = find("list", "Bookmarks")
    entry = wait(10, "the bookmark", lambda: marks[0] if marks.childCount else None)
    assert entry.name == "00:00:20  First name", entry.name

    # From the text over toolbar and player to the bookmarks.
    for group in [("push button", "New"), ("slider", "Position"), ("list", "Bookmarks")]:
        key(F10)
        expect_focus(find(*group))
    key(DOWN)
    key(F2)
    box = find("text", "Name of the bookmark")
    expect_focus(box)
    type_text("Second name")
    wait(10, "the typed name", lambda: box.queryText().getText(0, -1) == "Second name")
    key(RETURN)
    wait(10, "the new name", lambda: marks[0].name == "00:00:20  Second name")

    choose_file(find("push button", "Save"), "Save document as", f"{folder}/session.rtf", "Save")
    find("frame", "Text Editor - session.rtf")
    press(find("menu item", "File", within=find("frame", "Quillmere")))
    press(find("menu item", "Exit"))


pyatspi.Registry.registerEventListener(note, "object:state-changed:showing")
session()
