#include "hands/bindings.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace hands {

namespace {

constexpr std::size_t longestKey = 40; // units
constexpr std::size_t mostPedals = 8;  // of one command
constexpr int largestCode = 0xFFFF;    // of a key or bit
constexpr std::size_t modelLength = 9; // of "05f3:00ff"
constexpr base::TextView places[] = {u"left", u"middle", u"right"};

// The whole text as a number.
std::optional<int> number(std::string_view text, int base) {
    int value = 0;
    const auto [behind, failed] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (text.empty() || text.front() == '-' || failed != std::errc() || behind != text.data() + text.size())
        return std::nullopt;
    return value;
}

// "05f3:00ff:k256" or "05f3:00ff:b2".
std::optional<platform::PedalCode> learned(base::TextView text) {
    const std::string bytes = base::toUtf8(text);
    if (bytes.size() < modelLength + 3 || bytes[4] != ':' || bytes[modelLength] != ':')
        return std::nullopt;
    const char kind = bytes[modelLength + 1];
    const std::string_view all = bytes;
    const auto vendor = number(all.substr(0, 4), 16);
    const auto product = number(all.substr(5, 4), 16);
    const auto code = number(all.substr(modelLength + 2), 10);
    if (!vendor || !product || !code || *code > largestCode || (kind != 'k' && kind != 'b'))
        return std::nullopt;
    return platform::PedalCode{
        {static_cast<std::uint16_t>(*vendor), static_cast<std::uint16_t>(*product)}, kind == 'b', *code};
}

base::Text hexadecimal(std::uint16_t value) {
    constexpr base::TextView digits = u"0123456789abcdef";
    base::Text text;
    for (const int shift : {12, 8, 4, 0})
        text += digits[value >> static_cast<unsigned>(shift) & 15U];
    return text;
}

base::Text textOf(const platform::PedalCode& pedal) {
    if (const auto place = placeOf(pedal))
        return base::Text(places[static_cast<std::size_t>(*place)]);
    return hexadecimal(pedal.model.vendor) + u':' + hexadecimal(pedal.model.product) +
           (pedal.isBit ? u":b" : u":k") + base::fromUtf8(std::to_string(pedal.code));
}

std::vector<base::Text> split(base::TextView text) {
    std::vector<base::Text> parts;
    while (!text.empty()) {
        const base::TextView part = text.substr(0, text.find(u','));
        text.remove_prefix(std::min(part.size() + 1, text.size()));
        parts.push_back(base::trimmed(part));
    }
    return parts;
}

base::Text joined(const std::vector<base::Text>& parts) {
    base::Text text;
    for (const base::Text& part : parts)
        (text += text.empty() ? u"" : u",") += part;
    return text;
}

} // namespace

bool isSafeKey(base::TextView key) {
    if (key.size() > longestKey || key.empty() || key.back() == u' ')
        return false;
    bool hasModifier = false;
    for (std::size_t plus = key.find(u'+', 1); plus != base::TextView::npos && plus + 1 < key.size();
         plus = key.find(u'+', 1)) {
        const base::TextView modifier = key.substr(0, plus);
        if (modifier != u"Shift" && modifier != u"Ctrl" && modifier != u"Alt" && modifier != u"Meta")
            return false;
        hasModifier = hasModifier || modifier != u"Shift";
        key.remove_prefix(plus + 1);
    }
    for (const base::TextView modifier : {u"Shift", u"Ctrl", u"Alt", u"Meta"})
        if (key == modifier)
            return false;
    const bool isFunctionKey = key.size() > 1 && key.front() == u'F' && key[1] >= u'1' && key[1] <= u'9';
    const bool isExtraKey =
        key.starts_with(u"Media ") || key.starts_with(u"Launch ") || key == u"Pause" || key == u"ScrollLock";
    return hasModifier || isFunctionKey || isExtraKey;
}

Bindings::Bindings() {
    for (std::size_t i = 0; i < commandCount; ++i) {
        keys_[i] = commands()[i].key;
        pedals_[i] = commands()[i].pedal;
    }
}

void Bindings::tidy() {
    for (std::size_t i = 0; i < commandCount; ++i)
        tidyKey(i);
    for (std::size_t i = 0; i < commandCount; ++i)
        tidyPedals(i);
}

void Bindings::tidyKey(std::size_t command) {
    base::Text& key = keys_[command];
    if (!key.empty() && !isSafeKey(key))
        key = commands()[command].key;
    if (std::find(keys_.begin(), keys_.begin() + static_cast<std::ptrdiff_t>(command), key) !=
        keys_.begin() + static_cast<std::ptrdiff_t>(command))
        key.clear();
}

// Those of these pedals that make sense and have no earlier command.
std::vector<base::Text> Bindings::free(const std::vector<base::Text>& pedals, std::size_t command) const {
    std::vector<base::Text> good;
    for (const base::Text& pedal : pedals) {
        const bool isPlace = std::ranges::find(places, base::TextView(pedal)) != std::ranges::end(places);
        const auto code = learned(pedal);
        const base::Text text = isPlace ? pedal : code ? textOf(*code) : base::Text();
        bool isFree =
            !text.empty() && good.size() < mostPedals && std::ranges::find(good, text) == good.end();
        for (std::size_t other = 0; other < command; ++other) {
            const auto taken = split(pedals_[other]);
            isFree = isFree && std::ranges::find(taken, text) == taken.end();
        }
        if (isFree)
            good.push_back(text);
    }
    return good;
}

void Bindings::tidyPedals(std::size_t command) {
    const auto wanted = split(pedals_[command]);
    const auto good = free(wanted, command);
    pedals_[command] =
        joined(good.empty() && !wanted.empty() ? free(split(commands()[command].pedal), command) : good);
}

std::vector<base::Text> Bindings::pedals(Command command) const {
    return split(pedals_[static_cast<std::size_t>(command)]);
}

void Bindings::setKey(Command command, const base::Text& key) {
    if (!key.empty())
        std::ranges::replace(keys_, key, base::Text());
    keys_[static_cast<std::size_t>(command)] = key;
}

void Bindings::addPedal(Command command, const platform::PedalCode& pedal) {
    const base::Text text = textOf(pedal);
    for (base::Text& each : pedals_) {
        auto parts = split(each);
        std::erase(parts, text);
        each = joined(parts);
    }
    auto parts = pedals(command);
    if (parts.size() == mostPedals)
        parts.erase(parts.begin());
    parts.push_back(text);
    pedals_[static_cast<std::size_t>(command)] = joined(parts);
}

void Bindings::removePedals(Command command) {
    pedals_[static_cast<std::size_t>(command)].clear();
}

std::optional<Command> Bindings::commandOf(const platform::PedalCode& pedal) const {
    const base::Text text = textOf(pedal);
    for (std::size_t i = 0; i < commandCount; ++i) {
        const auto parts = split(pedals_[i]);
        if (std::ranges::find(parts, text) != parts.end())
            return static_cast<Command>(i);
    }
    return std::nullopt;
}

std::vector<platform::WatchedModel> Bindings::models() const {
    std::vector<platform::WatchedModel> models;
    for (const PedalModel& known : pedalModels())
        models.push_back({known.model, true});
    for (const base::Text& each : pedals_) {
        for (const base::Text& part : split(each)) {
            const auto code = learned(part);
            if (code &&
                std::ranges::find(models, code->model, &platform::WatchedModel::model) == models.end())
                models.push_back({code->model, false});
        }
    }
    return models;
}

} // namespace hands
