#include "hands/pedal_rule.h"

#include "hands/pedal_models.h"

#include <algorithm>
#include <string>

namespace hands {

namespace {

constexpr base::TextView folder = u"/etc/udev/rules.d/";
constexpr base::TextView apply =
    u" && sudo udevadm control --reload && sudo udevadm trigger -s input -s hidraw";

base::Text hexadecimal(std::uint16_t value, base::TextView digits) {
    base::Text text;
    for (const int shift : {12, 8, 4, 0})
        text += digits[value >> static_cast<unsigned>(shift) & 15U];
    return text;
}

// As a word of a shell.
base::Text quoted(base::TextView text) {
    return u"'" + base::replaced(text, u"'", u"'\\''") + u"'";
}

base::Text nameOf(const platform::DeviceModel& model, base::TextView digits, char16_t between) {
    return hexadecimal(model.vendor, digits) + between + hexadecimal(model.product, digits);
}

} // namespace

base::Text ruleCommand(const platform::DeviceModel& model, base::TextView shippedRules) {
    const auto known = pedalModels();
    if (std::ranges::find(known, model, &PedalModel::model) != known.end())
        return u"sudo install -m 644 " + quoted(shippedRules) + u' ' + base::Text(folder) + base::Text(apply);
    constexpr base::TextView small = u"0123456789abcdef";
    constexpr base::TextView large = u"0123456789ABCDEF"; // as the kernel names devices without keys
    const base::Text rule = u"KERNEL==\"event*\", ATTRS{id/vendor}==\"" + hexadecimal(model.vendor, small) +
                            u"\", ATTRS{id/product}==\"" + hexadecimal(model.product, small) +
                            u"\", TAG+=\"uaccess\"\\nKERNEL==\"hidraw*\", KERNELS==\"*:" +
                            nameOf(model, large, u':') + u".*\", TAG+=\"uaccess\"\\n";
    return u"printf " + quoted(rule) + u" | sudo tee " + base::Text(folder) + u"70-quillmere-" +
           nameOf(model, small, u'-') + u".rules" + base::Text(apply);
}

} // namespace hands
