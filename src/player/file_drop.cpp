#include "player/file_drop.h"

#include "base/failure.h"

namespace player {

namespace {

constexpr std::size_t longestPath = 510; // UTF-16 units; a longer dropped path is cut off

} // namespace

FileDrop::FileDrop(Form1& form, MediaSession& session, platform::Dialogs& dialogs, Companions& companions)
    : form_(form), session_(session), dialogs_(dialogs), companions_(companions) {
    form_.Drop = [this](const std::vector<base::Text>& paths) {
        if (!paths.empty())
            GotADrop(base::TextView(paths.front()).substr(0, longestPath));
    };
}

void FileDrop::install() {
    form_.acceptsDrops = true;
}

void FileDrop::remove() {
    form_.acceptsDrops = false;
}

void FileDrop::GotADrop(base::TextView path) {
    while (!path.empty() && path.back() == u'\0')
        path.remove_suffix(1);
    if (!path.empty())
        companions_.wholeRecording(path, [this](const base::Text& whole) { play(whole); });
}

void FileDrop::play(const base::Text& path) {
    try {
        session_.vai(path);
    } catch (const base::Failure&) {
        dialogs_.messageBox(base::TogliAmp(form_.Lingua(36)), base::TogliAmp(form_.Lingua(37)),
                            platform::BoxStyle::Exclamation);
    }
}

} // namespace player
