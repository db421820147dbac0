#include "desktop/eventually.h"
#include "enchant_spelling.h"
#include "fakes/temporary_folder.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

// Enchant finds the user's own lists and dictionaries in a folder of this test.
class EnchantSpelling : public testing::Test {
protected:
    static fakes::TemporaryFolder& home() {
        static fakes::TemporaryFolder folder;
        static const int set = ::setenv("ENCHANT_CONFIG_DIR", (folder.path() / "enchant").c_str(), 1);
        EXPECT_EQ(set, 0);
        return folder;
    }
    EnchantSpelling() {
        home();
        spelling.emplace();
    }
    // Waits for the answer to a question.
    template <typename Answer, typename Ask>
    Answer answer(Ask&& ask) {
        std::optional<Answer> got;
        ask([&](const Answer& given) { got = given; });
        EXPECT_TRUE(fakes::eventually([&] { return got.has_value(); }));
        return got.value_or(Answer());
    }
    base::Text use(const std::string& tag) {
        return answer<base::Text>([&](auto done) { spelling->use(tag, done); });
    }
    std::vector<bool> check(const std::vector<base::Text>& words) {
        return answer<std::vector<bool>>([&](auto done) { spelling->check(words, done); });
    }
    std::vector<base::Text> suggest(const base::Text& word) {
        return answer<std::vector<base::Text>>([&](auto done) { spelling->suggest(word, done); });
    }
    std::vector<platform::SpellingLanguage> list() {
        std::vector<platform::SpellingLanguage> languages;
        bool listed = false;
        spelling->list([&](const auto& all, const base::Text&) {
            languages = all;
            listed = true;
        });
        EXPECT_TRUE(fakes::eventually([&] { return listed; }));
        return languages;
    }

    std::optional<desktop::EnchantSpelling> spelling;
};

} // namespace

TEST_F(EnchantSpelling, RealDictionaries_AreListed_AndJudgeWords) {
    const auto languages = list();
    EXPECT_THAT(languages, Contains(platform::SpellingLanguage{"ru_RU", u"русский (ru_RU)"}));
    EXPECT_EQ(std::ranges::count(languages, "en_US", &platform::SpellingLanguage::tag), 1);
    EXPECT_EQ(use("en_US"), u"");
    EXPECT_THAT(
        check({u"hello", u"helo", u"don't", u"don'tt", u"etc.", u"", u"\xD800z", base::Text(5000, u'q')}),
        ElementsAre(true, false, true, false, true, true, testing::_, testing::_));
    EXPECT_THAT(suggest(u"helo"), Contains(u"hello"));
    EXPECT_EQ(use("ru_RU"), u"");
    EXPECT_THAT(check({u"привет", u"превет", u"ещё", u"мои\u0306"}), ElementsAre(true, false, true, true));
    EXPECT_THAT(suggest(u"превет"), Contains(u"привет"));
    EXPECT_FALSE(std::filesystem::exists(home().path() / "enchant")) << "no empty lists of own words";
}

TEST_F(EnchantSpelling, DictionaryThatIsRemoved_CountsUntilItIsNeededAgain_AndTheUsersListsAreRead) {
    home().write("enchant/hunspell/eo.aff", "SET UTF-8\n");
    home().write("enchant/hunspell/eo.dic", "1\nsaluton\n");
    home().write("enchant/eo.dic", "mia\n");
    EXPECT_EQ(use("eo"), u"");
    std::filesystem::remove_all(home().path() / "enchant/hunspell");
    EXPECT_THAT(check({u"saluton", u"mia", u"salutonn"}), ElementsAre(true, true, false));
    EXPECT_NE(use("eo"), u"");
    EXPECT_THAT(check({u"salutonn"}), ElementsAre(true)) << "without a dictionary";
    EXPECT_EQ(home().read("enchant/eo.dic"), "mia\n");
    EXPECT_EQ(std::ranges::count(list(), "eo", &platform::SpellingLanguage::tag), 0);
}

TEST_F(EnchantSpelling, OpenQuestions_AreDropped_ByAnotherLanguage_AndByTheEnd) {
    int late = 0;
    for (int i = 0; i < 50; ++i)
        spelling->suggest(u"Wortungetümszusammensetzungg", [&](const auto&) { ++late; });
    EXPECT_EQ(use("en_US"), u"");
    EXPECT_EQ(late, 0);
    spelling->suggest(u"helo", [&](const auto&) { ++late; });
    spelling->stop();
    EXPECT_THAT(check({u"helo"}), SizeIs(1));
    spelling->check({u"helo"}, [&](const auto&) { ++late; });
    spelling.reset();
    fakes::runLoop(50);
    EXPECT_EQ(late, 0);
}
