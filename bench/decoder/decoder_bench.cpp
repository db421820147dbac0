// Converts a recording of three hours for a recogniser, and finds its phrases, beside the command-line
// program of the same libraries. CPU times: both work on one core.
#include "lav_decoder.h"
#include "sound/map_maker.h"
#include "table.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdlib>
#include <sys/resource.h>

namespace {

double cpuSeconds(int who) {
    rusage used{};
    ::getrusage(who, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
           static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1e6;
}

} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const std::string wav = folder.filePath(QStringLiteral("a.wav")).toStdString();

    const std::string command = std::string(FFMPEG " -nostdin -v error -y -threads 1 -i ") + MEDIA_FILE +
                                " -ac 1 -ar 16000 -threads 1 " + wav;
    const bool converted = std::system(command.c_str()) == 0;
    const double bare = cpuSeconds(RUSAGE_CHILDREN);

    desktop::LavDecoder decoder;
    std::string failure;
    decoder.Finished = [&](const base::Text& reason) {
        failure = base::toUtf8(reason);
        QCoreApplication::quit();
    };
    const double before = cpuSeconds(RUSAGE_SELF);
    decoder.start(base::fromUtf8(MEDIA_FILE), base::fromUtf8(wav));
    QCoreApplication::exec();
    const double program = cpuSeconds(RUSAGE_SELF) - before;
    bench::print({"3 hours converted for a recogniser, CPU time", bench::measure("%.1f s", program),
                  bench::measure("%.1f s", bare), bench::measure("x %.2f", program / bare), "< 15 s",
                  program < 15 && converted && failure.empty()});

    const base::Text media = base::fromUtf8(MEDIA_FILE);
    const auto maker = std::make_shared<sound::MapMaker>(*sound::Recording::at(media),
                                                         sound::MapFolder(base::fromUtf8(wav + ".maps")));
    const double beforeMap = cpuSeconds(RUSAGE_SELF);
    decoder.listen(media, maker);
    QCoreApplication::exec();
    const double map = cpuSeconds(RUSAGE_SELF) - beforeMap;
    bench::print({"Phrases and waveform of 3 hours, CPU time", bench::measure("%.1f s", map),
                  bench::measure("%.1f s", bare), bench::measure("x %.2f", map / bare), "< 15 s",
                  map < 15 && maker->map()});
    if (!failure.empty())
        std::fprintf(stderr, "%s\n", failure.c_str());
    return failure.empty() ? 0 : 1;
}
