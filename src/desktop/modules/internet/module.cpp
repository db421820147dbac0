// The entries of this module. It is loaded when something is read from the internet: Qt Network brings the
// libraries of encryption, compression and proxies along.
#include "https_reader.h"

#include <QtGlobal>

// The caller owns the reader. The Qt application has to exist.
extern "C" Q_DECL_EXPORT platform::Internet* quillmere_internet() {
    return new desktop::HttpsReader();
}

extern "C" Q_DECL_EXPORT bool quillmere_internet_hangs() {
    return desktop::HttpsReader::isHanging();
}
