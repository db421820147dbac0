#include "drafts/read/reader.h"
#include "testing.h"

namespace {

using drafts::Draft;

std::string time(drafts::Ms ms) {
    return ms == drafts::noTime ? "-" : std::to_string(ms);
}

// "start-end speaker: text" for each segment, with "{word start-end confidence}" for what has times of its
// own,
// "+" before a segment that belongs to the one before, "/" before one that begins a paragraph.
std::string shown(const Draft& draft) {
    std::string out;
    for (const drafts::Segment& segment : draft.segments) {
        out += out.empty() ? "" : "|";
        out += segment.continues ? "+" : time(segment.startMs) + '-' + time(segment.endMs) + ' ';
        out += segment.newParagraph ? "/" : segment.joined ? "~" : "";
        if (segment.speaker != drafts::noSpeaker)
            out += base::toUtf8(draft.speakers.at(static_cast<std::size_t>(segment.speaker))) + ": ";
        out += base::toUtf8(segment.text);
        for (const drafts::Word& word : segment.words) {
            out += '{' + base::toUtf8(base::TextView(segment.text).substr(word.begin, word.length)) + ' ' +
                   time(word.startMs) + '-' + time(word.endMs);
            if (word.confidence != drafts::noConfidence)
                out += ' ' + std::to_string(std::lround(word.confidence * 100));
            out += '}';
        }
    }
    for (const drafts::Remark& remark : draft.remarks)
        out += " !" + std::to_string(remark.line) + ' ' + drafts::description(remark.fault);
    return out;
}

std::string read(std::string_view bytes) {
    try {
        return shown(drafts::read(std::string(bytes), base::CodePage(1252)));
    } catch (const drafts::Damage& damage) {
        return damage.what();
    }
}

// The same text in UTF-16 with its mark.
std::string utf16(std::string_view bytes, bool big) {
    std::string out;
    for (const char16_t unit : u'\uFEFF' + base::fromUtf8(bytes)) {
        const char high = static_cast<char>(unit >> 8U);
        const char low = static_cast<char>(unit & 0xFFU);
        out += big ? high : low;
        out += big ? low : high;
    }
    return out;
}

using Rows = std::vector<std::pair<std::string, std::string>>;

void expectAll(const Rows& rows) {
    for (const auto& [bytes, expected] : rows)
        EXPECT_EQ(read(bytes), expected) << bytes;
}

const std::string times = "1\n00:00:01,000 --> 00:00:02,500\n";

} // namespace

TEST(DraftReaders, SubRip) {
    expectAll({
        {times + "Hello\nthere\n", "1000-2500 Hello there"},
        {"\xEF\xBB\xBF" + times + "a\r\n\r\n2\r\n1:00:03,1 --> 1:00:04,25 X1:10\r\nb",
         "1000-2500 a|3603100-3604250 b"},
        {times + "<i>a</i> <font color=\"#fff\">b</font> {\\an8}c &amp; d < e <3",
         "1000-2500 a b c & d < e <3"},
        {times + "a\n\nstill\n\n2\n00:00:03,000 --> 00:00:04,000\nb", "1000-2500 a still|3000-4000 b"},
        {"00:00:01,000 --> 00:00:02,500\na --> b\n00:00:03,000 --> 00:00:04,000\n2001",
         "1000-2500 a --> b|3000-4000 2001"},
        {times + "caf\xe9", "1000-2500 café"},
        {utf16(times + "café", true), "1000-2500 café"},
        {utf16(times + "café", false), "1000-2500 café"},
        {times + "\n2\n00:00:03,000 --> 00:00:04,000\nb", "3000-4000 b !2 a time without text was left out"},
        {"x\n" + times + "a", "1000-2500 a !1 text without a time was left out"},
        {"1\n00:00:01.000 --> 00:00:00,500\na",
         "1000-1000 a !2 the time is not written as this form has it !2 the end lies before the start"},
        {times + "a\n2\n00:00:0x,000 --> 00:00:04,000\nb", "line 5: the time cannot be read"},
        {times + "a\n2\n00:00:03,000 --> \nb", "line 5: the time cannot be read"},
        {times + "a\n2\n00:00:61,000 --> 00:02:00,000\nb", "line 5: the time cannot be read"},
        {times + "a\n2\n999999999:00:00,000 --> 00:02:00,000\nb", "line 5: the time cannot be read"},
        {times, "line 1: nothing in this file has a time"},
    });
}

TEST(DraftReaders, WebVtt) {
    const std::string head = "WEBVTT - title\nKind: captions\n\n";
    expectAll({
        {head + "NOTE x\n00:a --> b\n\nSTYLE\n::cue{}\n\nname\n00:01.000 --> 01:00:02.500 "
                "align:end\na\nb\n\nNOTE",
         "1000-3602500 a b"},
        {head + "00:01.000 --> 00:02.000\n<v.loud Ann Lee>Yes &lt;&nbsp;&bogus;</v>\n- no",
         "1000-2000 Ann Lee: Yes <\u00A0&bogus;|+- no"},
        {head + "00:01.000 --> 00:05.000\n<v A>one <00:02.000>two three <b>four",
         "1000-5000 A: one two three four{one 1000-2000}{two three four 2000-5000}"},
        {head + "00:01.000 --> 00:02.000\na\n00:03.000 --> 00:04.000\n",
         "1000-2000 a !6 a time without text was left out"},
        {head + "1.5 --> 2,5\na\n\nlost text\n",
         "1500-2500 a !4 the time is not written as this form has it !7 text without a time was left out"},
        {head + "00:01.000 --> 00:0d.000\na", "line 4: the time cannot be read"},
        {"WEBVTT", "line 1: nothing in this file has a time"},
    });
}

TEST(DraftReaders, RollingCaptions_CountEachLineOnce) {
    expectAll({
        {"WEBVTT\n\n00:01.000 --> 00:03.000\n \nso<00:01.500><c> we</c><00:02.000><c> go</c>\n\n"
         "00:03.000 --> 00:03.010\nso we go\n \n\n00:03.010 --> 00:05.000\nso we go\non<00:04.000><c> "
         "again</c>\n\n"
         "00:05.000 --> 00:05.010\non again\n \n\n00:09.000 --> 00:10.000\non again\n",
         "1000-3000 so we go{so 1000-1500}{we 1500-2000}{go 2000-3000}|3010-5000 on again{on "
         "3010-4000}{again "
         "4000-5000}|9000-10000 on again{on again 9000-10000}"},
        {"WEBVTT\n\n00:01.000 --> 00:02.000\nyes\n\n00:02.000 --> 00:03.000\nyes\n\n00:03.000 --> "
         "00:04.000\nno\n\n00:04.000 --> "
         "00:05.000\nwell",
         "1000-2000 yes|2000-3000 yes|3000-4000 no|4000-5000 well"},
    });
}

TEST(DraftReaders, Json_InItsDialects) {
    const std::string text = R"("text": " One two. Three", )";
    expectAll({
        {R"({"segments": [{"id": 0, "tokens": [1, [2]], "start": 0.5, "end": 2, "text": " One", "avg_logprob": NaN}]})",
         "500-2000 One"},
        {R"([{"start": 0.5, "end": null, "text": "One", "speaker": "A"}, {"start": 3.1, "end": 2, "text": "Two", "speaker": 1}])",
         "500-- A: One|3100-3100 Speaker 1: Two"},
        {R"({"segments": [{"start": 0.5, "end": 2, "text": " One, two", "words": [{"word": " One", "start": 0.5, "end": 1, "probability": 0.25},
            {"word": " two", "probability": 2}]}]})",
         "500-2000 One, two{One 500-1000 25}{two --- 100}"},
        {R"({"segments": [{"start": 0, "end": 2, "text": "One", "words": [{"text": "Two", "start": 0, "end": 1, "confidence": 0.5},
            {"text": "three", "start": 1, "end": 2}]}]})",
         "0-2000 Two three{Two 0-1000 50}{three 1000-2000}"},
        {R"({"segments": [{"start": 0, "end": 2, "text": "No. Yes", "speaker": "A", "words": [{"word": "No.", "start": 0, "end": 1, "score": 0.5,
            "speaker": "A"}, {"word": "Yes", "start": 1, "end": 2, "speaker": "B"}]}], "word_segments": [{"word": "No."}]})",
         "0-1000 A: No.{No. 0-1000 50}|1000-2000 B: Yes{Yes 1000-2000}"},
        {"{" + text +
             R"("words": [{"word": "One", "start": 0.1, "end": 0.2}, {"word": "two", "start": 0.3, "end": 0.4}, {"word": "Three", "start": 1, "end": 2}]})",
         "100-2000 One two. Three{One 100-200}{two 300-400}{Three 1000-2000}"},
        {"{" + text +
             R"("words": [{"word": "One", "start": 0.1, "end": 0.2}, {"word": "two", "start": 0.3, "end": 0.4}, {"word": "Three", "start": 1, "end": 2}],
            "segments": [{"start": 0, "end": 0.5, "text": " One two."}, {"start": 1, "end": 2, "text": " Three"}]})",
         "0-500 One two.{One 100-200}{two 300-400}|1000-2000 Three{Three 1000-2000}"},
        {R"({"words": [{"text": "One", "start": 250, "end": 650, "confidence": 0.97}, {"text": "two", "start": 650, "end": 900}]})",
         "250-900 One two{One 250-650 97}{two 650-900}"},
        {R"({"result": {"language": "en"}, "transcription": [{"timestamps": {"from": "00:00:00,320"}, "offsets": {"from": 320, "to": 700}, "text": " And so",
            "tokens": [{"text": "[_BEG_]", "offsets": {"from": 0, "to": 0}, "p": 0.9}, {"text": " An", "offsets": {"from": 320, "to": 400}, "p": 0.5},
            {"text": "d", "offsets": {"from": 400, "to": 500}, "p": 1}, {"text": " so", "offsets": {"from": 500, "to": 700}, "p": 1}]},
            {"offsets": {"from": 700, "to": 700}, "text": ""}, {"offsets": {"from": 700, "to": 900}, "text": " 10", "speaker_turn_next": true}, {"offsets": {"from": 900, "to": 950}, "text": ",5"}]})",
         "320-700 And so{And 320-500 75}{so 500-700 100}|700-900 10|900-950 /,5"},
        {R"({"chunks": [{"timestamp": [0, 1.5], "text": " One"}, {"timestamp": [1.5, null], "text": " two"}], "speakers": [{"speaker": "A", "timestamp": [0, 1.5]},
            {"speaker": "B", "timestamp": [1.5, 3]}]})",
         "0-1500 A: One|1500-- B: two"},
        {"{\"segments\": [{\"start\": 0, \"end\": 1, \"text\": \"caf\xC3\xA9 \xC3\xA9 \xE3\x81\"}]}",
         "0-1000 café é \uFFFD\uFFFD !1 some bytes are no letters"},
        {"{\"segments\": [{\"start\": 0, \"end\": 1, \"text\": \"caf\xE9\"}]}", "0-1000 café"},
        {"{\"segments\":\n[{\"start\": 0,\n\"end\": 1, ", "line 3: the JSON is damaged or ends early"},
        {R"({"segments": {"start": 0}, "text": "x"})",
         "line 1: the JSON has no segments, words, chunks or transcription"},
        {R"({"segments": [{"text": "x"}]})", "line 1: nothing in this file has a time"},
        {std::string(100'000, '['),
         "line 1: this is neither a subtitle file, nor a recogniser's JSON, nor a text with time stamps"},
        {"[{\"a\":" + std::string(100'000, '['), "line 1: the JSON is damaged or ends early"},
    });
}

TEST(DraftReaders, StampedText) {
    const std::string none =
        "line 1: this is neither a subtitle file, nor a recogniser's JSON, nor a text with time stamps";
    expectAll({
        {R"({"text": "<p>x <span class=\"timestamp\" data-timestamp=\"9.4837\">00:09<\/span> a &amp; <b>b<\/b><\/p><p>c <span class=\"timestamp\">00:17<\/span>d<br \/><\/p>", "media": ""})",
         "--- /x|9484-17000 a & b|+/c|17000-- d"},
        {"head\n[00:00:05] a\nb [0:07.5] c\n(00:09) d", "--- /head|5000-7500 /a|+/b|7500-9000 c|9000-- /d"},
        {"Ann Lee  00:05\na\n\nBob (1:02:03):\nb", "5000-3723000 /Ann Lee: a|3723000-- /Bob: b"},
        {"Ann [00:05]: a\n", "5000-- /Ann: a"},
        {"a #00:00:05-3#\nb #00:00:09-0#", "0-5300 /a|5300-9000 /b"},
        {"[00:00.000 --> 00:04.000]  a\n[00:05.000 --> 00:08.000]  b", "0-4000 /a|5000-8000 /b"},
        {"\xEF\xBB\xBF[00:05] caf\xC3\xA9 \xFF", "5000-- /café \uFFFD !1 some bytes are no letters"},
        {"plain [sic] text (no: 12) {x}\n", none},
        {"", none},
        {R"({\rtf1 00:01 x})", none},
        {"{\"a", "line 1: the JSON is damaged or ends early"},
    });
}

TEST(DraftReaders, AReaderThatIsToldToStop_Stops) {
    std::string many = "[";
    for (int i = 0; i < 30'000; ++i)
        many += R"({"start": 1, "end": 2, "text": "x"},)";
    int asked = 0;
    EXPECT_THROW(
        drafts::read(many, base::CodePage(), [&](double share) { return share < 0.5 || ++asked == 0; }),
        drafts::Cancelled);
    EXPECT_EQ(asked, 1);
}
