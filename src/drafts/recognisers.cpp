#include "drafts/recognisers.h"

namespace drafts {

namespace {

constexpr Recogniser known[recogniserCount] = {
    {"DraftPocketSphinx", u"PocketSphinx", u"pocketsphinx_continuous -infile %i -time yes",
     u"pocketsphinx, pocketsphinx-en-us", u"sudo apt install pocketsphinx pocketsphinx-en-us"},
    {"DraftWhisperCpp", u"whisper.cpp (whisper-cli)",
     u"whisper-cli -m ~/models/ggml-base.bin -l auto -ojf -of %o -f %i", u"", u""},
    {"DraftWhisper", u"Whisper (whisper)",
     u"whisper --model small --word_timestamps True --output_format json --output_dir %o %i",
     u"openai-whisper", u"pipx install openai-whisper"},
    {"DraftFasterWhisper", u"faster-whisper (whisper-ctranslate2)",
     u"whisper-ctranslate2 --model small --word_timestamps True --output_format json --output_dir %o %i",
     u"whisper-ctranslate2", u"pipx install whisper-ctranslate2"},
    {"DraftVosk", u"Vosk (vosk-transcriber)", u"vosk-transcriber -l en-us -t srt -o %o -i %i", u"vosk",
     u"pipx install vosk"},
    {"DraftProgram", u"", u"", u"", u""},
};

} // namespace

std::span<const Recogniser, recogniserCount> recognisers() {
    return known;
}

} // namespace drafts
