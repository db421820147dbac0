#include "app/options_file.h"

#include "base/carry_on.h"
#include "base/files.h"

#include <algorithm>
#include <charconv>

namespace app {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view lineEnd = "\r\n";

std::string_view withoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

} // namespace

OptionsFile::OptionsFile(base::Text path) : path_(std::move(path)) {
    std::string bytes;
    base::carryOn([&] { bytes = base::readFile(path_); });
    std::string_view rest = bytes;
    if (rest.starts_with(byteOrderMark))
        rest.remove_prefix(byteOrderMark.size());
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        const auto equals = line.find('=');
        const std::string_view name = withoutBlanks(line.substr(0, equals));
        if (equals == std::string_view::npos || name.empty())
            lines_.push_back({{}, std::string(line.substr(0, line.find_last_not_of('\r') + 1))});
        else
            lines_.push_back({std::string(name), std::string(withoutBlanks(line.substr(equals + 1)))});
    }
}

const std::string* OptionsFile::find(std::string_view name) const {
    const auto line =
        std::find_if(lines_.begin(), lines_.end(), [&](const Line& each) { return each.name == name; });
    return line == lines_.end() ? nullptr : &line->value;
}

void OptionsFile::tie(std::string_view name, bool& option) {
    if (const std::string* const value = find(name); value && (*value == "0" || *value == "1"))
        option = *value == "1";
    ties_.push_back({std::string(name), [&option] { return std::string(option ? "1" : "0"); }});
}

void OptionsFile::tie(std::string_view name, int& option, int least, int most) {
    if (const std::string* const value = find(name)) {
        int number = 0;
        const char* const end = value->data() + value->size();
        const auto [behind, failed] = std::from_chars(value->data(), end, number);
        if (failed == std::errc() && behind == end && number >= least && number <= most)
            option = number;
    }
    ties_.push_back({std::string(name), [&option] { return std::to_string(option); }});
}

void OptionsFile::tie(std::string_view name, base::Text& option) {
    if (const std::string* const value = find(name))
        option = base::fromUtf8(*value);
    // A line break would start another line of the file.
    ties_.push_back({std::string(name), [&option] { return base::toUtf8(base::firstLine(option)); }});
}

void OptionsFile::write(std::string_view name, std::string value) {
    const auto line =
        std::find_if(lines_.begin(), lines_.end(), [&](const Line& each) { return each.name == name; });
    if (line == lines_.end())
        lines_.push_back({std::string(name), std::move(value)});
    else
        line->value = std::move(value);
}

void OptionsFile::save() {
    for (const Tie& tie : ties_)
        write(tie.name, tie.value());
    std::string bytes;
    for (const Line& line : lines_)
        bytes.append(line.name).append(line.name.empty() ? "" : "=").append(line.value).append(lineEnd);
    base::replaceFile(path_, bytes);
}

} // namespace app
