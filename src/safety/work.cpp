#include "safety/work.h"

#include "moments/layer.h"
#include "rtf/assembly.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>
#include <unordered_map>

namespace safety {

namespace {

// The moments of a document's words, paragraph by paragraph, with the ends of the paragraphs.
class ParagraphMoments {
public:
    static constexpr base::TextView lineBreak = u"\r\n";

    // Adds the recording to `all`, if the document names one.
    ParagraphMoments(const rtf::Document& document, moments::Layer& all) {
        if (document.moments.empty())
            return;
        auto layer = moments::unpack(document.moments, textOf(document));
        if (!layer)
            return;
        all.recording = layer->recording;
        all.length = layer->length;
        std::size_t run = 0;
        for (const rtf::Paragraph& paragraph : document.paragraphs)
            paragraphs_.push_back(cut(layer->timed.runs, run, paragraph.length + lineBreak.size()));
    }

    void append(std::size_t paragraph, std::size_t units, moments::Timed& to) const {
        if (paragraph < paragraphs_.size())
            to.runs.insert(to.runs.end(), paragraphs_[paragraph].begin(), paragraphs_[paragraph].end());
        else
            to.runs.push_back({static_cast<std::uint32_t>(units), {}});
    }

    static base::Text textOf(const rtf::Document& document) {
        base::Text text;
        std::size_t unit = 0;
        for (const rtf::Paragraph& paragraph : document.paragraphs) {
            text.append(document.text, unit, paragraph.length) += lineBreak;
            unit += paragraph.length;
        }
        return text;
    }

private:
    using Runs = std::vector<moments::Timed::Run>;

    // The runs of the next `units` units; `next` is the first of those that are left.
    static Runs cut(Runs& runs, std::size_t& next, std::size_t units) {
        Runs part;
        for (auto left = static_cast<std::uint32_t>(units); left > 0 && next < runs.size();) {
            const std::uint32_t taken = std::min(left, runs[next].length);
            if (taken > 0)
                part.push_back({taken, runs[next].moment});
            runs[next].length -= taken;
            left -= taken;
            next += runs[next].length == 0 ? 1 : 0;
        }
        return part;
    }

    std::vector<Runs> paragraphs_;
};

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
        moments::Layer layer;
        std::unordered_map<const rtf::Document*, ParagraphMoments> known;
        for (const Place& place : places_) {
            if (place.document != taken)
                assembly.take(*place.document);
            taken = place.document;
            assembly.append(place.paragraph);
            const std::size_t units = place.document->paragraphs[place.paragraph].length;
            known.try_emplace(place.document, *place.document, layer)
                .first->second.append(place.paragraph, units + ParagraphMoments::lineBreak.size(),
                                      layer.timed);
        }
        rtf::Document whole = assembly.finish();
        addMoments(whole, layer);
        return rtf::write(whole);
    }

private:
    struct Place {
        const rtf::Document* document = nullptr;
        std::size_t paragraph = 0;
    };

    static void addMoments(rtf::Document& whole, const moments::Layer& layer) {
        const bool any = std::any_of(layer.timed.runs.begin(), layer.timed.runs.end(),
                                     [](const auto& run) { return run.moment.has_value(); });
        if (!any)
            return;
        whole.moments = moments::pack(layer, ParagraphMoments::textOf(whole));
    }

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
