#pragma once

#include "base/field_reader.h"
#include "base/files.h"
#include "controls/controls.h"
#include "lang/language_table.h"
#include "platform/settings_store.h"
#include "player/form1.h"
#include "player/settings.h"

#include <functional>

namespace app {

// The objects whose state the settings file stores.
struct Kept {
    lang::LanguageTable& Lingua;
    player::Form1& form1;
    controls::Window& form2;
    controls::Window& form3;
    player::Settings& settings;
};

// Fields of the settings file that are applied later in the start than they are read.
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

    // The editor's size is never restored: its sum only decides whether the four positions are used.
    bool hasPositions() const;
};

// The settings file: 25 lines with one value each, identified by position only.
class SettingsFile : public platform::SettingsStore {
public:
    SettingsFile(const base::TextFiles& files, const base::ProgramFolder& folder, Kept kept);

    // Line 1: the name of the language file. Throws Failure if the file cannot be read or is empty.
    static base::Text readLanguageName(const base::TextFiles& files, const base::ProgramFolder& folder);

    // Reads all lines into the controls and settings and returns the fields that are applied later. A
    // field that cannot be read counts as 0 or empty text.
    StartSettings read();

    void Salva() override;

    // The file could not be written, for this reason; the rule is silent about it.
    std::function<void(const base::Text& reason)> Failed = [](const base::Text&) {};

private:
    void readPlayer(base::FieldReader& fields);
    void readPlaces(base::FieldReader& fields, StartSettings& start);
    void readDictation(base::FieldReader& fields, StartSettings& start);

    const base::TextFiles& files_;
    const base::ProgramFolder& folder_;
    Kept kept_;
};

} // namespace app
