#include "drafts/letters.h"
#include "drafts/read/forms.h"
#include "drafts/write/texts.h"

#include <algorithm>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace drafts {

namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void member(Writer& to, const char* name, TextView text) {
    const std::string bytes = base::toUtf8(text);
    to.Key(name);
    to.String(bytes.data(), static_cast<rapidjson::SizeType>(bytes.size()));
}

// Seconds with three places, exact to the millisecond.
void member(Writer& to, const char* name, Ms ms) {
    std::string digits = std::to_string(std::max(ms, 0));
    digits.insert(0, digits.size() < 4 ? 4 - digits.size() : 0, '0');
    digits.insert(digits.size() - 3, ".");
    to.Key(name);
    to.RawValue(digits.data(), digits.size(), rapidjson::kNumberType);
}

void times(Writer& to, const moments::Moment& first, const moments::Moment& last) {
    member(to, "start", first.start);
    if (last.end != moments::Moment::noEnd)
        member(to, "end", last.end);
}

void writeWord(Writer& to, TextView text, const moments::Moment* moment) {
    to.StartObject();
    member(to, "word", text);
    if (moment) {
        times(to, *moment, *moment);
        if (moment->confidence != moments::Moment::noConfidence) {
            to.Key("score");
            to.Double(moment->confidence / 100.0);
        }
    }
    to.EndObject();
}

// All letters are in words: those without a time stand between the others.
void writeWords(Writer& to, const Turn& turn) {
    std::size_t at = 0;
    const auto untimed = [&](std::size_t end) {
        const TextView gap = stripped(TextView(turn.text).substr(at, end - at));
        if (std::any_of(gap.begin(), gap.end(), isLetter))
            writeWord(to, gap, nullptr);
    };
    to.Key("words");
    to.StartArray();
    for (const MomentOfText& word : turn.words) {
        untimed(word.begin);
        writeWord(to, TextView(turn.text).substr(word.begin, word.length), &word.moment);
        at = word.begin + word.length;
    }
    untimed(turn.text.size());
    to.EndArray();
}

} // namespace

std::string json(const std::vector<Turn>& turns) {
    rapidjson::StringBuffer buffer;
    Writer to(buffer);
    to.StartObject();
    to.Key(exactMember.data());
    to.Bool(true);
    to.Key("segments");
    to.StartArray();
    for (const Turn& turn : turns) {
        to.StartObject();
        if (!turn.words.empty())
            times(to, turn.words.front().moment, turn.words.back().moment);
        if (!turn.speaker.empty())
            member(to, "speaker", turn.speaker);
        member(to, "text", turn.text);
        to.Key("paragraph");
        to.Bool(true);
        writeWords(to, turn);
        to.EndObject();
    }
    to.EndArray();
    to.EndObject();
    return std::string(buffer.GetString(), buffer.GetSize()) + '\n';
}

} // namespace drafts
