// Reads and exports 100,000 words, ten hours of speech. Prints the best of five runs of each, beside the time
// that the JSON library takes for the same bytes when nothing is done with what it finds.
#include "drafts/read/reader.h"
#include "drafts/transcript.h"
#include "drafts/write/texts.h"
#include "rtf/write/writer.h"
#include "table.h"

#include <algorithm>
#include <cstdio>
#include <rapidjson/reader.h>
#include <string>
#include <vector>

namespace {

constexpr int words = 100'000;
constexpr int wordsInSegment = 10;

// As a recogniser writes it, indented and with all that nobody reads: some 20 MB.
std::string recogniserJson() {
    std::string json = "{\n  \"text\": \"\",\n  \"segments\": [\n";
    for (int segment = 0; segment < words / wordsInSegment; ++segment) {
        std::string text;
        std::string list;
        for (int word = 0; word < wordsInSegment; ++word) {
            const double start = (segment * wordsInSegment + word) * 0.36;
            const std::string spelled =
                " word" + std::to_string(word) + (word == wordsInSegment - 1 ? "." : "");
            text += spelled;
            list += (word > 0 ? std::string(",\n") : std::string()) + "        {\n          \"word\": \"" +
                    spelled + "\",\n          \"start\": " + std::to_string(start) +
                    ",\n          \"end\": " + std::to_string(start + 0.3) +
                    ",\n          \"probability\": 0.9123456789012345\n        }";
        }
        json += (segment > 0 ? ",\n" : "") + ("    {\n      \"id\": " + std::to_string(segment)) +
                ",\n      \"start\": " + std::to_string(segment * 3.6) +
                ",\n      \"end\": " + std::to_string(segment * 3.6 + 3.5) + ",\n      \"text\": \"" + text +
                "\",\n      \"tokens\": [\n";
        for (int token = 0; token < 2 * wordsInSegment; ++token)
            json +=
                "        " + std::to_string(50364 + token) + (token < 2 * wordsInSegment - 1 ? ",\n" : "\n");
        json += "      ],\n      \"temperature\": 0.0,\n      \"avg_logprob\": -0.2,\n      \"words\": [\n" +
                list + "\n      ]\n    }";
    }
    return json + "\n  ],\n  \"language\": \"en\"\n}\n";
}

double parsedAlone(const std::string& json) {
    return bench::bestOfFive([&] {
        rapidjson::StringStream stream(json.c_str());
        rapidjson::BaseReaderHandler<> handler;
        rapidjson::Reader().Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseNanAndInfFlag>(stream,
                                                                                                   handler);
    });
}

void show(const std::string& what, double ms, double goal, const std::string& bare = "",
          const std::string& compared = "") {
    bench::print({what, bench::measure("%.1f ms", ms), bare, compared,
                  goal > 0 ? bench::measure("<= %.0f ms", goal) : "", goal <= 0 || ms <= goal});
}

} // namespace

int main() {
    const std::string json = recogniserJson();
    const base::CodePage page;
    std::vector<drafts::Turn> turns;
    const double bare = parsedAlone(json);
    const double read = bench::bestOfFive([&] { turns = drafts::turns(drafts::read(json, page), {}); });
    const std::string size = bench::measure("%.1f MB", static_cast<double>(json.size()) / 1e6);
    show("JSON of a recogniser read, " + size, read, 1000, bench::measure("%.1f ms", bare),
         bench::measure("x %.2f", read / bare));

    drafts::Transcript transcript;
    show("made into a document", bench::bestOfFive([&] { transcript = drafts::transcript(turns, {}); }), 0);
    show("read from a document", bench::bestOfFive([&] { turns = drafts::turns(transcript); }), 0);
    drafts::Captions captions;
    show("cut into subtitles", bench::bestOfFive([&] { captions = drafts::captions(turns, {}); }), 1000);
    const std::pair<const char*, std::string> exported[] = {
        {"SubRip", drafts::subRip(captions.captions)},
        {"WebVTT", drafts::webVtt(captions.captions)},
        {"JSON", drafts::json(turns)},
        {"plain text with stamps", drafts::plainText(turns, {.stamps = true, .speakers = true})}};
    show("SubRip written", bench::bestOfFive([&] { drafts::subRip(captions.captions); }), 1000);
    show("WebVTT written", bench::bestOfFive([&] { drafts::webVtt(captions.captions); }), 1000);
    show("JSON written", bench::bestOfFive([&] { drafts::json(turns); }), 1000);
    for (const auto& [form, bytes] : exported)
        show(std::string(form) + " read again",
             bench::bestOfFive([&] { drafts::turns(drafts::read(bytes, page), {}); }), 1000);
}
