#include "WebWords.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input is one message as the saver says it to its web helper.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kestro::checkWebWords(data, size, kestro::WebSpeaker::Saver);
    return 0;
}
