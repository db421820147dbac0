#pragma once

#include "base/failure.h"
#include "platform/clipboard.h"

namespace fakes {

// A clipboard; `held` simulates another program that prevents writing.
class FakeClipboard : public platform::Clipboard {
public:
    base::Text text;
    base::Text rtf;
    bool held = false;

    void Clear() override {
        refuse();
        text.clear();
        rtf.clear();
    }
    void SetText(base::TextView given) override {
        refuse();
        text = given;
        rtf.clear();
    }
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
