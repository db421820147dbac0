#include "drafts/command_line.h"
#include "drafts/printed_words.h"
#include "drafts/time_words.h"
#include "testing.h"

namespace {

std::string joined(const std::vector<base::Text>& words) {
    std::string out;
    for (const base::Text& word : words)
        out += (out.empty() ? "" : "|") + base::toUtf8(word);
    return out;
}

} // namespace

TEST(CommandLine, IsDividedAsByAShell_WithoutOne) {
    using Fault = drafts::CommandFault;
    struct Row {
        base::TextView line;
        const char* words; // with "in put" and "o$ut" filled in
        Fault fault = Fault::None;
        bool hasOutput = false;
    };
    for (const Row& row : std::initializer_list<Row>{
             {u"prog %i", "prog|in put"},
             {u"  prog\t-f'%i' \"a b\"c -o=%o ''", "prog|-fin put|a bc|-o=o$ut|", Fault::None, true},
             {u"~/bin/prog %i x~/y ~ \"~/z\" ~u", "/home/u/bin/prog|in put|x~/y|/home/u|~/z|~u"},
             {u"p\\ q '\\n' \"\\\"\\x\" %%i %i 100% %z \\", "p q|\\n|\"\\x|%i|in put|100%|%z|\\"},
             {u"p %i; $(rm) `x` > y & *", "p|in put;|$(rm)|`x`|>|y|&|*"},
             {u" \t", "", Fault::Empty},
             {u"p 'open %i", "p|open in put", Fault::OpenQuote},
             {u"p %%i %o", "p|%i|o$ut", Fault::NoInput, true}}) {
        const drafts::CommandLine command = drafts::parseCommand(row.line, u"/home/u");
        EXPECT_EQ(joined(filledIn(command, u"in put", u"o$ut")), row.words);
        EXPECT_EQ(command.fault, row.fault) << row.words;
        EXPECT_EQ(command.hasOutput, row.hasOutput) << row.words;
    }
}

TEST(PrintedWords, OfEveryRecogniser_BecomeUtterances) {
    drafts::PrintedWords printed;
    std::string arrived;
    printed.Arrived = [&](const drafts::Segment& segment) {
        arrived += base::toUtf8(segment.text) + ' ' + std::to_string(segment.startMs) + '-' +
                   std::to_string(segment.endMs);
        for (const drafts::Word& word : segment.words)
            arrived += '{' + std::to_string(word.begin) + '+' + std::to_string(word.length) + ' ' +
                       std::to_string(word.startMs) + ' ' +
                       std::to_string(std::lround(word.confidence * 100)) + '}';
        arrived += '|';
    };
    int unread = 0;
    for (const base::TextView line : {u"good morning and",
                                      u"<s> 0.060 0.160 0.999200",
                                      u"good(2) 0.170 0.290 0.056223",
                                      u"[NOISE] 0.29 0.3 0.9",
                                      u"++um++ 0.30 0.31 0.9",
                                      u"<sil> 0.850 0.900 0.664416",
                                      u"(a) 0.91 1.09 1.0001",
                                      u"</s> 10.040 10.450 1.000000",
                                      u"x 1 2",
                                      u"x 1 2 3 4",
                                      u"x 5 4 1",
                                      u"x nan 1 1",
                                      u"x 1e99 2e99 1",
                                      u"late 11.0 11.5 0.5",
                                      u"[00:00:12.000 --> 00:00:15.500]   And   so",
                                      u"[00:16.000 --> 00:17.000]",
                                      u"[00:20.000 --> 00:18.000] back",
                                      u"[00:21] no end",
                                      u"whisper_print_progress: progress = 10%",
                                      u"end 30.0 31.0 0.7"})
        unread += printed.line(line) ? 0 : 1;
    EXPECT_EQ(printed.heardMs(), 31'000);
    printed.end();
    EXPECT_EQ(arrived, "good (a) 170-1090{0+4 170 6}{5+3 910 100}|late 11000-11500{0+4 11000 50}|"
                       "And so 12000-15500|back 20000-20000|end 30000-31000{0+3 30000 70}|");
    EXPECT_EQ(unread, 8);
}

TEST(TimeWords, WordsThatWereHeard_HaveTheirTimes_AndTheOthersLieBetween) {
    struct Row {
        base::TextView text;
        base::TextView heard; // each letter takes 100 ms; "." is a second of silence
        std::string times;    // of each word; confidence where the word was heard
        std::size_t found = 0;
    };
    for (const Row& row : std::initializer_list<Row>{
             {u"One, two!\r\nThree", u"one two . three", "One,@0-300c two!@300-600c Three@1600-2100c", 3},
             {u"ANN: [00:01] Good day (00:02) \u2013 Bob: sir", u"good day bob sir",
              "Good@0-400c day@400-700c Bob:@700-1000c sir@1000-1300c", 4},
             {u"we left at 26 today", u"we left at twenty six today",
              "we@0-200c left@200-600c at@600-800c 26@800-1700 today@1700-2200c", 4},
             {u"so he twen tysix went", u"so he twenty . six went", // by letters, over the silence
              "so@0-200c he@200-400c twen@400-800 tysix@800-2300 went@2300-2700c", 3},
             {u"a very long sentence that nobody heard end", u"a . . end",
              "a@0-100c very@100-358 long@358-616 sentence@616-1132 that@1132-1390 nobody@1390-1777 "
              "heard@1777-2100 end@2100-2400c",
              2},
             {u"first known", u". known last", "first@650-1000 known@1000-1500c", 1},
             {u"known beyond", u"known", "known@0-500c beyond@500-920", 1},
             {u"nothing in common", u"alpha beta", "", 0},
             {u"words", u"", "", 0},
             {u"", u"words", "", 0}}) {
        std::vector<drafts::HeardWord> heard;
        std::int32_t ms = 0;
        for (std::size_t at = 0; at < row.heard.size();) {
            const base::Text word(row.heard.substr(at, row.heard.find(u' ', at) - at));
            const std::int32_t end = ms + (word == u"." ? 1000 : 100 * static_cast<int>(word.size()));
            if (word != u".")
                heard.push_back({word, {ms, end, 90}});
            ms = end;
            at += word.size() + 1;
        }
        const drafts::TimedText timed = drafts::timeWords(row.text, heard);
        std::string times;
        for (const drafts::MomentOfText& word : timed.words)
            times += (times.empty() ? "" : " ") + base::toUtf8(row.text.substr(word.begin, word.length)) +
                     '@' + std::to_string(word.moment.start) + '-' + std::to_string(word.moment.end) +
                     (word.moment.confidence == 90 ? "c" : "");
        EXPECT_EQ(times, row.times);
        EXPECT_EQ(timed.found, row.found) << row.times;
    }
}
