#include "drafts/export.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"
#include "drafts/editor_text.h"
#include "drafts/write/captions.h"
#include "drafts/write/losses.h"
#include "drafts/write/texts.h"
#include "platform/file_filter.h"

#include <algorithm>
#include <utility>

namespace drafts {

using lang::operator""_en;

namespace {

bool hasConfidence(const TimedWord& word) {
    return word.word.moment.confidence != moments::Moment::noConfidence;
}

} // namespace

struct Export::Row {
    Kind kind;
    TextView extension;
    lang::English name;
};

const std::vector<Export::Row>& Export::rows() {
    static const std::vector<Row> all = {
        {Kind::SubRip, u"srt", u"SubRip subtitles"_en},
        {Kind::WebVtt, u"vtt", u"WebVTT subtitles"_en},
        {Kind::PlainText, u"txt", u"Plain text"_en},
        {Kind::Docx, u"docx", u"Word document"_en},
        {Kind::OpenDocument, u"odt", u"OpenDocument text"_en},
        {Kind::Html, u"html", u"Web page"_en},
        {Kind::Markdown, u"md", u"Markdown text"_en},
        {Kind::Json, u"json", u"Words with their times (JSON)"_en},
    };
    return all;
}

Export::Export(platform::RichText& text, platform::Dialogs& dialogs, const lang::Words& words,
               Options& options)
    : text_(text), dialogs_(dialogs), words_(words), options_(options),
      mnuExport_("mnuExport", u"E&xport..."_en), mnuPlainText_("mnuPlainText", u"&Plain text is exported"_en),
      mnuStamps_("mnuExportStamps", u"With &time stamps"_en),
      mnuSpeakers_("mnuExportSpeakers", u"With &speakers"_en) {
    mnuPlainText_.items = {&mnuStamps_, &mnuSpeakers_};
    mnuExport_.Click = [this] { run(); };
    mnuStamps_.Click = [this] { toggle(options_.exportStamps); };
    mnuSpeakers_.Click = [this] { toggle(options_.exportSpeakers); };
}

void Export::start() {
    mnuStamps_.checked = options_.exportStamps;
    mnuSpeakers_.checked = options_.exportSpeakers;
}

void Export::toggle(bool& option) {
    option = !option;
    start();
    OptionsChanged();
}

void Export::run() {
    const Text path = ask();
    if (path.empty())
        return;
    const Text ending = base::lowered(base::afterLast(path, u'.'));
    const auto row =
        std::find_if(rows().begin(), rows().end(), [&](const Row& each) { return each.extension == ending; });
    if (row == rows().end()) {
        dialogs_.messageBox(words_(u"No form of export has names that end in .%1"_en, {ending}), {},
                            platform::BoxStyle::Exclamation);
        return;
    }
    extension_ = ending;
    if (base::fileExists(path) && !mayReplace(path))
        return;
    base::carryOn([&] { write(path, row->kind); },
                  [&](const char* reason) {
                      dialogs_.messageBox(
                          words_(u"The transcript could not be exported: %1"_en, {base::fromUtf8(reason)}),
                          {}, platform::BoxStyle::Exclamation);
                  });
}

Text Export::ask() const {
    const Text document = DocumentPath();
    Text name(base::afterLast(document, base::pathSeparator));
    if (const auto dot = name.rfind(u'.'); dot != Text::npos && dot > 0)
        name.resize(dot);
    platform::FileDialogRequest request;
    request.owner = "Form2";
    request.title = words_(u"Export the transcript"_en);
    request.fileName = (name.empty() ? words_(u"Transcript"_en) : name) + u'.' + extension_;
    request.defaultExtension = extension_;
    request.extensionOfFilter = true;
    // The form that was chosen last is the first one offered.
    std::vector<Row> offered = rows();
    std::stable_partition(offered.begin(), offered.end(),
                          [this](const Row& row) { return row.extension == extension_; });
    std::vector<std::pair<Text, Text>> kinds;
    for (const Row& row : offered)
        kinds.emplace_back(words_(row.name), u"*." + Text(row.extension));
    request.filter = platform::fileFilter(kinds);
    return dialogs_.FileDlg(request);
}

bool Export::mayReplace(const Text& path) const {
    const Text name(base::afterLast(path, base::pathSeparator));
    return dialogs_.messageBox(words_(u"%1 exists already. Replace it?"_en, {name}), {},
                               platform::BoxStyle::YesNoExclamation) == platform::Answer::Yes;
}

void Export::write(const Text& path, Kind kind) {
    std::vector<Text> missing;
    const Exported exported = bytesOf(text_.source(), kind, missing);
    base::replaceFile(path, exported.bytes);
    const Text name(base::afterLast(path, base::pathSeparator));
    const Text left = list(exported.losses, std::move(missing));
    if (left.empty())
        Tell(u"%1 was exported with all that the transcript has."_en, {name});
    else
        Tell(u"%1 was exported without: %2."_en, {name, left});
}

Exported Export::bytesOf(const std::string& source, Kind kind, std::vector<Text>& missing) {
    const Transcript whole = transcript(source);
    const bool holdsTimes = kind == Kind::SubRip || kind == Kind::WebVtt || kind == Kind::Json;
    if (!holdsTimes && !whole.words.empty())
        missing.push_back(words_(u"the times of the words"_en));
    if (kind != Kind::Json && std::any_of(whole.words.begin(), whole.words.end(), hasConfidence))
        missing.push_back(words_(u"the recogniser's doubts"_en));
    Exported out;
    switch (kind) {
    case Kind::Markdown:
        return markdown(whole.document);
    case Kind::Docx:
        return docx(whole.document);
    case Kind::OpenDocument:
    case Kind::Html:
        out.losses.headers = lossesOfText(whole.document).headers;
        out.losses.objects = lossesOfText(whole.document).objects;
        out.bytes = text_.exported(source, kind == Kind::Html ? platform::ExportForm::Html
                                                              : platform::ExportForm::OpenDocument);
        return out;
    default:
        break;
    }
    out.losses = lossesOfText(whole.document);
    const std::vector<Turn> all = turns(whole);
    if (kind == Kind::PlainText) {
        out.bytes = plainText(all, {options_.exportStamps, options_.exportSpeakers});
    } else if (kind == Kind::Json) {
        out.bytes = json(all);
    } else {
        CaptionRules rules;
        rules.namesInText = kind == Kind::SubRip;
        const Captions made = captions(all, rules);
        if (made.captions.empty())
            throw base::Failure(base::toUtf8(words_(u"no word has a time"_en)));
        if (made.withoutTime > 0)
            missing.push_back(words_(u"paragraphs of which no word has a time"_en));
        if (made.tooFast > 0)
            missing.push_back(words_(u"enough reading time (subtitles: %1)"_en,
                                     {base::numberText(static_cast<double>(made.tooFast))}));
        out.bytes = kind == Kind::SubRip ? subRip(made.captions) : webVtt(made.captions);
    }
    return out;
}

Text Export::list(const Losses& losses, std::vector<Text> missing) const {
    const std::pair<bool, lang::English> rows[] = {
        {losses.letters, u"fonts, sizes and styles"_en},
        {losses.paragraphs, u"alignment and indents"_en},
        {losses.pictures, u"pictures"_en},
        {losses.objects, u"fields, footnotes and objects"_en},
        {losses.headers, u"headers and footers"_en},
    };
    for (const auto& [lost, name] : rows)
        if (lost)
            missing.push_back(words_(name));
    Text out;
    for (const Text& name : missing)
        out += (out.empty() ? u"" : u", ") + name;
    return out;
}

} // namespace drafts
