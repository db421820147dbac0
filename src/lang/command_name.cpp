#include "lang/command_name.h"

namespace lang {

base::Text commandName(base::TextView caption) {
    base::Text name = base::TogliAmp(base::Text(caption));
    for (const base::TextView end : {u"...", u"\u2026"})
        if (name.ends_with(end))
            name.resize(name.size() - end.size());
    return base::Text(base::trimmed(name));
}

} // namespace lang
