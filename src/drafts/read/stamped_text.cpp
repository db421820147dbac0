#include "drafts/letters.h"
#include "drafts/names.h"
#include "drafts/read/forms.h"
#include "drafts/read/stamps.h"

#include <algorithm>
#include <cstddef>

namespace drafts {

namespace {

constexpr TextView openers = u"[({<#";

// A stamp at the end of a line, and where it begins.
struct LastStamp {
    std::optional<StampText> stamp;
    std::size_t at = 0;
};

LastStamp stampAtEnd(TextView line) {
    line = stripped(line);
    if (!line.empty() && line.back() == u':')
        line = stripped(line.substr(0, line.size() - 1));
    const std::size_t from = line.size() - std::min<std::size_t>(line.size(), 40);
    for (std::size_t at = line.size(); at-- > from;) {
        const bool bare = at > 0 && isBlank(line[at - 1]);
        if (!bare && openers.find(line[at]) == TextView::npos)
            continue;
        const auto stamp = stampAtHead(line.substr(at), bare);
        if (stamp && at + stamp->length == line.size())
            return {stamp, at};
    }
    return {};
}

// Some programs write the time at the end of what was said.
bool stampsEndLines(const std::vector<TextView>& all) {
    std::size_t first = 0;
    std::size_t last = 0;
    for (const TextView whole : all) {
        const TextView line = stripped(whole);
        const LastStamp end = stampAtEnd(line);
        const bool heading = end.stamp && isName(stripped(line.substr(0, end.at)));
        if (stampAtHead(line, true))
            ++first;
        else if (end.stamp && !heading && openers.find(line[end.at]) != TextView::npos)
            ++last;
    }
    return last > first;
}

class StampedTextReader {
public:
    StampedTextReader(Draft& draft, bool stampsEndLines) : pieces_(draft), ends_(stampsEndLines) {
        if (ends_)
            pieces_.endStamp(0);
    }

    void line(TextView line) {
        line = stripped(line);
        if (const auto head = stampAtHead(line, true); head && !ends_) {
            pieces_.stamp(*head);
            line = behindStamp(line.substr(head->length));
        } else if (const LastStamp end = stampAtEnd(line);
                   end.stamp && isName(stripped(line.substr(0, end.at)))) {
            // A line of its own with name and time.
            pieces_.stamp(*end.stamp);
            pieces_.speaker(stripped(line.substr(0, end.at)));
            return;
        }
        said(line);
        pieces_.endLine();
    }

private:
    // What follows a stamp, without the mark that some put between.
    static TextView behindStamp(TextView rest) {
        rest = stripped(rest);
        if (!rest.empty() && (rest[0] == u':' || rest[0] == u'-' || rest[0] == u'\u2013') &&
            (rest.size() == 1 || isBlank(rest[1])))
            rest.remove_prefix(1);
        return stripped(rest);
    }

    void said(TextView line) {
        bool begins = true;
        while (!line.empty()) {
            const auto open = line.find_first_of(openers);
            const TextView before = line.substr(0, open);
            const TextView rest = open == TextView::npos ? TextView() : line.substr(open);
            const auto stamp = stampAtHead(rest, false);
            if (stamp && begins && isName(stripped(before))) {
                pieces_.stamp(*stamp);
                pieces_.speaker(stripped(before));
                line = behindStamp(rest.substr(stamp->length));
            } else {
                pieces_.text(before);
                if (!stamp) {
                    pieces_.text(rest.substr(0, 1));
                    line = rest.substr(std::min<std::size_t>(1, rest.size()));
                } else {
                    if (ends_)
                        pieces_.endStamp(stamp->startMs);
                    else
                        pieces_.stamp(*stamp);
                    line = rest.substr(stamp->length);
                }
            }
            begins = false;
        }
    }

    StampedPieces pieces_;
    bool ends_;
};

} // namespace

Draft readStampedText(TextView text) {
    Draft draft;
    draft.form = Form::StampedText;
    const std::vector<TextView> all = lines(text);
    StampedTextReader reader(draft, stampsEndLines(all));
    for (const TextView line : all)
        reader.line(line);
    return draft;
}

} // namespace drafts
