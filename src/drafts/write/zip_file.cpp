#include "drafts/write/zip_file.h"

#include "base/carry_on.h"

#include <algorithm>
#include <minizip/zip.h>
#include <utility>

namespace drafts {

namespace {

// The file in memory that the library writes to.
struct Memory {
    std::string bytes;
    std::size_t at = 0;
};

Memory& memory(voidpf stream) {
    return *static_cast<Memory*>(stream);
}

uLong writeTo(voidpf, voidpf stream, const void* from, uLong size) {
    Memory& to = memory(stream);
    to.bytes.resize(std::max<std::size_t>(to.bytes.size(), to.at + size));
    std::copy_n(static_cast<const char*>(from), size, to.bytes.begin() + static_cast<std::ptrdiff_t>(to.at));
    to.at += size;
    return size;
}

long seekIn(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    Memory& in = memory(stream);
    const std::size_t from = origin == ZLIB_FILEFUNC_SEEK_CUR   ? in.at
                             : origin == ZLIB_FILEFUNC_SEEK_END ? in.bytes.size()
                                                                : 0;
    in.at = from + offset;
    return 0;
}

zlib_filefunc64_def functionsOn(Memory& file) {
    zlib_filefunc64_def functions{};
    functions.opaque = &file;
    functions.zopen64_file = [](voidpf opaque, const void*, int) { return opaque; };
    functions.zread_file = [](voidpf, voidpf, void*, uLong) -> uLong { return 0; };
    functions.zwrite_file = writeTo;
    functions.ztell64_file = [](voidpf, voidpf stream) -> ZPOS64_T { return memory(stream).at; };
    functions.zseek64_file = seekIn;
    functions.zclose_file = [](voidpf, voidpf) { return 0; };
    functions.zerror_file = [](voidpf, voidpf) { return 0; };
    return functions;
}

void check(int result) {
    if (result != ZIP_OK)
        throw base::Failure("the zip file cannot be written");
}

} // namespace

struct ZipFile::State {
    Memory memory;
    zipFile zip = nullptr;
};

ZipFile::ZipFile() : state_(std::make_unique<State>()) {
    zlib_filefunc64_def functions = functionsOn(state_->memory);
    state_->zip = zipOpen2_64("", APPEND_STATUS_CREATE, nullptr, &functions);
    if (!state_->zip)
        check(ZIP_INTERNALERROR);
}

ZipFile::~ZipFile() {
    if (state_->zip)
        zipClose(state_->zip, nullptr);
}

void ZipFile::add(const std::string& name, std::string_view bytes) {
    zip_fileinfo info{};
    info.tmz_date.tm_year = 1980; // the first that the form knows
    info.tmz_date.tm_mday = 1;
    check(zipOpenNewFileInZip64(state_->zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                Z_DEFAULT_COMPRESSION, 0));
    constexpr std::size_t most = 1U << 30U;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytes.size(), most)))
        check(zipWriteInFileInZip(state_->zip, bytes.data(),
                                  static_cast<unsigned>(std::min(bytes.size(), most))));
    check(zipCloseFileInZip(state_->zip));
}

std::string ZipFile::finish() {
    check(zipClose(std::exchange(state_->zip, nullptr), nullptr));
    return std::move(state_->memory.bytes);
}

} // namespace drafts
