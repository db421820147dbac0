#include "drafts/write/texts.h"

#include "drafts/letters.h"
#include "drafts/time_text.h"

#include <algorithm>

namespace drafts {

namespace {

// A text within a cue or a name of WebVTT.
Text escaped(TextView text) {
    return base::replaced(base::replaced(base::replaced(text, u"&", u"&amp;"), u"<", u"&lt;"), u">", u"&gt;");
}

} // namespace

std::string subRip(const std::vector<Caption>& captions) {
    std::string out;
    std::size_t number = 0;
    for (const Caption& caption : captions) {
        out += std::to_string(++number) + "\r\n" + base::toUtf8(timeText(caption.startMs, u',')) + " --> " +
               base::toUtf8(timeText(caption.endMs, u',')) + "\r\n";
        for (const Text& line : caption.lines)
            out += base::toUtf8(line) + "\r\n";
        out += "\r\n";
    }
    return out;
}

std::string webVtt(const std::vector<Caption>& captions) {
    std::string out = "WEBVTT\n";
    for (const Caption& caption : captions) {
        out += '\n' + base::toUtf8(timeText(caption.startMs, u'.')) + " --> " +
               base::toUtf8(timeText(caption.endMs, u'.')) + '\n';
        if (!caption.speaker.empty())
            out += "<v " + base::toUtf8(escaped(caption.speaker)) + '>';
        for (const Text& line : caption.lines)
            out += base::toUtf8(escaped(line)) + '\n';
    }
    return out;
}

std::string plainText(const std::vector<Turn>& turns, const PlainTextOptions& options) {
    Text out;
    Text speaker;
    for (const Turn& turn : turns) {
        if (options.stamps && !turn.words.empty())
            out += u'[' + timeText(turn.words.front().moment.start, u'\0') + u"] ";
        if (options.speakers && !turn.speaker.empty() && turn.speaker != speaker)
            out += turn.speaker + u": ";
        speaker = turn.speaker;
        out += turn.text + u'\n';
    }
    return base::toUtf8(out);
}

} // namespace drafts
