#include "drafts/fault_sentence.h"

#include "base/numbers.h"

namespace drafts {

using lang::operator""_en;

lang::English sentenceOf(Fault fault) {
    switch (fault) {
    case Fault::NotJson:
        return u"Line %1: the JSON is damaged or ends early."_en;
    case Fault::UnknownJson:
        return u"This JSON has no segments, words, chunks or transcription."_en;
    case Fault::NoTimes:
        return u"Nothing in this file has a time."_en;
    case Fault::UnreadableTime:
        return u"Line %1: the time cannot be read."_en;
    case Fault::OtherTimeFormat:
        return u"Line %1: the time is written in an unusual way."_en;
    case Fault::EndBeforeStart:
        return u"Line %1: the end lies before the start."_en;
    case Fault::NoText:
        return u"Line %1: a time without text was left out."_en;
    case Fault::TextOutside:
        return u"Line %1: text without a time was left out."_en;
    case Fault::BadLetters:
        return u"Some letters of this file are damaged."_en;
    case Fault::UnknownForm:
        break;
    }
    return u"This is no subtitle file, no JSON of a recogniser and no text with time stamps."_en;
}

Text faultText(const lang::Words& words, const Remark& remark) {
    return words(sentenceOf(remark.fault), {base::countText(remark.line)});
}

} // namespace drafts
