#include "aids/letter_case.h"

#include "drafts/letters.h"

#include <algorithm>
#include <iterator>

namespace aids {

namespace {

// Capitals that all have their small letter at the same distance, or alternate with their small letters.
struct Capitals {
    char16_t first;
    char16_t last;
    int distance; // 0: each capital has its small letter behind it
};

constexpr Capitals rows[] = {
    {u'A', u'Z', 32},     {0xC0, 0xD6, 32},     {0xD8, 0xDE, 32},     {0x0100, 0x012F, 0},
    {0x0132, 0x0137, 0},  {0x0139, 0x0148, 0},  {0x014A, 0x0177, 0},  {0x0178, 0x0178, -121},
    {0x0179, 0x017E, 0},  {0x01CD, 0x01DC, 0},  {0x01DE, 0x01EF, 0},  {0x01F8, 0x021F, 0},
    {0x0386, 0x0386, 38}, {0x0388, 0x038A, 37}, {0x038C, 0x038C, 64}, {0x038E, 0x038F, 63},
    {0x0391, 0x03A1, 32}, {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32},
    {0x0460, 0x0481, 0},  {0x048A, 0x04BF, 0},  {0x04C1, 0x04CE, 0},  {0x04D0, 0x052F, 0},
    {0x0531, 0x0556, 48}, {0x1E00, 0x1E95, 0},  {0x1EA0, 0x1EFF, 0},
};

} // namespace

char16_t lowered(char16_t unit) {
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    const auto* const row = std::find_if(std::begin(rows), std::end(rows), [&](const Capitals& each) {
        return unit >= each.first && unit <= each.last;
    });
    if (row == std::end(rows))
        return unit;
    const int distance = row->distance != 0 ? row->distance : ((unit - row->first) % 2 == 0 ? 1 : 0);
    return static_cast<char16_t>(unit + distance);
}

base::Text lowered(base::TextView text) {
    base::Text result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char16_t unit) { return lowered(unit); });
    return result;
}

char16_t raised(char16_t unit) {
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    for (const Capitals& row : rows) {
        if (row.distance == 0 && unit > row.first && unit <= row.last && (unit - row.first) % 2 == 1)
            return static_cast<char16_t>(unit - 1);
        const int capital = unit - row.distance;
        if (row.distance != 0 && capital >= row.first && capital <= row.last)
            return static_cast<char16_t>(capital);
    }
    return unit;
}

base::Text raised(base::TextView text) {
    base::Text result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char16_t unit) { return raised(unit); });
    return result;
}

base::Text capitalised(base::TextView text) {
    base::Text result(text);
    const auto first = std::find_if(result.begin(), result.end(), drafts::isLetter);
    if (first != result.end())
        *first = raised(*first);
    return result;
}

} // namespace aids
