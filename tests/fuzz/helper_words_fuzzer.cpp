#include "WebWords.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input is one message as the web helper says it to the saver.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kestro::checkWebWords(data, size, kestro::WebSpeaker::Helper);
    return 0;
}
