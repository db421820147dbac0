// Entry points of this module. It is loaded for the first internet read, because Qt Network pulls in
// libraries for encryption, compression and proxies.
#include "https_reader.h"

#include <QtGlobal>

// The caller owns the reader. Requires a QApplication.
extern "C" Q_DECL_EXPORT platform::Internet* quillmere_internet() {
    return new desktop::HttpsReader();
}

extern "C" Q_DECL_EXPORT bool quillmere_internet_hangs() {
    return desktop::HttpsReader::isHanging();
}
