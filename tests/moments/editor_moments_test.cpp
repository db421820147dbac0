#include "drafts/names.h"
#include "editor/clipboard_forms.h"
#include "editor/follow_sound.h"
#include "editor/stamp_commands.h"
#include "editor/word_sound.h"
#include "fakes/editor_bench.h"
#include "moments/layer.h"

// The moments of the editor's text, beside a recording that is at `now`.
class EditorMomentsTest : public fakes::EditorBench {
protected:
    EditorMomentsTest() {
        typing.Form_Load();
        undoRedo.momentsHeard([this] { return std::optional(now); });
        words.Heard = [this] { return std::optional(now); };
        words.CanPlay = [] { return true; };
        words.PlayFrom = [this](std::int32_t ms) { return played = ms, true; };
        follow.Plays = [] { return true; };
    }
    // A word a second.
    void typeWords(base::TextView typed) {
        for (const char16_t unit : typed) {
            now += unit == u' ' ? 1000 : 0;
            text.type(base::TextView(&unit, 1));
        }
    }
    // What a click with Ctrl on each word would play.
    std::vector<int> heard() {
        std::vector<int> result;
        const base::Text all = text.Text();
        for (std::size_t at = 0; at < all.size(); ++at) {
            if (all[at] <= u' ' || (at > 0 && all[at - 1] > u' '))
                continue;
            played = -1;
            text.CtrlClick(static_cast<std::int32_t>(at));
            result.push_back(played);
        }
        return result;
    }

    int now = 1000;
    int played = -1;
    editor::SoundOptions options;
    editor::WordSound words{form, undoRedo, options};
    editor::FollowSound follow{form, words, options, desktop.loop};
    editor::StampCommands stamps{form, undoRedo, options};
};

TEST_F(EditorMomentsTest, WordsTypedWhileARecordingIsOpen_AreHeardAgain_ThroughEditsUndoAndRedo) {
    typeWords(u"one two three");
    EXPECT_EQ(heard(), (std::vector{700, 1700, 2700}));
    for (const int start : {4, 0}) { // "two ", "one "
        select(start, 4);
        text.setSelText({});
    }
    const auto repeat = [&](int times, void (editor::UndoRedo::*step)()) {
        for (; times > 0; --times)
            (undoRedo.*step)();
        return heard();
    };
    now = 60'000;                         // what is undone and redone is not heard then
    for (const int lettersToo : {2, 7}) { // the last word was typed in five changes
        EXPECT_EQ(repeat(2, &editor::UndoRedo::EseguiUndo), (std::vector{700, 1700, 2700}));
        repeat(lettersToo - 2, &editor::UndoRedo::EseguiUndo);
        EXPECT_EQ(repeat(lettersToo - 2, &editor::UndoRedo::EseguiRedo), (std::vector{700, 1700, 2700}));
        EXPECT_EQ(repeat(2, &editor::UndoRedo::EseguiRedo), std::vector{2700});
    }
    now = 90'000;
    text.setText(u"");
    typeWords(u"other");
    now = 95'000;
    text.type(u"s");
    select(0, 5);
    text.setSelText({});
    EXPECT_EQ(heard(), std::vector{89'700}) << "of its word, and nothing of the document before";
    text.setText(u"[00:00:05] loaded [00:00:15] text");
    EXPECT_EQ(heard(), (std::vector{4700, 4700, 14'700, 14'700})) << "a stamp plays from its own time";
}

TEST_F(EditorMomentsTest, ACopyOfALayer_ComesAlongWithItsLetters) {
    typeWords(u"one two three");
    const std::string beside = text.Beside(4, 9); // "two three"
    text.setText(u"new: ");
    text.setSelStart(5);
    text.insert(u"two three", beside);
    EXPECT_EQ(heard(), (std::vector{1700, 1700, 2700}));
    EXPECT_TRUE(text.Beside(0, 4).empty()) << "letters without moments have no layer";
    text.setSelStart(5);
    text.insert(u"two three ", ""); // nothing is beside these
    EXPECT_EQ(heard(), (std::vector{1700, 1700, 1700, 1700, 2700}));
}

TEST_F(EditorMomentsTest, WordsOfAnotherRecording_ArePastedWithoutTheirMoments) {
    moments::Layer recording{u"a.mp3", 0, {}};
    undoRedo.Recording = [&] { return recording; };
    typeWords(u"one two");
    recording.length = 60'000; // is known only now
    const std::string beside = text.Beside(0, 7);
    EXPECT_EQ(moments::unpack(beside, u"one two")->length, 60'000);
    for (const auto& [name, isOther] : {std::pair{u"a.mp3", false}, {u"b.mp3", true}}) {
        recording = {name, 0, {}};
        text.setText(u"");
        now = 50'000;
        typeWords(u"six ");
        text.insert(u"one two", beside);
        EXPECT_EQ(heard(),
                  isOther ? (std::vector{49'700, 49'700, 49'700}) : (std::vector{49'700, 700, 1700}));
        recording.recording = u"c.mp3";
        EXPECT_TRUE(undoRedo.isOfOtherRecording());
        select(0, text.textLength());
        text.setSelText({});
        EXPECT_FALSE(undoRedo.isOfOtherRecording()) << "without words there are no moments";
    }
}

TEST_F(EditorMomentsTest, WordsThatAreCutAndPasted_EvenIntoAnotherDocument_TakeTheirMomentsAlong) {
    editor::ClipboardForms clipboard(form, desktop.clipboardPort);
    typeWords(u"one two three");
    select(0, 4);
    clipboard.mnuTaglia_Click();
    text.setSelStart(text.textLength());
    typeWords(u" ");
    clipboard.mnuIncolla_Click();
    EXPECT_EQ(heard(), (std::vector{1700, 2700, 700}));
    text.setText(u"other ");
    text.setSelStart(6);
    clipboard.mnuIncolla_Click();
    EXPECT_EQ(heard().back(), 700);
    desktop.clipboardPort.SetText(u"foreign words"); // of another program
    text.setText(u"");
    clipboard.mnuIncolla_Click();
    EXPECT_TRUE(text.Beside(0, text.textLength()).empty());
}

TEST_F(EditorMomentsTest, FollowedSound_MarksItsWord_AndLetsTheUserScroll) {
    typeWords(u"one two three");
    follow.commands().front()->Click();
    now = 2500;
    desktop.loop.advance(3100);
    ASSERT_EQ(text.marks.size(), 1U);
    EXPECT_EQ(text.marks.front(), (platform::MarkedPart{4, 3, platform::Mark::Heard}));
    EXPECT_EQ(text.scrolledTo, 4);
    text.Scrolled();
    now = 3500;
    desktop.loop.advance(100);
    EXPECT_EQ(text.marks.front().position, 8);
    EXPECT_EQ(text.scrolledTo, 4);
    text.setSelStart(8);
    text.setSelText(u"[00:00:03] ");
    undoRedo.moments().set(8, 11, std::nullopt);
    now = 2900;
    desktop.loop.advance(100);
    EXPECT_EQ(text.marks.front().position, 4) << "nobody speaks a stamp";
    select(8, 11);
    text.setSelText({});
    now = 3500;
    words.commands()[1]->Click(); // the caret to the sound
    EXPECT_EQ(shown(), "one two |three");
    now = 1200;
    words.commands()[2]->Click(); // its word is heard now
    EXPECT_EQ(heard().back(), 900);
}

TEST_F(EditorMomentsTest, Stamps_AreInsertedFromTheLayer_AndRemoved_EachInOneStep) {
    stamps.SpeakerOf = [](base::TextView paragraph) { return drafts::nameAtHead(paragraph).name; };
    typeWords(u"Ann: one two");
    for (const base::TextView paragraph : {u"Ann: and more", u"Bob: three"}) {
        text.type(u"\r\n");
        typeWords(paragraph);
    }
    const base::Text plain = text.Text();
    const std::vector<int> times = heard();
    const auto& menu = stamps.commands().front()->items;
    const std::pair<std::size_t, base::Text> rows[] = {
        {0, u"[00:00:01] Ann: one two\r\n[00:00:03] Ann: and more\r\n[00:00:05] Bob: three"},
        {2, u"[00:00:01] Ann: one two\r\nAnn: and more\r\n[00:00:05] Bob: three"},
        {1, u"[00:00:01] Ann: [00:00:02] one two\r\nAnn: [00:00:04] and more\r\nBob: [00:00:06] three"},
    };
    options.stampSeconds = 2;
    now = 2500;
    for (const auto& [command, expected] : rows) {
        text.setSelStart(9); // "two"
        menu[command]->Click();
        EXPECT_EQ(text.Text(), expected);
        EXPECT_EQ(text.Text().substr(static_cast<std::size_t>(text.SelStart()), 3), u"two");
        EXPECT_EQ(undoRedo.moments().at(0), std::nullopt) << "a stamp is no word that is heard";
        menu[command]->Click();
        EXPECT_EQ(text.Text(), expected) << "where there are stamps, none are added";
        undoRedo.EseguiUndo();
        EXPECT_EQ(text.Text(), plain);
        EXPECT_EQ(text.SelStart(), 9);
        EXPECT_EQ(heard(), times);
        undoRedo.EseguiRedo();
        EXPECT_EQ(text.Text(), expected);
        menu[4]->Click();
        EXPECT_EQ(text.Text(), plain);
        undoRedo.EseguiUndo();
        EXPECT_EQ(text.Text(), expected);
        undoRedo.EseguiUndo();
    }
    EXPECT_EQ(heard(), times);
}

TEST_F(EditorMomentsTest, WordsOfAnotherRecording_AreNotHeard_ButStampsAre) {
    using moments::Layer;
    const std::tuple<Layer, Layer, bool> rows[] = {
        {{u"a.mp3", 60'000, {}}, {u"a.mp3", 99'000, {}}, false}, // its length was an estimate
        {{u"a.mp3", 60'000, {}}, {u"b.mp3", 60'251, {}}, true},
        {{u"a.mp3", 60'000, {}}, {}, false}, // none is open
        {{}, {u"b.mp3", 60'000, {}}, false}, // nobody knows which it was
    };
    int told = 0;
    words.ToldOther = [&] { ++told; };
    const base::Text letters = u"word [00:00:05]";
    for (auto [ofText, open, isOther] : rows) {
        text.setText(u"");
        undoRedo.Recording = [opened = open] { return opened; };
        EXPECT_FALSE(undoRedo.isOfOtherRecording()) << "without moments";
        ofText.timed = {{{4, moments::Moment{.start = 2000}}, {11, {}}}};
        text.insert(letters, moments::pack(ofText, letters));
        EXPECT_EQ(undoRedo.isOfOtherRecording(), isOther) << base::toUtf8(open.recording) << open.length;
        told = 0;
        EXPECT_EQ(heard(), (std::vector{isOther ? -1 : 1700, 4700}));
        EXPECT_EQ(told, isOther);
        EXPECT_NE(text.Clickable(1), isOther);
        EXPECT_TRUE(text.Clickable(6)) << "the stamp";
    }
}
