#include "drafts/draft.h"

#include <algorithm>

#include <string>

namespace drafts {

const char* description(Fault fault) {
    switch (fault) {
    case Fault::UnknownForm:
        return "this is neither a subtitle file, nor a recogniser's JSON, nor a text with time stamps";
    case Fault::NotJson:
        return "the JSON is damaged or ends early";
    case Fault::UnknownJson:
        return "the JSON has no segments, words, chunks or transcription";
    case Fault::NoTimes:
        return "nothing in this file has a time";
    case Fault::UnreadableTime:
        return "the time cannot be read";
    case Fault::OtherTimeFormat:
        return "the time is not written as this form has it";
    case Fault::EndBeforeStart:
        return "the end lies before the start";
    case Fault::NoText:
        return "a time without text was left out";
    case Fault::TextOutside:
        return "text without a time was left out";
    case Fault::BadLetters:
        return "some bytes are no letters";
    }
    return "";
}

std::vector<StyledPart> stylesOf(const std::vector<StyledPart>& styles, std::size_t begin, std::size_t end,
                                 std::size_t place) {
    std::vector<StyledPart> parts;
    for (StyledPart part : styles) {
        const std::size_t from = std::max<std::size_t>(part.begin, begin);
        const std::size_t to = std::min<std::size_t>(part.begin + part.length, end);
        if (from >= to)
            continue;
        part.begin = static_cast<std::uint32_t>(from - begin + place);
        part.length = static_cast<std::uint32_t>(to - from);
        parts.push_back(part);
    }
    return parts;
}

std::int32_t Draft::speaker(TextView name) {
    if (name.empty())
        return noSpeaker;
    const auto known = speakerIndex_.find(name);
    if (known != speakerIndex_.end())
        return known->second;
    speakers.emplace_back(name);
    return speakerIndex_.emplace(name, static_cast<std::int32_t>(speakers.size() - 1)).first->second;
}

void Draft::note(Fault fault, std::size_t line) {
    for (Remark& remark : remarks) {
        if (remark.fault == fault) {
            ++remark.count;
            return;
        }
    }
    remarks.push_back({fault, line});
}

Damage::Damage(Fault fault, std::size_t line)
    : Failure("line " + std::to_string(line) + ": " + description(fault)), remark_{fault, line} {}

} // namespace drafts
