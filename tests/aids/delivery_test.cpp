#include "aids/delivery_rules.h"
#include "aids/unclosed.h"
#include "fakes/workbench.h"

namespace {

// The findings as "kind:letters".
std::string found(const char* text, std::int32_t recordingMs = 0) {
    aids::DeliveryRules rules(u"[unclear, ???,(...)", recordingMs);
    aids::Findings findings;
    std::int32_t position = 0;
    const base::Text all = base::fromUtf8(text);
    for (base::TextView rest = all; !rest.empty();) {
        const base::TextView paragraph = rest.substr(0, rest.find(u'|'));
        rest.remove_prefix(std::min(paragraph.size() + 1, rest.size()));
        rules.look(paragraph, rest, position, findings);
        position += static_cast<std::int32_t>(paragraph.size()) + 1;
    }
    rules.end(findings);
    std::string result;
    for (const aids::Finding& each : findings.take()) {
        EXPECT_EQ(all.substr(static_cast<std::size_t>(each.position), static_cast<std::size_t>(each.length)),
                  each.letters);
        result += (result.empty() ? "" : "; ") +
                  std::string(1, "DUbeSBCM"[static_cast<std::size_t>(each.kind)]) + ":" +
                  base::toUtf8(each.letters) + (each.other.empty() ? "" : "=" + base::toUtf8(each.other));
    }
    return result;
}

} // namespace

TEST(DeliveryRules, FindWhatMayHaveToBeCorrected) {
    const struct {
        const char* text;
        const char* findings;
    } rows[] = {
        {"", ""},
        {"It is [Unclear 00:12:34] at 09:30:00, and ??? and (...) and [unclear",
         "U:[Unclear 00:12:34]; U:???; U:(...); U:[unclear; C:["},
        {"[00:00:05] a|[00:00:09] b|(00:07) c|[00:00:08] d|[00:02:00] e|[00:00:10] f",
         "b:(00:07); e:[00:02:00]"},
        {"a  b, c\u00A0 d e |   f", "B:  ; B:\u00A0 ; B:   "},
        {"Anna: a|Bob: b|Anna: c|ANNA: d|Ana: e|[00:00:01] Bobb: f|Rob: g",
         "S:ANNA=Anna; S:Ana=Anna; S:Bobb=Bob"},
        {"Speaker 1: a|Speaker 2: b|Speaker 1: c|SPEAKER 2: d|Mark: m|Mary: n|Dr. Miller: e|Dr Millar: f|Ann "
         "A: g|Ann B: h",
         "S:SPEAKER 2=Speaker 2; S:Dr Millar=Dr. Miller"},
        {"a (b [c] d) e) {f|g", "C:); C:{"},
        {"a) one|12) two :-) three ;)", ""},
        {"“a” \"b\" «c» »d« »e» „f“ „g” ”h”", ""},
        {"“a|\"b|c” d|„e", "C:“; C:\"; C:”; C:„"},
        {"“a, which goes on|“and ends” (\"b)", "C:\""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(found(row.text, 60'000), row.findings) << row.text;
    EXPECT_EQ(found("[01:00:00] late"), "") << "no recording is open";
    EXPECT_EQ(aids::unclosed(base::Text(200'000, u'[') + base::Text(200'000, u')'), u"").size(), 400'000U);
}

class DeliveryTest : public fakes::WorkbenchTest {
protected:
    void open() {
        command("mnuCheckDelivery").Click();
        settle();
    }
    void settle() {
        for (int i = 0; i < 30; ++i) {
            desktop.loop.advance(50);
            desktop.spellingPort.answer();
        }
    }
    std::string rows() {
        std::string all;
        for (const base::Text& row : desktop.delivery->List1.items.get())
            all += base::toUtf8(row) + '|';
        return all;
    }
    base::Text selected() const { return desktop.text.SelText(); }
    aids::DeliveryWindow& window() { return *desktop.delivery; }
};

TEST_F(DeliveryTest, Window_ListsByKinds_GoesThere_AndFollowsTheText) {
    desktop.spellingPort.wrong = {{u"helo", {}}};
    desktop.text.setText(u"one ??? two\r\nhelo and helo (three");
    auto& moments = program->workstation().editor().undoRedo().moments();
    moments.set(0, 3, moments::Moment{.start = 700, .end = 900, .confidence = 30});
    open();
    EXPECT_EQ(rows(), "\tDoubtful words (1)|\tone\t ??? two|\tUnclear passages (1)|one \t???\t two|"
                      "\tUnclosed brackets and quotes (1)|helo and helo \t(\tthree|");
    EXPECT_EQ(window().lblState.caption.get(), u"Found: 3");
    command("mnuCheckSpelling").Click();
    settle();
    EXPECT_THAT(rows(), testing::EndsWith("\tMisspelled words (1)|\thelo (2)\t and helo (three|"));

    player.commands.clear();
    window().List1.listIndex = 3;
    window().cmdGo.Click();
    EXPECT_EQ(selected(), u"???");
    EXPECT_THAT(player.commands, testing::IsEmpty());
    desktop.text.setSelStart(0);
    desktop.text.type(u"xy ");
    window().List1.DblClick();
    EXPECT_EQ(selected(), u"???") << "before the text is checked again";
    desktop.text.setSelText(u"well");
    settle();
    EXPECT_THAT(rows(), testing::Not(testing::HasSubstr("???\t two")));

    window().List1.listIndex = 1;
    platform::KeyEvent key{46, 0};
    window().List1.KeyDown(key);
    EXPECT_THAT(rows(), testing::StartsWith("\tUnclosed"));
    window().cmdAgain.Click();
    settle();
    EXPECT_THAT(rows(), testing::StartsWith("\tUnclosed")) << "what is hidden stays so";
    window().cmdClose.Click();
    open();
    EXPECT_THAT(rows(), testing::StartsWith("\tDoubtful")) << "until the window is opened again";
}

TEST_F(DeliveryTest, LongText_IsCheckedInSlices_AndEndsWithItsWindow) {
    base::Text text;
    for (int i = 0; i < 20'000; ++i)
        text += u"word (\r\n";
    command("mnuCheckSpelling").Click();
    settle();
    desktop.text.setText(text);
    command("mnuCheckDelivery").Click();
    desktop.loop.advance(40);
    EXPECT_EQ(window().lblState.caption.get(), u"Checking: 0 %") << "the dictionary has not answered";
    desktop.spellingPort.answer();
    desktop.loop.advance(10);
    EXPECT_NE(window().lblState.caption.get(), u"Checking: 0 %");
    EXPECT_TRUE(window().List1.items->empty());
    window().Unload();
    settle();
    EXPECT_TRUE(window().List1.items->empty());
    open();
    EXPECT_EQ(base::toUtf8(window().List1.items.get()[0]),
              "\tUnclosed brackets and quotes (the first 500 of 5000)");
    EXPECT_EQ(window().List1.items->size(), 501U);
}
