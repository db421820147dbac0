#pragma once

#include "platform/dialogs.h"

#include <vector>

// Dialogs that keep what they were to show, and answer at once.
struct QuietDialogs : platform::Dialogs {
    std::vector<base::Text> texts;

    platform::Answer messageBox(base::TextView text, base::TextView, platform::BoxStyle) override {
        texts.emplace_back(text);
        return platform::Answer::OK;
    }
    std::optional<std::uint32_t> ShowColor(std::string_view, std::uint32_t) override { return {}; }
    base::Text FileDlg(const platform::FileDialogRequest&) override { return {}; }
};
