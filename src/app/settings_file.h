#pragma once

#include "base/field_reader.h"
#include "base/files.h"
#include "controls/controls.h"
#include "lang/language_table.h"
#include "platform/options.h"
#include "player/form1.h"
#include "player/preferences.h"

namespace app {

// What the settings file keeps, with those that hold it.
struct Kept {
    lang::LanguageTable& Lingua;
    player::Form1& form1;
    controls::Window& form2;
    controls::Window& form3;
    player::Preferences& preferences;
};

// The fields of the settings file that take effect later in the start than they are read.
struct StartSettings {
    base::Text volume;             // line 2
    std::int16_t editorHidden = 0; // line 8
    std::int16_t left1 = 0;        // lines 9 to 14, twips
    std::int16_t top1 = 0;
    std::int16_t left2 = 0;
    std::int16_t top2 = 0;
    std::int16_t width2 = 0;
    std::int16_t height2 = 0;
    bool topmost = true;        // line 15
    std::int16_t showForm3 = 0; // line 16
    std::int16_t left3 = 0;     // lines 17 to 20, twips
    std::int16_t top3 = 0;
    std::int16_t width3 = 0;
    std::int16_t height3 = 0;
    std::int16_t checkUpdate = 0; // line 24

    // The size of the editor is never restored: its sum only tells whether the four positions are used.
    bool hasPositions() const;
};

// The settings file: 25 lines, one value a line, known by their position alone.
class SettingsFile : public platform::Options {
public:
    SettingsFile(const base::TextFiles& files, const base::ProgramFolder& folder, Kept kept);

    // Line 1: name of the language file. Throws Failure when the file cannot be read or is empty.
    static base::Text readLanguageName(const base::TextFiles& files, const base::ProgramFolder& folder);

    // Reads all lines into the controls and preferences, and returns what takes effect later. What cannot be
    // read keeps zero or the empty text.
    StartSettings read();

    void Salva() override;

private:
    void readOptions(base::FieldReader& fields);
    void readPlaces(base::FieldReader& fields, StartSettings& start);
    void readDictation(base::FieldReader& fields, StartSettings& start);

    const base::TextFiles& files_;
    const base::ProgramFolder& folder_;
    Kept kept_;
};

} // namespace app
