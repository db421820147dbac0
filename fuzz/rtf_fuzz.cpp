// For any input, the written RTF must be 7-bit ASCII and read as the same document.
#include "rtf/read/picture.h"
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const rtf::Document document = rtf::read({reinterpret_cast<const char*>(data), size});
    const std::string written = rtf::write(document);
    const bool isAscii = std::all_of(written.begin(), written.end(), [](char byte) { return byte > 0; });
    if (!isAscii || !rtf::isRtf(written) || rtf::read(written) != document)
        std::abort();
    if (rtf::plainText(document).size() > document.text.size() + document.paragraphs.size())
        std::abort();
    std::for_each(document.kept.begin(), document.kept.end(), rtf::pictureOf);
    return 0;
}
