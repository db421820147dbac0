#include "fakes/fake_desktop.h"
#include "moments/alignment.h"
#include "moments/last_positions.h"
#include "moments/layer.h"
#include "moments/stamps.h"
#include "testing.h"

using moments::Moment;
using moments::Timed;

namespace {

constexpr int none = -1;

// The first moment of each word, parted by blanks.
std::vector<int> starts(const Timed& timed, base::TextView text) {
    std::vector<int> letters;
    for (const auto& run : timed.runs)
        letters.insert(letters.end(), run.length, run.moment ? run.moment->start : none);
    std::vector<int> words;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] > u' ' && (at == 0 || text[at - 1] <= u' '))
            words.push_back(at < letters.size() ? letters[at] : none);
    return words;
}

} // namespace

TEST(Layer, OfTheSameText_ComesBackWhole_AndOfAChangedOneWordByWord) {
    const base::Text text = u"\r\nI know, a word.\r\nbéla end";
    moments::Layer layer{u"Ö.mp3", 61'000, {}};
    const std::pair<std::uint32_t, std::optional<Moment>> runs[] = {{2, {}},
                                                                    {1, Moment{9000}},
                                                                    {1, {}},
                                                                    {2, Moment{500, 900}},
                                                                    {3, Moment{700, Moment::noEnd, 0}},
                                                                    {3, {}},
                                                                    {5, Moment{2000, 2500, 88}},
                                                                    {2, {}},
                                                                    {4, Moment{3000}},
                                                                    {4, {}}};
    for (const auto& [length, moment] : runs)
        layer.timed.runs.push_back({length, moment});
    const std::string packed = moments::pack(layer, text);
    EXPECT_EQ(packed.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
              std::string::npos);
    const auto same = moments::unpack(packed, text);
    ASSERT_TRUE(same);
    EXPECT_EQ(same->recording, layer.recording);
    EXPECT_EQ(same->length, layer.length);
    EXPECT_EQ(moments::pack(*same, text), packed);
    const std::pair<base::Text, std::vector<int>> changed[] = {
        {text, {9000, 500, none, 2000, 3000, none}},
        {u"I know a WORD. Béla end", {9000, 500, none, 2000, 3000, none}},
        {u"new I guess, a word. more words béla end", {none, 9000, 500, none, 2000, none, none, 3000, none}},
        {u"a word.", {none, 2000}},
        {u"", {}},
    };
    for (const auto& [now, words] : changed)
        EXPECT_EQ(starts(moments::unpack(packed, now)->timed, now), words) << base::toUtf8(now);
    // Bytes of anybody's.
    for (std::size_t cut = 0; cut < packed.size(); ++cut) {
        std::string damaged = packed;
        damaged[cut] = damaged[cut] == 'A' ? '/' : 'A';
        for (const std::string& bytes : {damaged, packed.substr(0, cut)}) {
            const auto read = moments::unpack(bytes, text);
            EXPECT_EQ(read ? read->timed.length() : static_cast<std::int64_t>(text.size()),
                      static_cast<std::int64_t>(text.size()))
                << cut;
        }
    }
}

TEST(Alignment, OfALongText_WithWordsChangedMovedAndAdded_PairsTheRest) {
    std::mt19937 random(3);
    std::vector<std::uint16_t> old, fresh;
    std::vector<std::size_t> expected;
    for (std::size_t word = 0; word < 50'000; ++word) {
        old.push_back(static_cast<std::uint16_t>(random() % 3000));
        const auto chance = random() % 50;
        if (chance == 0)
            continue;
        if (chance == 1) {
            fresh.push_back(static_cast<std::uint16_t>(5000 + random() % 100));
            expected.push_back(moments::unmatched);
        }
        fresh.push_back(old[word]);
        expected.push_back(word);
    }
    const auto matches = moments::align(old, fresh);
    ASSERT_EQ(matches.size(), expected.size());
    std::size_t wrong = 0;
    for (std::size_t word = 0; word < matches.size(); ++word)
        wrong += expected[word] != moments::unmatched && matches[word] != expected[word] ? 1 : 0;
    EXPECT_LT(wrong, matches.size() / 100) << "of " << matches.size();
}

TEST(Stamps, OfAllForms_AreFound_AndWhatOnlyLooksLikeOneIsNot) {
    const std::pair<base::TextView, int> stamps[] = {
        {u"[01:02:03]", 3'723'000},  {u"[00:00:01.5]", 1500},  {u"[00:00:01,250]", 1250},
        {u"(02:03)", 123'000},       {u"01:02:03", 3'723'000}, {u"#00:01:02-t#", 62'000},
        {u"#00:01:02.5-t#", 62'500}, {u"{00:01:02}", 62'000},  {u"1:02:03.007", 3'723'007},
        {u"[90:05]", 5'405'000},
    };
    for (const auto& [stamp, ms] : stamps) {
        const base::Text text = u"a " + base::Text(stamp) + u" b";
        const moments::Stamp expected{2, static_cast<int>(stamp.size()), ms};
        EXPECT_EQ(moments::stampsIn(text), std::vector{expected}) << base::toUtf8(text);
    }
    for (const base::TextView text : {u"[00:61]", u"12:30", u"[1:2:3]", u"a01:02:03", u"01:02:03:04",
                                      u"00:61:00", u"[00:00:00.1234]", u"01:02:034"})
        EXPECT_TRUE(moments::stampsIn(text).empty()) << base::toUtf8(text);
    EXPECT_EQ(moments::stampsIn(u"at 00:00:07.").front().length, 8) << "the point ends the sentence";
    const base::Text text = u"[00:00:05] so it began\r\n[00:00:09] (00:09) then";
    EXPECT_EQ(starts(moments::momentsOfStamps(text), text),
              (std::vector{none, 5000, none, none, none, none, 9000}));
    EXPECT_EQ(moments::stampText(3'723'999), u"[01:02:03] ");
}

TEST(LastPositions, AreKeptForEachRecording_TheOldestGoFirst) {
    const fakes::TemporaryFolder folder;
    moments::LastPositions positions(folder.text("Last"));
    for (int recording = 0; recording <= static_cast<int>(moments::LastPositions::most); ++recording)
        positions.set(u"/r\n" + base::fromUtf8(std::to_string(recording)), 1000 * recording);
    positions.set(u"/r\n7", 5);
    fakes::FakeWorker disk;
    positions.save(disk);
    const moments::LastPositions read(folder.text("Last"));
    EXPECT_EQ(read.of(u"/r\n7"), 5);
    EXPECT_EQ(read.of(u"/r\n200"), 200'000);
    EXPECT_EQ(read.of(u"/r\n0"), std::nullopt);
}
