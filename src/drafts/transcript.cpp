#include "drafts/transcript.h"

#include "drafts/letters.h"
#include "drafts/names.h"
#include "drafts/read/stamps.h"
#include "rtf/builder.h"

#include <algorithm>
#include <utility>

namespace drafts {

namespace {

// The text of a paragraph as it is read, and where its units stood.
class ReadText {
public:
    explicit ReadText(std::uint32_t length) : places_(length + 1, 0) {}

    Text text;

    // Takes the units from `at` on; `shown` is false for what is left out.
    void add(TextView units, std::uint32_t at, bool shown) {
        for (std::uint32_t i = 0; i < units.size();) {
            places_[at + i] = static_cast<std::uint32_t>(text.size());
            const auto stamp = shown ? stampAtHead(units.substr(i), false) : std::nullopt;
            if (stamp) {
                const auto length = static_cast<std::uint32_t>(stamp->length);
                std::fill_n(places_.begin() + at + i, length, static_cast<std::uint32_t>(text.size()));
                i += length;
                while (i < units.size() && units[i] == u' ' && (text.empty() || isBlank(text.back())))
                    places_[at + i++] = static_cast<std::uint32_t>(text.size());
                continue;
            }
            const bool letter = shown && units[i] != rtf::anchorUnit && units[i] != rtf::pageBreak;
            if (letter)
                text += units[i] == rtf::lineBreak ? u' ' : units[i];
            ++i;
        }
        places_[at + units.size()] = static_cast<std::uint32_t>(text.size());
    }

    // Where a unit of the paragraph stands in `text`, or what follows when it was left out.
    std::uint32_t placeOf(std::uint32_t at) const {
        return places_[std::min<std::size_t>(at, places_.size() - 1)];
    }

private:
    std::vector<std::uint32_t> places_;
};

NamedText nameOf(TextView text, const rtf::Document& document, std::size_t firstRun) {
    const rtf::Run& first = document.runs[firstRun];
    const bool isBold = document.formats[first.format].bold && first.kept == rtf::none;
    return nameAtHead(text, isBold ? first.length : 0);
}

// Styles may reach behind the text, where blanks were.
void addStyled(rtf::DocumentBuilder& builder, const Turn& turn, const rtf::CharFormat& plain) {
    const TextView text = turn.text;
    std::size_t at = 0;
    for (const StyledPart& part : turn.styles) {
        const std::size_t begin = std::min<std::size_t>(part.begin, text.size());
        rtf::CharFormat styled = plain;
        styled.bold = part.bold;
        styled.italic = part.italic;
        styled.underline = part.underline;
        builder.useFormat(plain);
        builder.addText(text.substr(at, begin - at));
        builder.useFormat(styled);
        builder.addText(text.substr(begin, part.length));
        at = std::min(begin + part.length, text.size());
    }
    builder.useFormat(plain);
    builder.addText(text.substr(at));
}

} // namespace

Transcript transcript(const std::vector<Turn>& turns, const DraftLook& look) {
    Transcript result;
    rtf::DocumentBuilder builder;
    rtf::CharFormat plain;
    plain.font = builder.font({look.font, 0});
    plain.size = look.halfPoints;
    rtf::CharFormat bold = plain;
    bold.bold = true;
    Text speaker;
    std::uint32_t paragraph = 0;
    for (const Turn& turn : turns) {
        if (!turn.speaker.empty() && turn.speaker != speaker) {
            builder.useFormat(bold);
            builder.addText(turn.speaker + u":");
            builder.useFormat(plain);
            builder.addText(u" ");
        }
        speaker = turn.speaker.empty() ? speaker : turn.speaker;
        const auto begin = static_cast<std::uint32_t>(builder.document().text.size());
        addStyled(builder, turn, plain);
        builder.endParagraph({});
        for (MomentOfText word : turn.words) {
            word.begin += begin;
            result.words.push_back({paragraph, word});
        }
        ++paragraph;
    }
    if (turns.empty()) {
        builder.useFormat(plain);
        builder.endParagraph({});
    }
    result.document = builder.finish(false);
    return result;
}

std::vector<Turn> turns(const Transcript& transcript) {
    const rtf::Document& document = transcript.document;
    std::vector<Turn> result;
    std::size_t run = 0;
    std::uint32_t begin = 0;
    Text speaker;
    auto word = transcript.words.begin();
    for (const rtf::Paragraph& paragraph : document.paragraphs) {
        ReadText read(paragraph.length);
        std::uint32_t at = 0;
        const std::size_t firstRun = run;
        for (std::uint32_t i = 0; i < paragraph.runs; ++i, ++run) {
            const rtf::Run& part = document.runs[run];
            const bool shown = part.kept == rtf::none && !document.formats[part.format].hidden;
            read.add(TextView(document.text).substr(begin + at, part.length), at, shown);
            at += part.length;
        }
        const NamedText named = nameOf(read.text, document, firstRun);
        speaker = named.name.empty() ? speaker : Text(named.name);
        const auto cut = static_cast<std::uint32_t>(named.behind);
        Turn turn{speaker, read.text.substr(cut), {}};
        const std::uint32_t end = begin + paragraph.length;
        for (; word != transcript.words.end() && word->word.begin < end; ++word) {
            if (word->word.begin < begin)
                continue;
            MomentOfText moved = word->word;
            moved.begin = read.placeOf(word->word.begin - begin);
            moved.length = read.placeOf(word->word.begin - begin + word->word.length) - moved.begin;
            if (moved.begin < cut || moved.length == 0)
                continue;
            moved.begin -= cut;
            turn.words.push_back(moved);
        }
        if (!stripped(turn.text).empty())
            result.push_back(std::move(turn));
        begin = end;
    }
    return result;
}

} // namespace drafts
