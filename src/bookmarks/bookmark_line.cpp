#include "bookmarks/bookmark_line.h"

#include "base/failure.h"
#include "base/numbers.h"

#include <cmath>

namespace bookmarks {

namespace {

constexpr base::TextView zeroTime = u"00:00:00";
constexpr base::TextView gap = u"  ";
constexpr std::size_t tail = 15; // blanks after the key; also the length of the line end that holds the time
constexpr std::size_t oldTime = 5; // characters of "mm:ss"

base::TextView lastOf(base::TextView text, std::size_t count) {
    return text.substr(text.size() - std::min(count, text.size()));
}

base::TextView middleOf(base::TextView text, std::size_t from, std::size_t count) {
    return from < text.size() ? text.substr(from, count) : base::TextView();
}

} // namespace

base::Text paddedPosition(base::TextView position) {
    const std::size_t missing = zeroTime.size() - std::min(position.size(), zeroTime.size());
    return base::Text(zeroTime.substr(0, missing)) + base::Text(position);
}

base::Text ChiaveBM(base::TextView position, base::TextView name) {
    return base::Text(position) + base::Text(gap) + base::Text(name);
}

base::Text lineOf(base::TextView key, base::TextView position) {
    return base::Text(key) + base::Text(tail, u' ') + base::Text(position);
}

base::Text keyOf(base::TextView line) {
    if (line.size() < tail)
        throw base::Failure("Invalid procedure call or argument");
    line.remove_suffix(tail);
    return base::Text(line.substr(0, line.find_last_not_of(u' ') + 1));
}

double secondsOf(base::TextView line) {
    const base::Text time = base::trimmed(lastOf(line, tail));
    return std::nearbyint(base::val(middleOf(time, 0, 2)) * 3600 + base::val(middleOf(time, 3, 2)) * 60 +
                          base::val(lastOf(time, 2)));
}

base::Text mended(base::TextView line) {
    const bool old = middleOf(line, oldTime, gap.size()) == gap;
    return (old ? u"00:" : u"") + base::Text(line);
}

} // namespace bookmarks
