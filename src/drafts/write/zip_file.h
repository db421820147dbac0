// A zip file that is put together in memory.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace drafts {

// Takes one file after the other. The same files always give the same bytes: none has a date.
class ZipFile {
public:
    ZipFile();
    ~ZipFile();
    ZipFile(const ZipFile&) = delete;
    ZipFile& operator=(const ZipFile&) = delete;

    // Adds a file, compressed. Throws base::Failure when there is no memory for it.
    void add(const std::string& name, std::string_view bytes);

    // Ends the zip file and returns it.
    std::string finish();

private:
    struct State;

    std::unique_ptr<State> state_;
};

} // namespace drafts
