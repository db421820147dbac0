#pragma once

#include "aids/abbreviations.h"
#include "controls/timer.h"
#include "platform/worker.h"

#include <functional>
#include <memory>

namespace aids {

// The abbreviations of the file at a path, read again whenever the file has changed. A worker reads it, so
// that a slow disk delays no key.
class AbbreviationFile {
public:
    AbbreviationFile(base::Text path, platform::EventLoop& loop, platform::Worker& disk);

    // Reads the file for the first time and watches it from now on.
    void start();
    void leave() { watch_.setInterval(0); }

    const Abbreviations& list() const { return list_; }
    const base::Text& path() const { return path_; }
    // Why the file could not be read; the abbreviations are those from before. Empty if it could be read, or
    // does not exist.
    const base::Text& failure() const { return failure_; }

    // Makes `edit` in what the file holds now and replaces the file by the result. Throws base::Failure; the
    // abbreviations are then what the file holds.
    void change(const std::function<void(Abbreviations&)>& edit);

    // The abbreviations have changed.
    std::function<void()> Changed = [] {};

private:
    struct Post; // where the worker leaves what it has read

    void look();
    void take();

    base::Text path_;
    platform::Worker& disk_;
    controls::Timer watch_;
    std::shared_ptr<Post> post_;
    Abbreviations list_;
    base::Text failure_;
};

} // namespace aids
