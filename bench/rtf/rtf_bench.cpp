// Reads and writes a generated transcript of 13.9 MB, and of a half and a quarter of it. Prints the best of
// five runs each, and the ratio to the quarter, which shows how the cost grows with the size.
#include "rtf/read/reader.h"
#include "rtf/write/writer.h"
#include "table.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

constexpr std::size_t largest = 13'900'000; // bytes

// Turns of speakers with time stamps: bold and coloured names, plain and accented text, Cyrillic both as \u
// and as bytes, and the control words that word processors write around format changes.
std::string transcript(std::size_t bytes) {
    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 "
                      "Arial;}{\\f1\\froman\\fcharset204 "
                      "Times New Roman;}{\\f2\\fnil\\fcharset2 "
                      "Symbol;}}{\\colortbl;\\red0\\green0\\blue160;\\red128\\green0\\blue0;}\r\n";
    for (int turn = 0; rtf.size() + 1 < bytes; ++turn) {
        rtf += turn % 7 == 0 ? R"(\pard{\pntext\f2\'B7\tab}{\*\pn\pnlvlblt\pnf2{\pntxtb\'B7}}\fi-360\li720 )"
                             : R"(\pard\plain\ltrpar\ql\li0\ri0\sa120\widctlpar\f0\fs22 )";
        rtf += R"({\rtlch\fcs1\af0\ltrch\fcs0\b\cf1\insrsid)" + std::to_string(4'000'000 + turn) +
               " Speaker " + std::to_string(turn % 5) + "}{\\cf2  [" + std::to_string(turn) +
               ":05]}\\tab What was said in this turn is a "
               "sentence or two, with na\\'efve words {\\i in italics}\\u8212?and a pause.\r\n";
        if (turn % 3 == 0)
            rtf += "{\\f1\\lang1049 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2, \\u1082?\\u1072?\\u1082? "
                   "\\'e4\\'e5\\'eb\\'e0?}";
        rtf += "\\par\r\n";
    }
    return rtf + '}';
}

} // namespace

int main() {
    constexpr double goal = 500; // ms
    double readQuarter = 0;
    double writeQuarter = 0;
    for (const std::size_t size : {largest / 4, largest / 2, largest}) {
        const std::string bytes = transcript(size);
        rtf::Document document;
        const double read = bench::bestOfFive([&] { document = rtf::read(bytes); });
        std::string written;
        const double write = bench::bestOfFive([&] { written = rtf::write(document); });
        if (rtf::read(written) != document)
            return std::puts("what was written reads differently"), 1;
        if (readQuarter == 0) {
            readQuarter = read;
            writeQuarter = write;
        }
        const std::string length = bench::measure("%.1f MB", static_cast<double>(bytes.size()) / 1e6);
        const auto growth = [&](double now, double quarter) {
            return bench::measure("x %.2f", now / quarter);
        };
        bench::print({"RTF read, " + length, bench::measure("%.1f ms", read), "", growth(read, readQuarter),
                      size == largest ? bench::measure("<= %.0f ms", goal) : "", read <= goal});
        bench::print({"RTF written, from " + length, bench::measure("%.1f ms", write), "",
                      growth(write, writeQuarter), ""});
    }
}
