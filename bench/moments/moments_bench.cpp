// What the moments of words cost: a key, the memory of words and of their records, and following the sound,
// in a text of 100,000 words.
#include "moments/word_moments.h"
#include "table.h"

#include <chrono>
#include <malloc.h>
#include <random>

namespace {

constexpr int wordCount = 100'000;
constexpr int letters = 6;        // of a word, with the blank
constexpr double medianGoal = 3;  // us
constexpr double tailGoal = 20;   // us
constexpr double wordGoal = 40;   // bytes
constexpr double recordGoal = 20; // bytes for a word that the record touches

double heapBytes() {
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

double percentile99(std::vector<double> values) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(values.size() * 99 / 100);
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

template <typename Work>
double microseconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

void fill(moments::WordMoments& moments) {
    moments::Timed timed;
    for (int word = 0; word < wordCount; ++word) {
        timed.runs.push_back({letters - 1, moments::Moment{.start = 300 * word, .end = 300 * word + 250}});
        timed.runs.push_back({1, {}});
    }
    moments.apply(0, moments.length(), timed);
}

void printTimes(const std::string& what, const std::vector<double>& times) {
    const double median = bench::median(times);
    const double tail = percentile99(times);
    bench::print({what + ", median", bench::measure("%.2f us", median), "", "",
                  bench::measure("<= %.0f us", medianGoal), median <= medianGoal});
    bench::print({what + ", p99", bench::measure("%.2f us", tail), "", "",
                  bench::measure("<= %.0f us", tailGoal), tail <= tailGoal});
}

void printBytes(const std::string& what, double bytes, double goal) {
    bench::print(
        {what, bench::measure("%.1f B", bytes), "", "", bench::measure("<= %.0f B", goal), bytes <= goal});
}

} // namespace

int main() {
    moments::WordMoments moments;
    const double empty = heapBytes();
    fill(moments);
    moments.record();
    printBytes("Memory of a word", (heapBytes() - empty) / wordCount, wordGoal);

    // A letter of a word corrected, somewhere.
    std::mt19937 random(1);
    std::vector<double> times;
    constexpr int keys = 20'000;
    times.reserve(keys);
    const double before = heapBytes();
    for (int key = 0; key < keys; ++key) {
        const auto place = static_cast<std::int32_t>(random() % wordCount) * letters + 2;
        times.push_back(microseconds([&] {
            moments.apply({place, u"y", u"x", u'a', u'b'});
            moments.record();
        }));
    }
    printTimes("A key somewhere in 100,000 words, with its record", times);
    printBytes("Memory of a record, of a letter corrected", (heapBytes() - before) / keys, recordGoal);

    // A word after the other at the end, as they are typed while the recording plays.
    int ms = 300 * wordCount;
    moments.Heard = [&] { return ms += 40; };
    times.clear();
    char16_t last = u' ';
    const double beforeTyped = heapBytes();
    for (int key = 0; key < keys; ++key) {
        const char16_t unit = key % letters == letters - 1 ? u' ' : u'x';
        times.push_back(microseconds([&] {
            moments.apply({moments.length(), {}, base::TextView(&unit, 1), last, 0});
            moments.record();
        }));
        last = unit;
    }
    printTimes("A key at the end, of words that are heard", times);
    const double ofWords = keys / letters * wordGoal; // which are there as well
    printBytes("Memory of a record, of a letter typed", (heapBytes() - beforeTyped - ofWords) / keys,
               recordGoal);

    // All words are replaced at once.
    const double beforeAll = heapBytes();
    fill(moments);
    moments.record();
    printBytes("Memory of a record that touches all words, for one", (heapBytes() - beforeAll) / wordCount,
               wordGoal);

    constexpr int looks = 100'000;
    std::int64_t sum = 0;
    const double time = microseconds([&] {
        for (int look = 0; look < looks; ++look)
            sum += moments.heardAt(300 * look).value_or(0);
    });
    bench::print({"The word that is heard", bench::measure("%.2f us", time / looks), "", "", ""});
    return sum == 0;
}
