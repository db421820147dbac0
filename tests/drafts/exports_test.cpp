#include "drafts/editor_text.h"
#include "drafts/read/reader.h"
#include "drafts/transcript.h"
#include "drafts/write/texts.h"
#include "testing.h"

namespace {

using drafts::Turn;

std::vector<Turn> turnsOf(const std::string& bytes) {
    return drafts::turns(drafts::read(bytes, base::CodePage()), {});
}

// "Speaker: text" for each turn, with "@start-end" behind each word that has a time, "?" and a confidence.
std::string shown(const std::vector<Turn>& turns) {
    base::Text out;
    const auto number = [](int value) { return base::fromUtf8(std::to_string(value)); };
    for (const Turn& turn : turns) {
        out += (out.empty() ? u"" : u"|") + turn.speaker + (turn.speaker.empty() ? u"" : u": ");
        std::size_t at = 0;
        for (const drafts::MomentOfText& word : turn.words) {
            const std::size_t end = word.begin + word.length;
            out += turn.text.substr(at, end - at) + u'@' + number(word.moment.start) + u'-' +
                   number(word.moment.end);
            if (word.moment.confidence != moments::Moment::noConfidence)
                out += u'?' + number(word.moment.confidence);
            at = end;
        }
        out += turn.text.substr(at);
    }
    return base::toUtf8(out);
}

// Turns of two speakers with pauses, of words with clauses and sentences; `msPerLetter` is how fast they
// speak.
std::vector<Turn> conversation(int turns, int msPerLetter) {
    std::mt19937 random(7);
    static constexpr base::TextView words[] = {u"we",        u"interview", u"and",        u"well,",
                                               u"answered.", u"a",         u"transcript", u"considerations;",
                                               u"Why?",      u"because",   u"typing"};
    std::vector<Turn> result;
    std::int32_t ms = 500;
    for (int i = 0; i < turns; ++i) {
        Turn turn{i % 3 == 0 ? u"Ann" : u"Bob Lee", {}, {}};
        for (std::size_t count = 3 + random() % 60; count > 0; --count) {
            const base::TextView word = words[random() % std::size(words)];
            const auto end = ms + static_cast<std::int32_t>(word.size() + 1) * msPerLetter;
            turn.words.push_back({static_cast<std::uint32_t>(turn.text.size()),
                                  static_cast<std::uint32_t>(word.size()),
                                  {ms, end, static_cast<std::uint8_t>(random() % 101)}});
            (turn.text += word) += count > 1 ? u" " : u"";
            ms = end + (random() % 20 == 0 ? 2000 : 0);
        }
        ms += 700;
        result.push_back(std::move(turn));
    }
    return result;
}

} // namespace

TEST(DraftTurns, AreCutBySpeakersAndPauses_WithATimeForEachWord) {
    const std::pair<std::string, std::string> rows[] = {
        {"1\n00:00:01,000 --> 00:00:02,000\nAnn: one two\n\n2\n00:00:02,000 --> "
         "00:00:03,000\nsix\n\n3\n00:00:04,500 --> "
         "00:00:05,000\nno\n\n4\n00:00:05,000 --> 00:00:06,000\nDr. Bob: I said: no",
         "Ann: one@1000-1428 two@1571-2000 six@2000-3000|Ann: no@4500-5000|Dr. Bob: I@5000-5100 "
         "said:@5200-5700 no@5800-6000"},
        {"WEBVTT\n\n00:00.000 --> 00:01.000\n<v A>aaaa</v><v B>bbbb</v>", "A: aaaa@0-500|B: bbbb@500-1000"},
        {R"([{"start": 1, "end": 2, "text": "a b c", "words": [{"word": "a", "start": 1, "end": 1.2, "score": 0.4}, {"word": "b"},
            {"word": "c", "start": 1.8, "end": 2}]}, {"start": 2, "end": 3, "text": "late", "avg_logprob": -1}])",
         "a@1000-1200?40 b@1200-1800 c@1800-2000 late@2000-3000?37"},
        {R"({"words": [{"word": "a", "start": 1, "end": 1.5}, {"word": "b", "start": 3, "end": 3.5}]})",
         "a@1000-1500|b@3000-3500"},
        {R"([{"start": 0, "end": 1, "text": "日本"}, {"start": 1, "end": 2, "text": "語。"}])",
         "日@0-500本@500-1000語@1000-1500。@1500-2000"},
        {"[00:01] one\ntwo\n\n[00:09] Bob: three", "one@1000-5000|two@5000-9000|Bob: three@9000-9350"},
    };
    for (const auto& [bytes, expected] : rows)
        EXPECT_EQ(shown(turnsOf(bytes)), expected) << bytes;
}

TEST(DraftTurns, ComeBackFromTheDocument_WithoutStampsAndHiddenText) {
    std::vector<Turn> turns = conversation(20, 60);
    turns.push_back({u"lower case", u"ends", {}});
    const drafts::Transcript made = drafts::transcript(turns, {});
    EXPECT_EQ(shown(drafts::turns(made)), shown(turns));
    EXPECT_TRUE(drafts::turns(made) == turns);
    const drafts::TimedWord& last = made.words.back();
    EXPECT_EQ(made.document.text.substr(last.word.begin, last.word.length),
              turns[19].text.substr(turns[19].words.back().begin, turns[19].words.back().length));

    drafts::Transcript typed = drafts::transcript({{{}, u"Ann: [00:01:02] Yes [00:02] no", {}}}, {});
    for (const std::uint32_t begin : {0U, 16U, 28U})
        typed.words.push_back({0, {begin, begin == 16 ? 3U : 2U, {7, 8}}});
    EXPECT_EQ(shown(drafts::turns(typed)), "Ann: Yes@7-8 no@7-8");
}

TEST(DraftTurns, ComeBackFromTheEditorsSource_WithTheirMoments) {
    const auto written = drafts::transcript(conversation(40, 60), {});
    const auto read = drafts::transcript(drafts::source(written, {u"talk.mp3", 9, {}}));
    EXPECT_EQ(read.document.text, written.document.text);
    EXPECT_EQ(read.words, written.words);
    EXPECT_EQ(read.recording, u"talk.mp3");
}

TEST(DraftExports, Json_ComesBackWithoutLoss) {
    std::vector<Turn> turns = conversation(200, 60);
    turns.push_back({{},
                     u" two  blanks, \"quoted\" \U0001F600 — no time\tat all ",
                     {{14, 8, {999'999, moments::Moment::noEnd}}}});
    turns.push_back({u"Ann", u"and none", {}});
    const std::vector<Turn> again = turnsOf(drafts::json(turns));
    EXPECT_EQ(shown(again), shown(turns));
    EXPECT_TRUE(again == turns);
}

TEST(DraftExports, SubRip_KeepsBracketsThatBeginNoTag) {
    const drafts::Caption caption{1000, 2000, {}, false, {u"<laughs> {\\an8} 1 < 2"}};
    const auto draft = drafts::read(drafts::subRip({caption}), base::CodePage(1252));
    EXPECT_EQ(draft.segments.at(0).text, caption.lines[0]);
}

TEST(DraftExports, CaptionsKeepTheRules_AndAllWords) {
    for (const int msPerLetter : {40, 62, 90, 400}) {
        const std::vector<Turn> turns = conversation(120, msPerLetter);
        drafts::CaptionRules rules;
        rules.namesInText = msPerLetter == 62;
        const drafts::Captions made = drafts::captions(turns, rules);
        base::Text text;
        drafts::Ms end = 0;
        std::size_t tooFast = 0;
        for (const drafts::Caption& caption : made.captions) {
            const drafts::Ms length = caption.endMs - caption.startMs;
            std::size_t letters = 0;
            EXPECT_GE(caption.startMs, end);
            EXPECT_LE(length, 7000);
            EXPECT_LE(caption.lines.size(), 2U);
            for (const base::Text& line : caption.lines) {
                EXPECT_LE(line.size(), 42U) << base::toUtf8(line);
                letters += line.size();
                text += line + u' ';
            }
            tooFast += length < 1000 || static_cast<std::size_t>(length) * 17 < letters * 1000 ? 1 : 0;
            end = caption.endMs;
        }
        EXPECT_EQ(made.tooFast, tooFast);
        EXPECT_LE(tooFast * 20, made.captions.size() * (msPerLetter == 40 ? 20 : 1)) << msPerLetter;
        base::Text expected;
        base::Text speaker;
        for (const Turn& turn : turns) {
            if (rules.namesInText && turn.speaker != speaker)
                expected += turn.speaker + u": ";
            speaker = turn.speaker;
            expected += turn.text + u' ';
        }
        EXPECT_EQ(text, expected);
    }
}

TEST(DraftExports, Texts) {
    const std::vector<Turn> turns =
        turnsOf("WEBVTT\n\n00:01.000 --> 00:03.000\n<v A & B>It is &lt;b> and it goes on for so long that "
                "two lines are, well, needed.\n\n"
                "00:03.000 --> 00:03.200\n<v A & B>Short.\n\n00:03.200 --> 00:04.500\n<v C>Not here.");
    drafts::CaptionRules rules;
    EXPECT_EQ(drafts::webVtt(drafts::captions(turns, rules).captions),
              "WEBVTT\n\n00:00:01.000 --> 00:00:04.200\n<v A &amp; B>It is &lt;b&gt; and it goes on for so "
              "long\nthat two lines are, well, needed. Short.\n\n"
              "00:00:04.200 --> 00:00:05.200\n<v C>Not here.\n");
    rules.namesInText = true;
    EXPECT_EQ(drafts::subRip(drafts::captions({turns.back()}, rules).captions),
              "1\r\n00:00:03,200 --> 00:00:04,500\r\nC: Not here.\r\n\r\n");
    EXPECT_EQ(drafts::plainText({turns.back()}, {.stamps = true, .speakers = true}),
              "[00:00:03] C: Not here.\n");
    EXPECT_EQ(drafts::plainText({turns.back()}, {.stamps = false, .speakers = false}), "Not here.\n");
}
