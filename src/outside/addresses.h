// The program's addresses. The hosts belong to domains reserved for examples, until the program has a real
// site.
#pragma once

#include "base/text.h"

#include <string_view>

namespace outside {

inline constexpr std::string_view agentName = "Quillmere";
// The file with the newest version: exactly nine digits.
inline constexpr std::string_view versionFile =
    "https://sites.brackenloft.example/site/brackenloftfreeware/ver_qmr.txt";

inline constexpr base::TextView makersSite = u"https://www.brackenloft.example";

} // namespace outside
