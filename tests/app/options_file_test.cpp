#include "app/options_file.h"

#include "fakes/temporary_folder.h"

#include <gtest/gtest.h>

struct Some {
    bool on = true;
    int days = 30;
    base::Text name = u"none";

    void tieTo(app::OptionsFile& file) {
        file.tie("on", on);
        file.tie("days", days, 1, 100);
        file.tie("name", name);
    }
};

TEST(OptionsFile, InvalidValues_AreIgnored_UnknownLines_AreKept) {
    const fakes::TemporaryFolder folder;
    // File contents, the options read from them, and the file saved after `days` has become 7.
    const std::tuple<const char*, bool, int, base::Text, const char*> rows[] = {
        {"", true, 30, u"none", "on=1\r\ndays=7\r\nname=none\r\n"},
        {"\xEF\xBB\xBF; a note\nlater = x=y \ndays= 5\non=0\n\nname=\xC3\xA9\n", false, 5, u"é",
         "; a note\r\nlater=x=y\r\ndays=7\r\non=0\r\n\r\nname=\xC3\xA9\r\n"},
        {"days=101\r\non=yes\r\n=\r\n", true, 30, u"none", "days=7\r\non=1\r\n=\r\nname=none\r\n"},
        {"days=7x", true, 30, u"none", "days=7\r\non=1\r\nname=none\r\n"},
    };
    for (const auto& [bytes, on, days, name, saved] : rows) {
        folder.write("Options.ini", bytes);
        app::OptionsFile file(folder.text("Options.ini"));
        Some some;
        some.tieTo(file);
        EXPECT_EQ(some.on, on) << bytes;
        EXPECT_EQ(some.days, days) << bytes;
        EXPECT_EQ(some.name, name) << bytes;
        some.days = 7;
        file.save();
        EXPECT_EQ(folder.read("Options.ini"), saved);
    }
}
