#include "editor/snapshot_text.h"
#include "testing.h"

using editor::SnapshotStore;
using editor::SnapshotText;

namespace {

base::Text letters(std::mt19937& random, std::size_t count) {
    base::Text text;
    while (text.size() < count)
        text += u"abc \r\n\xD83D\xDE00"[random() % 8];
    return text;
}

std::size_t upTo(std::mt19937& random, std::size_t limit) {
    return random() % (limit + 1);
}

} // namespace

TEST(SnapshotText, ManyStates_EqualWholeCopies_AndTheirMemoryIsReused) {
    SnapshotStore store;
    const auto edit = [&store] {
        std::mt19937 random(7);
        base::Text plain = letters(random, 3000);
        SnapshotText text(store, plain);
        std::vector<std::pair<SnapshotText, base::Text>> kept;
        for (int round = 0; round < 6000; ++round) {
            const std::size_t at = upTo(random, plain.size());
            // Mostly single letters; sometimes a range, the whole text, or a paste.
            const std::size_t reach = round % 500 == 0 ? plain.size() : round % 7 == 0 ? 200 : 2;
            const std::size_t removed = upTo(random, std::min(reach, plain.size() - at));
            const base::Text inserted = letters(random, upTo(random, round % 90 == 0 ? 2000 : 2));
            plain.replace(at, removed, inserted);
            text.replace(static_cast<std::int32_t>(at), static_cast<std::int32_t>(removed), inserted);
            const std::size_t from = upTo(random, plain.size());
            ASSERT_EQ(text.text(static_cast<std::int32_t>(from), 40), plain.substr(from, 40));
            if (round % 50 == 0)
                kept.emplace_back(text, plain);
        }
        for (const auto& [snapshot, whole] : kept)
            ASSERT_EQ(snapshot.text(), whole);
    };
    edit();
    const std::size_t full = store.bytes();
    edit();
    EXPECT_EQ(store.bytes(), full) << "released memory is reused";
}

TEST(SnapshotText, ThousandCharacters_InALongText_AreNotCopiedEach) {
    SnapshotStore store;
    std::vector<SnapshotText> states{SnapshotText(store, base::Text(200'000, u'a'))};
    const std::size_t before = store.bytes();
    for (int i = 0; i < 1000; ++i) {
        states.push_back(states.back());
        states.back().replace(i * 199, 0, u"x");
    }
    EXPECT_LT(store.bytes() - before, 600U * 1000);
}
