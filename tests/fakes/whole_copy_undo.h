#pragma once

#include "editor/undo_redo.h"

#include <vector>

namespace fakes {

// Undo and redo as they are told, a whole copy of the text a record and nothing shared: what the program's
// own have to equal.
class WholeCopyUndo {
public:
    struct Record {
        std::int32_t SelStart;
        base::Text Text;
    };

    explicit WholeCopyUndo(platform::RichText& text) : RTB(text) {
        RTB.Change = [this] {
            if (recording)
                capture();
        };
        capture();
    }

    void undo() {
        if (done.size() < 2)
            return;
        const Record last = done.back();
        undone.push_back(last);
        done.pop_back();
        const base::Text& before = done.back().Text;
        const std::int32_t more = length(before) - length(last.Text);
        if (more < 0)
            write(last.SelStart + more, -more, u"");
        else
            putIn(last.SelStart, before, more);
    }
    void redo() {
        if (undone.empty())
            return;
        const Record next = undone.back();
        done.push_back(next);
        undone.pop_back();
        const std::int32_t more = length(next.Text) - RTB.textLength();
        if (more < 0)
            write(next.SelStart, -more, u"");
        else if (next.SelStart >= more)
            putIn(next.SelStart - more, next.Text, more);
        else
            putIn(next.SelStart, next.Text, 0); // the difference would begin before the text
    }

    platform::RichText& RTB;
    std::vector<Record> done;
    std::vector<Record> undone;

private:
    static std::int32_t length(const base::Text& text) { return static_cast<std::int32_t>(text.size()); }
    void capture() {
        undone.clear();
        done.push_back({RTB.SelStart(), RTB.Text()});
    }
    void write(std::int32_t at, std::int32_t removed, base::TextView text) {
        recording = false;
        RTB.setSelStart(at);
        RTB.setSelLength(removed);
        RTB.setSelText(text);
        recording = true;
    }
    // A stretch of the text, which is selected then, unless it is a letter or the end of a line.
    void putIn(std::int32_t at, const base::Text& whole, std::int32_t count) {
        const base::Text text = whole.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
        write(at, 0, text);
        RTB.setSelStart(at);
        if (text.size() < 2 || text == u"\r\n")
            RTB.setSelStart(RTB.SelStart() + length(text));
        else
            RTB.setSelLength(length(text));
    }

    bool recording = true;
};

} // namespace fakes
