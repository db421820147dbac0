#include "safety/work.h"

#include "rtf/assembly.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>

namespace safety {

namespace {

// The text that a journal describes, as a list of paragraphs. Each source is parsed once; the text is
// assembled once, at the end.
class Paragraphs {
public:
    void setSource(std::string_view source) {
        documents_.clear();
        documents_.push_back(rtf::read(source));
        places_.clear();
        append(documents_.back(), places_);
    }

    // Returns false if the paragraphs to replace do not exist.
    bool replace(const platform::ParagraphChange& change) {
        if (documents_.empty() || change.first > places_.size() ||
            change.removed > places_.size() - change.first)
            return false;
        std::vector<Place> inserted;
        if (!change.source.empty()) {
            documents_.push_back(rtf::read(change.source));
            append(documents_.back(), inserted);
        }
        const auto at = places_.begin() + change.first;
        const std::size_t kept = std::min<std::size_t>(change.removed, inserted.size());
        std::copy_n(inserted.begin(), kept, at);
        if (inserted.size() > kept)
            places_.insert(at + static_cast<std::ptrdiff_t>(kept),
                           inserted.begin() + static_cast<std::ptrdiff_t>(kept), inserted.end());
        else
            places_.erase(at + static_cast<std::ptrdiff_t>(kept), at + change.removed);
        return true;
    }

    // The whole text as RTF; empty if the journal has none.
    std::string source() const {
        if (documents_.empty())
            return {};
        rtf::Document frame = documents_.front();
        // The tables of kept RTF ranges only grow, so the newest source contains all entries.
        const auto newest =
            std::find_if(documents_.rbegin(), documents_.rend(),
                         [](const rtf::Document& document) { return !document.kept.empty(); });
        if (newest != documents_.rend())
            frame.keptTables = newest->keptTables;
        rtf::Assembly assembly(frame);
        const rtf::Document* taken = nullptr;
        for (const Place& place : places_) {
            if (place.document != taken)
                assembly.take(*place.document);
            taken = place.document;
            assembly.append(place.paragraph);
        }
        return rtf::write(assembly.finish());
    }

private:
    struct Place {
        const rtf::Document* document = nullptr;
        std::size_t paragraph = 0;
    };

    static void append(const rtf::Document& document, std::vector<Place>& places) {
        for (std::size_t index = 0; index < document.paragraphs.size(); ++index)
            places.push_back({&document, index});
    }

    std::deque<rtf::Document> documents_; // a deque, because places_ points into it
    std::vector<Place> places_;
};

} // namespace

std::string packed(const DocumentState& state) {
    return Packer()
        .text(state.path)
        .text(state.title)
        .number(static_cast<std::uint32_t>(state.caret))
        .number(state.unsaved ? 1 : 0)
        .number(state.fileCheck)
        .take();
}

std::string packed(const Marks& marks) {
    Packer packer;
    packer.text(marks.recording).number(static_cast<std::uint32_t>(marks.lines.size()));
    for (const base::Text& line : marks.lines)
        packer.text(line);
    return packer.take();
}

std::string packed(const platform::ParagraphChange& change) {
    return Packer().number(change.first).number(change.removed).bytes(change.source).take();
}

Work replay(const std::vector<Record>& records) {
    Work work;
    Paragraphs text;
    for (const Record& record : records) {
        Unpacker from(record.payload);
        switch (record.type) {
        case RecordType::Source:
            text.setSource(record.payload);
            work.whole = true;
            break;
        case RecordType::Change: {
            platform::ParagraphChange change{from.number(), from.number(), {}, false};
            change.source = from.bytes();
            if (work.whole)
                work.whole = text.replace(change);
            break;
        }
        case RecordType::State: {
            DocumentState& state = work.document;
            state.path = from.text();
            state.title = from.text();
            state.caret = static_cast<std::int32_t>(from.number());
            state.unsaved = from.number() != 0;
            state.fileCheck = from.number();
            break;
        }
        case RecordType::Marks: {
            work.marks = {from.text(), {}};
            for (std::uint32_t left = from.number(); left > 0 && work.marks.lines.size() < 501; --left)
                work.marks.lines.push_back(from.text());
            break;
        }
        }
    }
    work.source = text.source();
    return work;
}

} // namespace safety
