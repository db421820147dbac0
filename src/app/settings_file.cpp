#include "app/settings_file.h"

#include "base/carry_on.h"
#include "base/numbers.h"

#include <cmath>

namespace app {

namespace {

constexpr std::int16_t leastPhase = 3;                       // seconds
constexpr std::int16_t defaultPhase = 7;                     // seconds, for a phase below the least
constexpr double farthest = 32767 * controls::twipsPerPixel; // twips: the largest 16-bit number of pixels
constexpr base::TextView fileName = u"Quillmere.ini";

base::Text textField(base::FieldReader& fields) {
    base::Text field;
    base::carryOn([&] { field = base::fromOneLine(fields.text()); });
    return field;
}

// A position in twips. Throws Failure if it is out of range for a control.
double place(base::TextView field) {
    const double twips = base::val(field);
    if (!(std::abs(twips) <= farthest))
        throw base::Failure("Overflow");
    return twips;
}

std::int16_t numberField(base::FieldReader& fields) {
    std::int16_t field = 0;
    base::carryOn([&] { field = fields.int16(); });
    return field;
}

// Reads the field as text first, then as a 16-bit number: if that does not fit, the field is consumed and the
// setting keeps its value.
void readSeconds(base::FieldReader& fields, std::int16_t& seconds) {
    const base::Text field = textField(fields);
    base::carryOn([&] { seconds = base::toInt16(base::val(field)); });
}

void readPhase(base::FieldReader& fields, std::int16_t& seconds) {
    readSeconds(fields, seconds);
    if (seconds < leastPhase)
        seconds = defaultPhase;
}

base::Text mark(bool set) {
    return set ? u"1" : u"0";
}

} // namespace

bool StartSettings::hasPositions() const {
    // A sum that overflows 16 bits belongs to a large window, so it is certainly not 0.
    bool zero = false;
    base::carryOn([&] { zero = base::sumInt16(width2, height2) == 0; });
    return !zero;
}

SettingsFile::SettingsFile(const base::TextFiles& files, const base::ProgramFolder& folder, Kept kept)
    : files_(files), folder_(folder), kept_(kept) {}

base::Text SettingsFile::readLanguageName(const base::TextFiles& files, const base::ProgramFolder& folder) {
    return base::FieldReader(files.read(folder.files(fileName))).text();
}

StartSettings SettingsFile::read() {
    base::Text text;
    base::carryOn([&] { text = files_.read(folder_.files(fileName)); });
    base::FieldReader fields(std::move(text));
    StartSettings start;
    textField(fields); // the language was selected before this window existed
    start.volume = textField(fields);
    readPlayer(fields);
    readPlaces(fields, start);
    readDictation(fields, start);
    return start;
}

void SettingsFile::readPlayer(base::FieldReader& fields) {
    const base::Text thumb = textField(fields);
    base::carryOn([&] { kept_.form1.Image1.top = place(thumb); });
    readSeconds(fields, kept_.settings.SecSalto);
    readSeconds(fields, kept_.settings.SecIndietro);
    kept_.form1.mnuTitoloCompleto.checked = base::val(textField(fields)) == 1;
    kept_.settings.CartellaMedia = textField(fields);
}

void SettingsFile::readPlaces(base::FieldReader& fields, StartSettings& start) {
    for (std::int16_t* place : {&start.editorHidden, &start.left1, &start.top1, &start.left2, &start.top2,
                                &start.width2, &start.height2})
        *place = numberField(fields);
    const base::Text notTopmost = textField(fields);
    start.topmost = notTopmost.empty() || notTopmost == u"0";
    for (std::int16_t* place : {&start.showForm3, &start.left3, &start.top3, &start.width3, &start.height3})
        *place = numberField(fields);
}

void SettingsFile::readDictation(base::FieldReader& fields, StartSettings& start) {
    readPhase(fields, kept_.settings.TempoPlay);
    readPhase(fields, kept_.settings.TempoPause);
    const bool smartPlay = numberField(fields) != 0;
    kept_.form1.mnuSmartPlay.checked = smartPlay;
    kept_.form1.load(kept_.form1.imgDetta, smartPlay ? u"detta2.jpg" : u"detta.jpg");
    start.checkUpdate = numberField(fields);
    kept_.form1.mnuCheckUpdateStartup.checked = start.checkUpdate == 1;
    kept_.form1.mnuNoPlayOnWrite.checked = numberField(fields) == 1;
}

void SettingsFile::Salva() {
    const auto number = [](double value) { return base::numberText(value); };
    const auto& form1 = kept_.form1;
    const auto& form2 = kept_.form2;
    const auto& form3 = kept_.form3;
    std::vector<base::Text> lines = {
        kept_.Lingua.FileLingua,
        form1.Image1.tag,
        number(form1.Image1.top),
        number(kept_.settings.SecSalto),
        number(kept_.settings.SecIndietro),
        mark(form1.mnuTitoloCompleto.checked),
        kept_.settings.CartellaMedia,
        mark(!form2.visible),
        number(form1.left),
        number(form1.top),
        number(form2.left),
        number(form2.top),
        number(form2.width),
        number(form2.height),
        mark(!form1.mnuPrimoPiano.checked),
        mark(!form3.visible),
        number(form3.left),
        number(form3.top),
        number(form3.width),
        number(form3.height),
        number(kept_.settings.TempoPlay),
        number(kept_.settings.TempoPause),
        mark(form1.mnuSmartPlay.checked),
        mark(form1.mnuCheckUpdateStartup.checked),
        mark(form1.mnuNoPlayOnWrite.checked),
    };
    for (base::Text& line : lines)
        line = base::trimmed(line);
    base::carryOn([&] { files_.writeChangedLines(folder_.files(fileName), lines); },
                  [this](const char* reason) { Failed(base::fromUtf8(reason)); });
}

} // namespace app
