// What lets a user read a foot pedal: a rule for the system's device manager.
#pragma once

#include "platform/pedals.h"

namespace hands {

// The command that installs the rule for this device: the shipped file of rules at this path if it has the
// device, otherwise one made for it.
base::Text ruleCommand(const platform::DeviceModel& model, base::TextView shippedRules);

} // namespace hands
