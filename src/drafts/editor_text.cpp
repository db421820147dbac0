#include "drafts/editor_text.h"

#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <algorithm>
#include <utility>

namespace drafts {

namespace {

constexpr TextView paragraphEnd = u"\r\n";

// The text as the editor counts it.
Text editorText(const rtf::Document& document) {
    Text out;
    out.reserve(document.text.size() + paragraphEnd.size() * document.paragraphs.size());
    std::size_t at = 0;
    for (const rtf::Paragraph& paragraph : document.paragraphs) {
        if (&paragraph != &document.paragraphs.front())
            out += paragraphEnd;
        for (const char16_t unit : TextView(document.text).substr(at, paragraph.length))
            out += unit == rtf::lineBreak ? u'\v' : unit;
        at += paragraph.length;
    }
    return out;
}

std::uint32_t placeInEditor(const TimedWord& word) {
    return word.word.begin + static_cast<std::uint32_t>(paragraphEnd.size()) * word.paragraph;
}

moments::Timed timed(const std::vector<TimedWord>& words, std::size_t length) {
    moments::Timed result;
    std::uint32_t at = 0;
    for (const TimedWord& word : words) {
        const std::uint32_t begin = placeInEditor(word);
        result.runs.push_back({begin - at, {}});
        result.runs.push_back({word.word.length, word.word.moment});
        at = begin + word.word.length;
    }
    result.runs.push_back({static_cast<std::uint32_t>(length) - at, {}});
    return result;
}

// Takes the runs of the whole text, and cuts them where paragraphs end.
std::vector<TimedWord> timedWords(const rtf::Document& document, const moments::Timed& timed) {
    std::vector<TimedWord> words;
    std::uint32_t paragraph = 0;
    std::uint32_t begin = 0; // of the paragraph, in the document
    std::uint32_t at = 0;    // in the editor
    for (const moments::Timed::Run& run : timed.runs) {
        const std::uint32_t end = at + run.length;
        while (at < end && paragraph < document.paragraphs.size()) {
            const std::uint32_t first = begin + 2 * paragraph;
            const std::uint32_t last = first + document.paragraphs[paragraph].length;
            if (at < last && run.moment) {
                const std::uint32_t length = std::min(end, last) - at;
                const bool goesOn = !words.empty() &&
                                    placeInEditor(words.back()) + words.back().word.length == at &&
                                    words.back().word.moment == *run.moment;
                if (goesOn)
                    words.back().word.length += length;
                else
                    words.push_back({paragraph, {at - 2 * paragraph, length, *run.moment}});
            }
            if (end < last + 2)
                break;
            at = last + 2;
            begin += document.paragraphs[paragraph].length;
            ++paragraph;
        }
        at = end;
    }
    return words;
}

} // namespace

std::string source(Transcript transcript, moments::Layer recording) {
    transcript.document.moments = fragment(transcript, std::move(recording)).beside;
    return rtf::write(transcript.document);
}

Fragment fragment(const Transcript& transcript, moments::Layer recording) {
    const Text text = editorText(transcript.document);
    recording.timed = timed(transcript.words, text.size());
    return {rtf::write(transcript.document),
            transcript.words.empty() ? std::string() : moments::pack(recording, text)};
}

Transcript transcript(std::string_view source) {
    Transcript result{rtf::read(source), {}, {}};
    if (const auto layer = moments::unpack(result.document.moments, editorText(result.document))) {
        result.words = timedWords(result.document, layer->timed);
        result.recording = layer->recording;
    }
    return result;
}

} // namespace drafts
