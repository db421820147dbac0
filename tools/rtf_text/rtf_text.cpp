// rtf_text FILE prints the plain text of an RTF file in UTF-8. rtf_text --rtf FILE reads the file and writes
// it again as RTF. Both print to standard output.
#include "base/files.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace {

std::string output(std::string_view file, bool asRtf) {
    const std::string bytes = base::readFile(base::fromUtf8(file));
    const rtf::Document document = rtf::read(bytes);
    return asRtf ? rtf::write(document) : base::toUtf8(rtf::plainText(document)) + '\n';
}

} // namespace

int main(int count, char** arguments) {
    const bool asRtf = count == 3 && std::string_view(arguments[1]) == "--rtf";
    if (count != (asRtf ? 3 : 2)) {
        std::fputs("Usage: rtf_text [--rtf] FILE\n", stderr);
        return 2;
    }
    try {
        const std::string text = output(arguments[count - 1], asRtf);
        return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", arguments[count - 1], failure.what());
        return 1;
    }
}
