// The stream of the server, through framing alone.

#include "link/frame_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    FrameReader reader;
    QByteArrayView input(data, qsizetype(size));
    while (reader.Next(input) != FrameReader::State::NeedsMore) {
    }
    return 0;
}
