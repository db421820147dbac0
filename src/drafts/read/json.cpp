#include "drafts/read/forms.h"
#include "drafts/read/json_items.h"

#include <algorithm>
#include <cmath>
#include <rapidjson/reader.h>
#include <string_view>
#include <utility>
#include <vector>

namespace drafts {

namespace {

constexpr int objectsBetweenReports = 10'000;

// What a member of an object says, under all the names that it has.
enum class Member : std::uint8_t {
    Other,
    Text,
    Start,
    End,
    Confidence,
    LogProbability,
    Speaker,
    Timestamp,
    Offsets,
    Words,
    Tokens,
    From,
    To,
    TurnNext,
    NewParagraph,
    Exact,
    Recording,
};

Member memberOf(std::string_view name) {
    static constexpr std::pair<std::string_view, Member> members[] = {
        {"word", Member::Text},
        {"start", Member::Start},
        {"end", Member::End},
        {"text", Member::Text},
        {"probability", Member::Confidence},
        {"score", Member::Confidence},
        {"confidence", Member::Confidence},
        {"conf", Member::Confidence},
        {"p", Member::Confidence},
        {"speaker", Member::Speaker},
        {"avg_logprob", Member::LogProbability},
        {"timestamp", Member::Timestamp},
        {"offsets", Member::Offsets},
        {"words", Member::Words},
        {"tokens", Member::Tokens},
        {"from", Member::From},
        {"to", Member::To},
        {"speaker_turn_next", Member::TurnNext},
        {"paragraph", Member::NewParagraph},
        {exactMember, Member::Exact},
        {"media", Member::Recording},
    };
    const auto* const row = std::find_if(std::begin(members), std::end(members),
                                         [&](const auto& pair) { return pair.first == name; });
    return row == std::end(members) ? Member::Other : row->second;
}

// The list that a member of the outermost object holds; listKinds for none.
std::size_t listOf(std::string_view name) {
    static constexpr std::pair<std::string_view, ListKind> lists[] = {
        {"segments", ListKind::Segments},
        {"words", ListKind::Words},
        {"result", ListKind::Words},
        {"chunks", ListKind::Chunks},
        {"speakers", ListKind::Speakers},
        {"transcription", ListKind::Transcription},
        {"word_segments", ListKind::WordSegments},
    };
    const auto* const row = std::find_if(std::begin(lists), std::end(lists),
                                         [&](const auto& pair) { return pair.first == name; });
    return row == std::end(lists) ? listKinds : static_cast<std::size_t>(row->second);
}

// Takes what the parser meets, one value after the other, and keeps what the lists hold.
class Handler {
public:
    Handler(Draft& draft, JsonLists& lists, std::function<bool()> goesOn)
        : draft_(draft), lists_(lists), goesOn_(std::move(goesOn)) {}

    bool hasFractions() const { return hasFractions_; }

    bool Null() {
        ++index_;
        return true;
    }
    bool Bool(bool value) {
        if (value && inside() == In::Root && member_ == Member::Exact)
            lists_.exact = true;
        if (value && inside() == In::Item && member_ == Member::NewParagraph)
            item_.newParagraph = true;
        if (value && inside() == In::Item && member_ == Member::TurnNext)
            turnNext_ = true;
        return true;
    }
    bool Int(int value) { return number(value); }
    bool Uint(unsigned value) { return number(value); }
    bool Int64(std::int64_t value) { return number(static_cast<double>(value)); }
    bool Uint64(std::uint64_t value) { return number(static_cast<double>(value)); }
    bool Double(double value) { return number(value); }
    bool RawNumber(const char*, rapidjson::SizeType, bool) { return true; }

    bool String(const char* bytes, rapidjson::SizeType length, bool) {
        const std::string_view value(bytes, length);
        if (inside() == In::Root && member_ == Member::Text)
            lists_.text = value;
        else if (inside() == In::Root && member_ == Member::Recording)
            draft_.recording = base::fromUtf8(value);
        else if (inside() == In::Item || inside() == In::Part)
            takeString(inside() == In::Item ? item_ : part_, value);
        return true;
    }

    bool Key(const char* bytes, rapidjson::SizeType length, bool) {
        if (inside() == In::Skipped)
            return true;
        const std::string_view name(bytes, length);
        member_ = memberOf(name);
        if (inside() == In::Root)
            namedList_ = listOf(name);
        return true;
    }

    bool StartObject() {
        if (places_.empty()) {
            places_.push_back(In::Root);
        } else if (inside() == In::List) {
            item_ = {};
            places_.push_back(In::Item);
        } else if (inside() == In::Parts) {
            part_ = {};
            item_.partsAreTokens = partsAreTokens_;
            places_.push_back(In::Part);
        } else {
            const bool times = isPart(inside()) && member_ == Member::Offsets;
            places_.push_back(times ? In::Offsets : In::Skipped);
        }
        return ++objects_ % objectsBetweenReports != 0 || goesOn_();
    }

    bool EndObject(rapidjson::SizeType) {
        const In ended = inside();
        places_.pop_back();
        // Marks of a recogniser's own, as "[_BEG_]".
        if (ended == In::Part && part_.text.substr(0, 2) != u"[_")
            item_.parts.push_back(std::move(part_));
        if (ended == In::Item) {
            item_.newParagraph = item_.newParagraph || paragraphFollows_;
            paragraphFollows_ = std::exchange(turnNext_, false);
            lists_.lists[list_].push_back(std::move(item_));
        }
        return true;
    }

    bool StartArray() {
        if (places_.empty()) {
            list_ = static_cast<std::size_t>(ListKind::Segments);
            places_.push_back(In::List);
        } else if (inside() == In::Root && namedList_ < listKinds) {
            list_ = namedList_;
            places_.push_back(In::List);
        } else if (inside() == In::Item && (member_ == Member::Words || member_ == Member::Tokens)) {
            partsAreTokens_ = member_ == Member::Tokens;
            places_.push_back(In::Parts);
        } else if (isPart(inside()) && member_ == Member::Timestamp) {
            index_ = 0;
            places_.push_back(In::Pair);
        } else {
            places_.push_back(In::Skipped);
        }
        return true;
    }

    bool EndArray(rapidjson::SizeType) {
        places_.pop_back();
        return true;
    }

private:
    enum class In : std::uint8_t { Root, List, Item, Parts, Part, Pair, Offsets, Skipped };

    static bool isPart(In place) { return place == In::Item || place == In::Part; }
    In inside() const { return places_.empty() ? In::Skipped : places_.back(); }

    // The word or the segment whose values come now.
    JsonPart& current() {
        const bool ofPart = std::find(places_.begin(), places_.end(), In::Part) != places_.end();
        return ofPart ? part_ : item_;
    }

    bool number(double value) {
        if (inside() == In::Pair) {
            (index_ == 0 ? current().startMs : current().endMs) = value * 1000;
            noteFraction(value);
            ++index_;
        } else if (inside() == In::Offsets && (member_ == Member::From || member_ == Member::To)) {
            (member_ == Member::From ? current().startMs : current().endMs) = value;
            hasFractions_ = true;
        } else if (isPart(inside())) {
            takeNumber(inside() == In::Item ? item_ : part_, value);
        }
        return true;
    }

    void noteFraction(double seconds) { hasFractions_ = hasFractions_ || seconds != std::floor(seconds); }

    void takeNumber(JsonPart& part, double value) {
        const bool finite = std::isfinite(value);
        if (member_ == Member::Start || member_ == Member::End)
            noteFraction(value);
        if (member_ == Member::Start)
            part.startMs = finite ? value * 1000 : noTime;
        else if (member_ == Member::End)
            part.endMs = finite ? value * 1000 : noTime;
        else if (member_ == Member::Confidence && finite)
            part.confidence = static_cast<float>(std::clamp(value, 0.0, 1.0));
        else if (member_ == Member::LogProbability && finite && part.confidence == noConfidence)
            part.confidence = static_cast<float>(std::exp(std::min(value, 0.0)));
        else if (member_ == Member::Speaker && finite)
            part.speaker = draft_.speaker(base::fromUtf8("Speaker " + std::to_string(std::llround(value))));
    }

    void takeString(JsonPart& part, std::string_view value) {
        if (member_ == Member::Text)
            part.text = base::fromUtf8(value);
        else if (member_ == Member::Speaker)
            part.speaker = draft_.speaker(base::fromUtf8(value));
    }

    Draft& draft_;
    JsonLists& lists_;
    std::function<bool()> goesOn_;
    std::vector<In> places_;
    Member member_ = Member::Other;
    std::size_t namedList_ = listKinds; // the list that the member of the outermost object names
    std::size_t list_ = 0;
    JsonItem item_;
    JsonPart part_;
    int index_ = 0;
    int objects_ = 0;
    bool partsAreTokens_ = false;
    bool turnNext_ = false;
    bool paragraphFollows_ = false;
    bool hasFractions_ = false;
};

// Some recognisers count in whole milliseconds. No word takes 20 seconds.
void scaleMilliseconds(JsonLists& lists) {
    double total = 0;
    std::size_t words = 0;
    const auto each = [&](const auto& work) {
        for (std::vector<JsonItem>& list : lists.lists) {
            for (JsonItem& item : list) {
                work(static_cast<JsonPart&>(item));
                std::for_each(item.parts.begin(), item.parts.end(), work);
            }
        }
    };
    each([&](const JsonPart& part) {
        total += std::max(0.0, part.endMs - part.startMs);
        words += 1 + static_cast<std::size_t>(std::count(part.text.begin(), part.text.end(), u' '));
    });
    if (words == 0 || total / static_cast<double>(words) < 20'000)
        return;
    each([](JsonPart& part) {
        part.startMs = part.startMs < 0 ? part.startMs : part.startMs / 1000;
        part.endMs = part.endMs < 0 ? part.endMs : part.endMs / 1000;
    });
}

// The line of a place in the file, counted from 1.
std::size_t lineAt(const std::string& bytes, std::size_t at) {
    return 1 +
           static_cast<std::size_t>(std::count(
               bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(at, bytes.size())), '\n'));
}

} // namespace

Draft readJson(const std::string& json, const Progress& progress) {
    Draft draft;
    JsonLists lists;
    rapidjson::StringStream stream(json.c_str());
    const auto size = static_cast<double>(std::max<std::size_t>(json.size(), 1));
    Handler handler(draft, lists,
                    [&] { return !progress || progress(static_cast<double>(stream.Tell()) / size); });
    rapidjson::Reader reader;
    // Without recursion, for a file may nest as deep as it likes; Python writes NaN, which is no JSON.
    constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseNanAndInfFlag;
    const rapidjson::ParseResult result = reader.Parse<flags>(stream, handler);
    if (result.Code() == rapidjson::kParseErrorTermination)
        throw Cancelled();
    if (result.IsError())
        throw Damage(Fault::NotJson, lineAt(json, result.Offset()));
    const bool noLists = std::all_of(lists.lists.begin(), lists.lists.end(),
                                     [](const std::vector<JsonItem>& list) { return list.empty(); });
    if (noLists && lists.text.find("timestamp") != std::string::npos) {
        Draft stamped = readStampedHtml(base::fromUtf8(lists.text));
        stamped.recording = draft.recording;
        return stamped;
    }
    if (noLists)
        throw Damage(Fault::UnknownJson, 1);
    if (!handler.hasFractions() && !lists.exact)
        scaleMilliseconds(lists);
    addItems(lists, draft);
    return draft;
}

} // namespace drafts
