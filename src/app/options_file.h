#pragma once

#include "base/text.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Options beside the settings file: a file of lines "name=value" in UTF-8. A room keeps its options in a
// struct of its own; each is tied to its name here. Lines that nobody is tied to stay as they are.
class OptionsFile {
public:
    // Reads the file; one that cannot be read has no lines.
    explicit OptionsFile(base::Text path);

    // The option takes its value from the file now and gives it to the file at each save. A value that is
    // missing or out of range leaves the option as it is. The option lives as long as this object is used.
    void tie(std::string_view name, bool& option);
    void tie(std::string_view name, int& option, int least, int most);
    void tie(std::string_view name, base::Text& option);

    // Writes all lines. Throws base::Failure, with the old file as it was.
    void save();

private:
    struct Line {
        std::string name; // empty: no option but a note or an empty line, kept in `value`
        std::string value;
    };
    struct Tie {
        std::string name;
        std::function<std::string()> value;
    };

    const std::string* find(std::string_view name) const;
    void write(std::string_view name, std::string value);

    base::Text path_;
    std::vector<Line> lines_;
    std::vector<Tie> ties_;
};

} // namespace app
