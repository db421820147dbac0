// Entry point of this module. It is loaded for the first conversion, because FFmpeg pulls in the libraries of
// many formats.
#include "lav_decoder.h"

// The caller owns the decoder. Requires a QCoreApplication.
extern "C" Q_DECL_EXPORT platform::Decoder* quillmere_decoder() {
    return new desktop::LavDecoder;
}
