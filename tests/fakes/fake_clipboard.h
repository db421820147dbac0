#pragma once

#include "base/failure.h"
#include "platform/clipboard.h"

namespace fakes {

// A clipboard; `held` simulates another program that prevents writing.
class FakeClipboard : public platform::Clipboard {
public:
    base::Text text;
    base::Text rtf;
    std::string beside;
    bool held = false;

    void Clear() override {
        refuse();
        text.clear();
        rtf.clear();
        beside.clear();
    }
    using platform::Clipboard::SetText;
    void SetText(base::TextView given, std::string_view besideIt) override {
        refuse();
        text = given;
        rtf.clear();
        beside = besideIt;
    }
    std::string Beside() override { return beside; }
    base::Text GetText(platform::ClipboardFormat format) override {
        return format == platform::ClipboardFormat::Rtf ? rtf : text;
    }

private:
    void refuse() const {
        if (held)
            throw base::Failure("CLIPBRD_E_CANT_OPEN");
    }
};

} // namespace fakes
