#pragma once

#include "base/text.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Options beside the settings file: lines "name=value" in UTF-8. Each room keeps its options in a struct of
// its own and binds them to their names here. Lines without a bound option are kept unchanged.
class OptionsFile {
public:
    // Reads the file; a file that cannot be read counts as empty.
    explicit OptionsFile(base::Text path);

    // Binds an option to its name: it gets its value from the file now and is written at each save. A missing
    // or out-of-range value leaves the option unchanged. The option must outlive this object.
    void tie(std::string_view name, bool& option);
    void tie(std::string_view name, int& option, int least, int most);
    void tie(std::string_view name, base::Text& option);

    // Writes all lines. Throws base::Failure and leaves the old file unchanged.
    void save();

private:
    struct Line {
        std::string name; // empty: not an option but a comment or an empty line, kept in `value`
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
