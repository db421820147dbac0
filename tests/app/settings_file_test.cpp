#include "fakes/workbench.h"

namespace fs = std::filesystem;

// Starts the program with various settings files.
struct SettingsFileTest : fakes::WorkbenchTest {
    void startWith(const std::map<int, std::string>& lines) {
        desktop.laySettingsWith(lines);
        ASSERT_TRUE(start());
    }
    std::string saved() {
        form().mnuTitoloCompleto.Click(); // saves
        form().mnuTitoloCompleto.Click();
        return desktop.folder.read("Files/Quillmere.ini");
    }
    std::string savedLine(int line) {
        saved();
        return desktop.savedLine(line);
    }
};

TEST_F(SettingsFileTest, Salva_Writes25Lines_ThatReadBackUnchanged) {
    startWith({{7, "/home/anna/Interviews"}});
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(saved(), "English.lng\r\n80\r\n561\r\n5\r\n2\r\n0\r\n/home/anna/Interviews\r\n0\r\n750\r\n"
                           "750\r\n0\r\n2655\r\n10920\r\n5205\r\n0\r\n1\r\n0\r\n0\r\n6000\r\n3180\r\n5\r\n"
                           "3\r\n0\r\n0\r\n1\r\n");
        ASSERT_TRUE(start());
    }
}

TEST_F(SettingsFileTest, Lines_AreReadByPosition_AndSavedCorrected) {
    // A line number and its value; the line that is checked after saving and its expected value.
    const std::tuple<int, std::string, int, std::string> rows[] = {
        {21, "2", 21, "7"},       {21, "3", 21, "3"},      {21, "99999", 21, "7"}, {22, "40", 22, "40"},
        {23, "2", 23, "1"},       {24, "2", 24, "0"},      {25, "2", 25, "0"},     {15, "", 15, "0"},
        {15, "x", 15, "1"},       {6, "1.0", 6, "1"},      {8, "x", 8, "0"},       {4, "2.5", 4, "2"},
        {4, "40000", 4, "0"},     {4, "12abc", 4, "12"},   {5, "-4", 5, "-4"},     {2, "loud", 2, "loud"},
        {3, "1e999", 3, "862.5"}, {3, "-1e9", 3, "862.5"}, {7, "/a,15", 8, "1"},   {7, "\"/a,b\"", 7, "/a,b"},
    };
    for (const auto& [line, value, savedAs, text] : rows) {
        startWith({{line, value}});
        EXPECT_EQ(savedLine(savedAs), text) << "line " << line << ' ' << value;
    }
}

TEST_F(SettingsFileTest, Positions_AreUsedOnly_IfTheEditorHadASize) {
    for (const auto& [width, height, left] :
         {std::tuple{"0", "0", "0"}, {"300", "-300", "0"}, {"30000", "30000", "1234"}}) {
        startWith({{11, "1234"}, {13, width}, {14, height}});
        EXPECT_EQ(savedLine(11), left) << width << ' ' << height;
    }
}

TEST_F(SettingsFileTest, Editor_IsCutOffAtTheScreenEdge_UnlessItBeginsBeyond) {
    // Left and top; the remaining width and height.
    const std::tuple<std::string, std::string, double, double> rows[] = {
        {"26000", "0", 2800, 5205},
        {"0", "15000", 10920, 1200},
        {"29000", "17000", 10920, 5205},
        {"0", "0", 10920, 5205},
    };
    for (const auto& [left, top, width, height] : rows) {
        startWith({{11, left}, {12, top}, {13, "1"}});
        EXPECT_EQ(desktop.form2->width, width) << left;
        EXPECT_EQ(desktop.form2->height, height) << top;
    }
}

TEST_F(SettingsFileTest, ButtonsOfTheEditor_AndTheirMenus_Save) {
    startWith({});
    for (controls::MenuItem* const item : {&desktop.form2->mnuSalva, &desktop.form2->mnuStampa}) {
        desktop.folder.write("Files/Quillmere.ini", "rubbish\r\n");
        item->Click();
        EXPECT_EQ(desktop.savedLine(1), "English.lng") << item->name;
    }
    desktop.folder.write("Files/Quillmere.ini", "rubbish\r\n");
    desktop.form2->Label2[4].Click();
    EXPECT_EQ(desktop.savedLine(1), "English.lng");
}

TEST_F(SettingsFileTest, ShortBrokenOrUnwritableFile_NeverStopsTheStart) {
    std::string garbage = "English.lng\r\n";
    for (int i = 0; i < 5000; ++i)
        garbage += static_cast<char>(i * 7919 % 251 + 1);
    desktop.folder.write("Files/Quillmere.ini", garbage);
    EXPECT_TRUE(start());
    EXPECT_EQ(std::ranges::count(saved(), '\n'), 25);

    desktop.folder.write("Files/Quillmere.ini", "English.lng\r\n80\r\n561\r\n");
    EXPECT_TRUE(start());
    EXPECT_EQ(savedLine(21), "7");
    EXPECT_TRUE(form().mnuPrimoPiano.checked);

    fs::remove(desktop.folder.path() / "Files/Quillmere.ini");
    fs::create_directory(desktop.folder.path() / "Files/Quillmere.ini");
    form().mnuTitoloCompleto.Click();
    EXPECT_TRUE(boxes.empty());
}

TEST_F(SettingsFileTest, FolderName_InAnotherScript_IsPreserved) {
    startWith({{1, "\xEF\xBB\xBF"
                   "English.lng"},
               {7, "/дома/я"}});
    EXPECT_EQ(savedLine(7), "/дома/я");
    EXPECT_EQ(savedLine(1), "\xEF\xBB\xBF"
                            "English.lng");
}
