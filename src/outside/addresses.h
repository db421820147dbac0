// Where the program is at home. The hosts are of the domains that are reserved for examples, until it has a
// real one.
#pragma once

#include "base/text.h"

#include <string_view>

namespace outside {

inline constexpr std::string_view agentName = "Quillmere";
// Nine digits and nothing else: the newest version.
inline constexpr std::string_view versionFile =
    "https://sites.brackenloft.example/site/brackenloftfreeware/ver_qmr.txt";

inline constexpr base::TextView makersSite = u"https://www.brackenloft.example";

} // namespace outside
