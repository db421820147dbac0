#pragma once

#include "aids/delivery_rules.h"
#include "aids/finding.h"
#include "aids/spelling_marks.h"
#include "aids/verdicts.h"
#include "controls/timer.h"
#include "editor/undo_redo.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace aids {

// Checks the text before it is delivered, in slices of the event loop, and waits for the dictionary where
// words are not known yet.
class DeliveryCheck {
public:
    DeliveryCheck(editor::UndoRedo& text, Verdicts& verdicts, const SpellingMarks& spelling,
                  platform::EventLoop& loop);

    // Begins, or begins again. `marks` as for DeliveryRules.
    void start(base::TextView marks);
    void stop();
    bool runs() const { return rules_.has_value(); }
    // How much of the text has been checked, 0 to 1.
    double share() const;
    // What was found by the last check that was completed, by kinds and in the order of the text.
    const std::vector<Finding>& findings() const { return findings_; }

    // The doubtful words between two positions.
    std::function<std::vector<platform::MarkedPart>(std::int32_t begin, std::int32_t end)> Doubtful =
        [](std::int32_t, std::int32_t) { return std::vector<platform::MarkedPart>(); };
    // The length of the open recording in ms; 0 where it is not known.
    std::function<std::int32_t()> RecordingMs = [] { return 0; };
    // The check has gone on, or has ended.
    std::function<void()> Progressed = [] {};

private:
    // A part of the text that ends with a paragraph, and its words.
    struct Slice {
        base::Text text;
        std::vector<CheckedWord> words;
    };

    void goOn();
    void read();
    // False while the dictionary has not answered.
    bool knowsWords();
    void lookAtParagraphs();
    void addDoubtful();
    void addMisspelled();
    void end();

    editor::UndoRedo& text_;
    Verdicts& verdicts_;
    const SpellingMarks& spelling_;
    controls::Timer timer_;
    std::optional<DeliveryRules> rules_; // while the check runs
    std::optional<Slice> slice_;
    std::int32_t position_ = 0; // where the slice begins
    Findings found_;
    std::map<base::Text, std::size_t> misspelled_; // their places in found_
    std::vector<Finding> findings_;
};

} // namespace aids
