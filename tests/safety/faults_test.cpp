// Fails each system call of a save, of the journal and of the archive, one after the other.
#include "base/carry_on.h"
#include "base/files.h"
#include "fakes/temporary_folder.h"
#include "safety/archive.h"
#include "safety/journal_file.h"
#include "testing.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>

namespace {

struct Fault {
    int call = 0; // the one that fails, counted from 1
    int reason = 0;
    bool stays = false; // all later calls fail too
    int calls = 0;

    bool hits() {
        ++calls;
        const bool hit = call > 0 && (stays ? calls >= call : calls == call);
        if (hit)
            errno = reason;
        return hit;
    }
} fault;

} // namespace

// The linker substitutes these for the system's (see CMakeLists.txt).
// NOLINTBEGIN: names that are the linker's
#define WRAPPED(name, parameters, arguments)                                                                 \
    extern "C" int __real_##name parameters;                                                                 \
    extern "C" int __wrap_##name parameters {                                                                \
        return fault.hits() ? -1 : __real_##name arguments;                                                  \
    }
WRAPPED(ftruncate, (int fd, off_t size), (fd, size))
WRAPPED(fallocate, (int fd, int mode, off_t at, off_t size), (fd, mode, at, size))
WRAPPED(rename, (const char* from, const char* to), (from, to))
WRAPPED(linkat, (int a, const char* from, int b, const char* to, int flags), (a, from, b, to, flags))

// The system does not crash in this test, so the disk need not be waited for.
extern "C" int __wrap_fsync(int) {
    return fault.hits() ? -1 : 0;
}
extern "C" int __wrap_fdatasync(int) {
    return fault.hits() ? -1 : 0;
}
extern "C" int __real_open(const char* path, int flags, ...);
extern "C" int __wrap_open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const int mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, int) : 0;
    va_end(rest);
    return fault.hits() ? -1 : __real_open(path, flags, mode);
}
// Only of the journal: a temporary file that nothing can delete remains.
extern "C" int __real_unlink(const char* path);
extern "C" int __wrap_unlink(const char* path) {
    return std::string_view(path).ends_with("/Journal") && fault.hits() ? -1 : __real_unlink(path);
}
// A failing call has written half of the bytes.
extern "C" ssize_t __real_write(int fd, const void* bytes, std::size_t size);
extern "C" ssize_t __wrap_write(int fd, const void* bytes, std::size_t size) {
    const bool hit = fault.hits();
    const ssize_t written = __real_write(fd, bytes, hit ? size / 2 : size);
    return hit ? (errno = fault.reason, -1) : written;
}
extern "C" ssize_t __real_pwrite(int fd, const void* bytes, std::size_t size, off_t at);
extern "C" ssize_t __wrap_pwrite(int fd, const void* bytes, std::size_t size, off_t at) {
    const bool hit = fault.hits();
    const ssize_t written = __real_pwrite(fd, bytes, hit ? size / 2 : size, at);
    return hit ? (errno = fault.reason, -1) : written;
}
// NOLINTEND

TEST(Faults, LeaveTheOldOrTheNewFile_NeverNeither) {
    using Folder = fakes::TemporaryFolder;
    const std::string old(3000, 'o');
    const std::string now(5000, 'n');
    const auto versions = [](const Folder& folder) {
        std::string all;
        for (const safety::Version& version : safety::Archive(folder.text("Archive")).versions())
            all += base::readFile(version.path) + "|";
        return all;
    };
    const auto keep = [&](const Folder& folder, std::string_view bytes) {
        safety::Archive(folder.text("Archive"))
            .keep(u"a", bytes, u"rtf", safety::Reason::InPlace, bytes == now);
    };
    const auto lay = [&](const Folder& folder) { folder.write("a", old); };
    const auto save = [&](const Folder& folder) { base::replaceFile(folder.text("a"), now); };
    const auto file = [](const Folder& folder) { return folder.read("a"); };
    const auto journal = [](const Folder& folder) {
        std::string all;
        for (const safety::Record& record : safety::JournalFile::read(folder.text("Journal")))
            all += record.payload;
        return all;
    };
    const auto framed = [](const std::string& bytes) {
        return safety::framed(safety::RecordType::Source, bytes);
    };
    const auto begin = [&](const Folder& folder) {
        safety::JournalFile(folder.text("Journal")).begin(framed(old));
    };
    const struct {
        const char* what;
        std::function<void(const Folder&)> lay, act;
        std::function<std::string(const Folder&)> held;
        std::string before, after;
    } rows[] = {
        {"new file", [](const Folder&) {}, save, file, "", now},
        {"save", lay, save, file, old, now},
        {"save in place",
         [&](const Folder& folder) {
             lay(folder);
             std::filesystem::create_hard_link(folder.path() / "a", folder.path() / "b");
         },
         save, file, old, now},
        {"journal written anew", begin,
         [&](const Folder& folder) { safety::JournalFile(folder.text("Journal")).begin(framed(now)); },
         journal, old, now},
        {"journal continued", begin,
         [&](const Folder& folder) { safety::JournalFile(folder.text("Journal")).append(framed(now)); },
         journal, old, old + now},
        {"journal deleted", begin,
         [&](const Folder& folder) { safety::JournalFile(folder.text("Journal")).remove(); }, journal, old,
         ""},
        {"archive", [&](const Folder& folder) { keep(folder, old); },
         [&](const Folder& folder) { keep(folder, now); }, versions, old + "|", now + "|" + old + "|"},
    };
    for (const auto& row : rows) {
        for (const int reason : {ENOSPC, -ENOSPC, EACCES, -EACCES, EIO, -EIO, EROFS, -EROFS}) {
            const bool stays = reason < 0;
            for (int call = 1;; ++call) {
                const Folder folder;
                base::setKeepOld([&](auto, std::string_view bytes, const auto& write) {
                    keep(folder, bytes);
                    write();
                });
                row.lay(folder);
                fault = {call, std::abs(reason), stays};
                const bool done = base::carryOn([&] { row.act(folder); });
                const bool reached = fault.calls >= call;
                fault = {};
                SCOPED_TRACE(testing::Message() << row.what << ", call " << call << ", " << reason);
                const std::string held = row.held(folder);
                // If all later calls fail, the old bytes cannot be written back, but the archive holds them.
                EXPECT_TRUE(held == row.after ||
                            (!done && (held == row.before || (stays && versions(folder) == old + "|"))));
                for (const auto& each : std::filesystem::recursive_directory_iterator(folder.path()))
                    EXPECT_EQ(each.path().string().find(".quillmere-new"), std::string::npos);
                if (!reached) {
                    EXPECT_GT(call, 1) << "calls come through here";
                    break;
                }
            }
        }
    }
    base::setKeepOld({});
}
