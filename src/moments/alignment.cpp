#include "moments/alignment.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <unordered_map>
#include <utility>

namespace moments {

namespace {

constexpr std::uint32_t hashBegin = 2166136261U;
constexpr std::uint32_t hashFactor = 16777619U;
constexpr std::ptrdiff_t widestBand = 400; // words that the two texts may drift apart in a stretch
constexpr std::size_t anchorWords = 3;     // in a row that have to be unique for an anchor
constexpr int gapCost = 2;                 // of a word that went or came
constexpr int replacedCost = 3;            // of a word in the place of another: two gaps that keep a word win

constexpr bool isSign(char16_t unit) {
    return (unit < 0x80 && !(unit >= u'0' && unit <= u'9') && !(unit >= u'a' && unit <= u'z') &&
            !(unit >= u'A' && unit <= u'Z')) ||
           (unit >= u'\u2010' && unit <= u'\u2027') || unit == u'\u00AB' || unit == u'\u00BB';
}

char16_t lower(char16_t unit) {
    if ((unit >= u'A' && unit <= u'Z') || (unit >= u'\u00C0' && unit <= u'\u00DE' && unit != u'\u00D7') ||
        (unit >= u'\u0410' && unit <= u'\u042F') || (unit >= u'\u0391' && unit <= u'\u03A9'))
        return static_cast<char16_t>(unit + 0x20);
    return unit;
}

// Aligns two lists of words, stretch by stretch.
class Aligner {
public:
    using Words = std::vector<std::uint16_t>;

    Aligner(const Words& old, const Words& fresh)
        : old_(old), fresh_(fresh), matches_(fresh.size(), unmatched) {}

    std::vector<std::size_t> run() {
        stretch({0, old_.size(), 0, fresh_.size()});
        return std::move(matches_);
    }

private:
    struct Stretch {
        std::size_t oldBegin, oldEnd, freshBegin, freshEnd;

        std::size_t oldSize() const { return oldEnd - oldBegin; }
        std::size_t freshSize() const { return freshEnd - freshBegin; }
    };

    void stretch(Stretch part) {
        while (part.oldSize() > 0 && part.freshSize() > 0 && old_[part.oldBegin] == fresh_[part.freshBegin])
            matches_[part.freshBegin++] = part.oldBegin++;
        while (part.oldSize() > 0 && part.freshSize() > 0 &&
               old_[part.oldEnd - 1] == fresh_[part.freshEnd - 1])
            matches_[--part.freshEnd] = --part.oldEnd;
        if (part.oldSize() == 0 || part.freshSize() == 0)
            return;
        std::size_t oldFrom = part.oldBegin;
        std::size_t freshFrom = part.freshBegin;
        for (const auto& [oldAt, freshAt] : anchors(part)) {
            banded({oldFrom, oldAt, freshFrom, freshAt});
            matches_[freshAt] = oldAt;
            oldFrom = oldAt + 1;
            freshFrom = freshAt + 1;
        }
        banded({oldFrom, part.oldEnd, freshFrom, part.freshEnd});
    }

    // A few words in a row that stand once in both texts, in the longest order that rises in both.
    std::vector<std::pair<std::size_t, std::size_t>> anchors(const Stretch& part) const {
        struct Places {
            std::size_t old = unmatched, fresh = unmatched;
            bool twice = false;
        };
        std::unordered_map<std::uint64_t, Places> known;
        const auto note = [&](const Words& words, std::size_t begin, std::size_t end,
                              std::size_t Places::*side) {
            for (std::size_t at = begin; at + anchorWords <= end; ++at) {
                Places& places = known[key(words, at)];
                places.twice = places.twice || places.*side != unmatched;
                places.*side = at;
            }
        };
        note(old_, part.oldBegin, part.oldEnd, &Places::old);
        note(fresh_, part.freshBegin, part.freshEnd, &Places::fresh);
        std::vector<std::pair<std::size_t, std::size_t>> pairs;
        for (const auto& [words, places] : known)
            if (!places.twice && places.old != unmatched && places.fresh != unmatched)
                pairs.emplace_back(places.old, places.fresh);
        std::sort(pairs.begin(), pairs.end());
        return longestRise(pairs);
    }

    static std::uint64_t key(const Words& words, std::size_t at) {
        std::uint64_t key = 0;
        for (std::size_t i = 0; i < anchorWords; ++i)
            key = key << 16U | words[at + i];
        return key;
    }

    static std::vector<std::pair<std::size_t, std::size_t>>
    longestRise(const std::vector<std::pair<std::size_t, std::size_t>>& pairs) {
        std::vector<std::size_t> tails; // the pair with the lowest end of each length
        std::vector<std::size_t> before(pairs.size(), unmatched);
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            const auto place = std::lower_bound(
                tails.begin(), tails.end(), pairs[i].second,
                [&](std::size_t tail, std::size_t value) { return pairs[tail].second < value; });
            if (place != tails.begin())
                before[i] = *(place - 1);
            if (place == tails.end())
                tails.push_back(i);
            else
                *place = i;
        }
        std::vector<std::pair<std::size_t, std::size_t>> rise;
        for (std::size_t i = tails.empty() ? unmatched : tails.back(); i != unmatched; i = before[i])
            rise.push_back(pairs[i]);
        std::reverse(rise.begin(), rise.end());
        return rise;
    }

    // The edit distance with its way, within a band around the diagonal of the stretch.
    void banded(Stretch part) {
        while (part.oldSize() > 0 && part.freshSize() > 0 && old_[part.oldBegin] == fresh_[part.freshBegin])
            matches_[part.freshBegin++] = part.oldBegin++;
        while (part.oldSize() > 0 && part.freshSize() > 0 &&
               old_[part.oldEnd - 1] == fresh_[part.freshEnd - 1])
            matches_[--part.freshEnd] = --part.oldEnd;
        const auto rows = static_cast<std::ptrdiff_t>(part.freshSize());
        const auto columns = static_cast<std::ptrdiff_t>(part.oldSize());
        if (rows == 0 || columns == 0)
            return;
        const std::ptrdiff_t drift = columns - rows;
        if (std::abs(drift) > widestBand)
            return;
        const std::ptrdiff_t low = std::min<std::ptrdiff_t>(0, drift) - slack(rows);
        const std::ptrdiff_t width = std::max<std::ptrdiff_t>(0, drift) + slack(rows) - low + 1;
        walkBack(part, low, width, distances(part, low, width));
    }

    static std::ptrdiff_t slack(std::ptrdiff_t rows) {
        return std::min<std::ptrdiff_t>(rows, widestBand / 4);
    }

    enum Step : std::uint8_t { Pair, Left, Up };

    // The last step to each place of the band: a pair, a word that went, a word that came.
    std::vector<Step> distances(const Stretch& part, std::ptrdiff_t low, std::ptrdiff_t width) const {
        constexpr int far = 1 << 28;
        const auto rows = static_cast<std::ptrdiff_t>(part.freshSize());
        const auto columns = static_cast<std::ptrdiff_t>(part.oldSize());
        std::vector<Step> steps(static_cast<std::size_t>((rows + 1) * width), Left);
        std::vector<int> above(static_cast<std::size_t>(width) + 2, far);
        std::vector<int> now(above);
        for (std::ptrdiff_t row = 0; row <= rows; ++row) {
            std::fill(now.begin(), now.end(), far);
            for (std::ptrdiff_t place = 0; place < width; ++place) {
                const std::ptrdiff_t column = row + low + place;
                if (column < 0 || column > columns)
                    continue;
                const auto at = static_cast<std::size_t>(place) + 1;
                Step step = Left;
                int cost = row == 0 && column == 0 ? 0 : now[at - 1] + gapCost;
                if (row > 0 && above[at + 1] + gapCost < cost) {
                    step = Up;
                    cost = above[at + 1] + gapCost;
                }
                const bool same = row > 0 && column > 0 &&
                                  fresh_[part.freshBegin + static_cast<std::size_t>(row) - 1] ==
                                      old_[part.oldBegin + static_cast<std::size_t>(column) - 1];
                const int pairCost = above[at] + (same ? 0 : replacedCost);
                if (row > 0 && column > 0 && pairCost <= cost) {
                    step = Pair;
                    cost = pairCost;
                }
                now[at] = cost;
                steps[static_cast<std::size_t>(row * width + place)] = step;
            }
            std::swap(above, now);
        }
        return steps;
    }

    void walkBack(const Stretch& part, std::ptrdiff_t low, std::ptrdiff_t width,
                  const std::vector<Step>& steps) {
        auto row = static_cast<std::ptrdiff_t>(part.freshSize());
        auto column = static_cast<std::ptrdiff_t>(part.oldSize());
        while (row > 0 && column > 0) {
            switch (steps[static_cast<std::size_t>(row * width + column - row - low)]) {
            case Pair:
                --row;
                --column;
                // A word in the place of another is that word corrected.
                matches_[part.freshBegin + static_cast<std::size_t>(row)] =
                    part.oldBegin + static_cast<std::size_t>(column);
                break;
            case Left:
                --column;
                break;
            case Up:
                --row;
                break;
            }
        }
    }

    const Words& old_;
    const Words& fresh_;
    std::vector<std::size_t> matches_;
};

} // namespace

std::uint16_t wordHash(base::TextView word) {
    const auto core = [&] {
        base::TextView inner = word;
        while (!inner.empty() && isSign(inner.front()))
            inner.remove_prefix(1);
        while (!inner.empty() && isSign(inner.back()))
            inner.remove_suffix(1);
        return inner.empty() ? word : inner;
    }();
    std::uint32_t hash = hashBegin;
    for (const char16_t unit : core)
        hash = (hash ^ lower(unit)) * hashFactor;
    return static_cast<std::uint16_t>(hash ^ hash >> 16U);
}

std::vector<std::size_t> align(const std::vector<std::uint16_t>& old,
                               const std::vector<std::uint16_t>& fresh) {
    return Aligner(old, fresh).run();
}

} // namespace moments
