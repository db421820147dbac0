#pragma once

#include "contracts/contract.h"
#include "platform/clipboard.h"

namespace contracts {

struct ClipboardBench {
    virtual ~ClipboardBench() = default;
    virtual platform::Clipboard& clipboard() = 0;
    // Sets what another part of the program, or another program, has copied.
    virtual void offer(base::TextView text, base::TextView rtf) = 0;
};

struct ClipboardContract : Contract<ClipboardBench> {
    void expectHolds(base::TextView text, base::TextView rtf) {
        EXPECT_EQ(clipboard.GetText(platform::ClipboardFormat::Text), text);
        EXPECT_EQ(clipboard.GetText(platform::ClipboardFormat::Rtf), rtf);
    }

    platform::Clipboard& clipboard = bench->clipboard();
};

TEST_P(ClipboardContract, SetText_LeavesPlainTextOnly_AndClear_LeavesNothing) {
    for (const base::TextView text : {u"one\r\ntwo", u"Жук \U0001F600", u"{\\rtf1 a source as text}", u""}) {
        bench->offer(u"plain", u"{\\rtf1 rich}");
        expectHolds(u"plain", u"{\\rtf1 rich}");
        clipboard.SetText(text);
        expectHolds(text, u"");
    }
    clipboard.SetText(u"with more", "beside");
    expectHolds(u"with more", u"");
    EXPECT_EQ(clipboard.Beside(), "beside");
    clipboard.SetText(u"with nothing");
    EXPECT_EQ(clipboard.Beside(), "");
    bench->offer(u"plain", u"{\\rtf1 rich}");
    clipboard.Clear();
    expectHolds(u"", u"");
}

} // namespace contracts
