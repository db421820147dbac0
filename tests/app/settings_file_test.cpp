#include "fakes/workbench.h"

#include <filesystem>

namespace fs = std::filesystem;

// Starts the program on settings files of all kinds.
class SettingsFileTest : public testing::Test {
protected:
    using Lines = std::vector<std::string>;

    static Lines shipped() {
        return {"English.lng", "80", "561", "5", "2", "0", "",  "0", "0", "0", "0", "0", "0",
                "0",           "0",  "0",   "0", "0", "0", "0", "5", "3", "0", "0", "1"};
    }
    static Lines with(int line, const std::string& value) {
        Lines lines = shipped();
        lines[static_cast<std::size_t>(line - 1)] = value;
        return lines;
    }
    void start(const Lines& lines) {
        desktop.laySettings(lines);
        program.emplace(desktop);
        ASSERT_TRUE(program->Main(u""));
    }
    Lines saved() {
        desktop.form1->mnuTitoloCompleto.Click();
        desktop.form1->mnuTitoloCompleto.Click();
        const std::string bytes = desktop.folder.read("Files/Quillmere.ini");
        Lines lines;
        for (std::size_t at = 0; at < bytes.size();) {
            const auto end = bytes.find("\r\n", at);
            lines.push_back(bytes.substr(at, end - at));
            at = end + 2;
        }
        return lines;
    }
    std::string savedLine(int line) { return saved()[static_cast<std::size_t>(line - 1)]; }

    fakes::FakeDesktop desktop;
    std::optional<app::Program> program;
};

TEST_F(SettingsFileTest, Salva_WritesTwentyFiveLines_ThatReadBackTheSame) {
    start(with(7, "/home/anna/Interviews"));
    const Lines first = saved();
    EXPECT_THAT(first,
                testing::ElementsAre("English.lng", "80", "561", "5", "2", "0", "/home/anna/Interviews", "0",
                                     "750", "750", "0", "2655", "10920", "5205", "0", "1", "0", "0", "6000",
                                     "3180", "5", "3", "0", "0", "1"));
    start(first);
    Lines second = saved();
    EXPECT_EQ(second[11], "2655");
    EXPECT_EQ(second, first);
}

TEST_F(SettingsFileTest, Lines_HaveTheEffectsOfTheirPlace) {
    struct Row {
        int line;
        std::string value;
        int savedAs;
        std::string text;
    };
    const Row rows[] = {
        {21, "2", 21, "7"},         {21, "3", 21, "3"},    {22, "2", 22, "7"},     {22, "40", 22, "40"},
        {23, "2", 23, "1"},         {24, "2", 24, "0"},    {24, "1", 24, "1"},     {25, "2", 25, "0"},
        {15, "", 15, "0"},          {15, "1", 15, "1"},    {15, "x", 15, "1"},     {6, "1.0", 6, "1"},
        {6, "yes", 6, "0"},         {8, "1", 8, "1"},      {8, "x", 8, "0"},       {4, "2.5", 4, "2"},
        {4, "40000", 4, "0"},       {4, "12abc", 4, "12"}, {5, "-4", 5, "-4"},     {16, "1", 16, "1"},
        {7, "\"/a,b\"", 7, "/a,b"}, {7, "/a,15", 8, "1"},  {21, "99999", 21, "7"}, {2, "loud", 2, "loud"},
    };
    for (const Row& row : rows) {
        start(with(row.line, row.value));
        EXPECT_EQ(savedLine(row.savedAs), row.text) << "line " << row.line << " \"" << row.value << '"';
    }
}

TEST_F(SettingsFileTest, Positions_CountOnlyWhenTheEditorHadASize) {
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"0", "0", "0"}, {"300", "-300", "0"}, {"9000", "4000", "1234"}, {"30000", "30000", "1234"}};
    for (const auto& [width, height, left] : rows) {
        Lines lines = shipped();
        lines[10] = "1234";
        lines[12] = width;
        lines[13] = height;
        start(lines);
        EXPECT_EQ(savedLine(11), left) << width << ' ' << height;
        EXPECT_EQ(savedLine(13), "10920");
        EXPECT_EQ(desktop.form1->left, 750) << "the player goes to pixel (50, 50) whatever it read";
    }
}

TEST_F(SettingsFileTest, ShortOrBrokenFile_NeverStopsTheStart) {
    start({"English.lng", "80", "561"});
    EXPECT_EQ(savedLine(21), "7");
    EXPECT_EQ(savedLine(4), "0");
    EXPECT_TRUE(desktop.form1->mnuPrimoPiano.checked);
    std::string garbage = "English.lng\r\n";
    for (int i = 0; i < 5000; ++i)
        garbage += static_cast<char>(i * 7919 % 251 + 1);
    desktop.folder.write("Files/Quillmere.ini", garbage);
    program.emplace(desktop);
    EXPECT_TRUE(program->Main(u""));
    EXPECT_EQ(saved().size(), 25U);
}

TEST_F(SettingsFileTest, FolderInAnotherScript_IsNotLost) {
    start(with(7, "\"/дома\""));
    // Read as 1252 above; a folder chosen at run time is kept in its own letters.
    desktop.folder.write("Files/Quillmere.ini", "\xEF\xBB\xBF"
                                                "English.lng\r\n80\r\n561\r\n5\r\n2\r\n0\r\n/дома/я\r\n");
    program.emplace(desktop);
    ASSERT_TRUE(program->Main(u""));
    EXPECT_EQ(savedLine(7), "/дома/я");
    EXPECT_EQ(desktop.folder.read("Files/Quillmere.ini").substr(0, 3), "\xEF\xBB\xBF");
}

TEST_F(SettingsFileTest, FileThatCannotBeWritten_IsSkippedInSilence) {
    start(shipped());
    fs::remove(desktop.folder.path() / "Files/Quillmere.ini");
    fs::create_directory(desktop.folder.path() / "Files/Quillmere.ini");
    desktop.form1->mnuTitoloCompleto.Click();
    EXPECT_TRUE(desktop.dialogPort.boxes.empty());
    EXPECT_TRUE(desktop.form1->mnuTitoloCompleto.checked);
}
