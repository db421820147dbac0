#include "aids/csv.h"

#include <algorithm>
#include <utility>

namespace aids {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr base::TextView formulaSigns = u"=+-@\t\r";

bool looksLikeFormula(base::TextView text) {
    return !text.empty() && formulaSigns.find(text.front()) != base::TextView::npos;
}

// Only its first line tells how the cells are separated: a name may hold any sign.
char separatorOf(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, bytes.find('\n'));
    char separator = ',';
    for (const char other : {';', '\t'})
        if (std::ranges::count(head, other) > std::ranges::count(head, separator))
            separator = other;
    return separator;
}

base::Text undefused(std::string_view cell) {
    base::Text text = base::fromUtf8(cell);
    if (text.starts_with(u'\'') && looksLikeFormula(base::TextView(text).substr(1)))
        text.erase(0, 1);
    return text;
}

} // namespace

std::string csvCell(base::TextView text) {
    base::Text cell = looksLikeFormula(text) ? u"'" + base::Text(text) : base::Text(text);
    // A name with a byte that is not UTF-8 has a lone surrogate, which would be written as that byte.
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const bool first = cell[i] >= 0xD800 && cell[i] <= 0xDBFF;
        const bool second = cell[i] >= 0xDC00 && cell[i] <= 0xDFFF;
        if (first && i + 1 < cell.size() && cell[i + 1] >= 0xDC00 && cell[i + 1] <= 0xDFFF)
            ++i;
        else if (first || second)
            cell[i] = u'\uFFFD';
    }
    if (cell.find_first_of(u",;\t\"\r\n") == base::Text::npos)
        return base::toUtf8(cell);
    return '"' + base::toUtf8(base::replaced(cell, u"\"", u"\"\"")) + '"';
}

std::vector<std::vector<base::Text>> csvRows(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    const char separator = separatorOf(bytes);
    std::vector<std::vector<base::Text>> rows;
    std::vector<base::Text> row;
    std::string cell;
    bool quoted = false;
    const auto endCell = [&] { row.push_back(undefused(std::exchange(cell, {}))); };
    const auto endRow = [&] {
        if (row.empty() && cell.empty())
            return;
        endCell();
        rows.push_back(std::exchange(row, {}));
    };
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char sign = bytes[i];
        if (sign == '"') {
            if (quoted && i + 1 < bytes.size() && bytes[i + 1] == '"')
                cell += bytes[++i];
            else
                quoted = !quoted;
        } else if (!quoted && sign == separator) {
            endCell();
        } else if (!quoted && (sign == '\n' || sign == '\r')) {
            endRow();
        } else {
            cell += sign;
        }
    }
    endRow();
    return rows;
}

} // namespace aids
