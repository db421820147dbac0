#include "drafts/write/texts.h"

#include "drafts/letters.h"
#include "drafts/read/markup.h"
#include "drafts/time_text.h"

#include <algorithm>

namespace drafts {

namespace {

// A text within a cue or a name of WebVTT.
Text escaped(TextView text) {
    return base::replaced(base::replaced(base::replaced(text, u"&", u"&amp;"), u"<", u"&lt;"), u">", u"&gt;");
}

// SubRip has no way to write a bracket that begins no tag; players leave out what looks like one. Behind the
// invisible sign it does not.
Text withoutTags(TextView text) {
    Text out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        out += text[i];
        const char16_t next = i + 1 < text.size() ? text[i + 1] : u' ';
        if ((text[i] == u'<' && !isBlank(next)) || (text[i] == u'{' && next == u'\\'))
            out += noTag;
    }
    return out;
}

} // namespace

std::string subRip(const std::vector<Caption>& captions) {
    std::string out;
    std::size_t number = 0;
    for (const Caption& caption : captions) {
        out += std::to_string(++number) + "\r\n" + base::toUtf8(timeText(caption.startMs, u',')) + " --> " +
               base::toUtf8(timeText(caption.endMs, u',')) + "\r\n";
        for (const Text& line : caption.lines)
            out += base::toUtf8(withoutTags(line)) + "\r\n";
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
