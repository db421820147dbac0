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
        recording = false;
        if (done.size() >= 2) {
            const Record& last = done.back();
            const Record& before = done[done.size() - 2];
            if (before.Text.size() < last.Text.size()) {
                RTB.setSelStart(last.SelStart - length(last.Text) + length(before.Text));
                RTB.setSelLength(length(last.Text) - length(before.Text));
                RTB.setSelText(u"");
            } else {
                putIn(last.SelStart, before.Text.substr(static_cast<std::size_t>(last.SelStart),
                                                        before.Text.size() - last.Text.size()));
            }
            undone.push_back(last);
            done.pop_back();
        }
        recording = true;
    }
    void redo() {
        recording = false;
        if (!undone.empty()) {
            const Record& next = undone.back();
            const std::int32_t more = length(next.Text) - length(RTB.Text());
            if (more < 0) {
                RTB.setSelStart(next.SelStart);
                RTB.setSelLength(-more);
                RTB.setSelText(u"");
            } else if (next.SelStart >= more) {
                putIn(next.SelStart - more, next.Text.substr(static_cast<std::size_t>(next.SelStart - more),
                                                             static_cast<std::size_t>(more)));
            } else {
                putIn(next.SelStart, u""); // the difference would begin before the text
            }
            done.push_back(next);
            undone.pop_back();
        }
        recording = true;
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
    void putIn(std::int32_t at, const base::Text& text) {
        RTB.setSelStart(at);
        RTB.setSelText(text);
        RTB.setSelStart(at);
        if (text.size() < 2 || text == u"\r\n")
            RTB.setSelStart(RTB.SelStart() + length(text));
        else
            RTB.setSelLength(length(text));
    }

    bool recording = true;
};

} // namespace fakes
