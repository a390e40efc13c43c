#include "Target.h"
#include "WebWords.h"

/// The input is one message as the web helper says it to the saver.
void kestro::tryInput(std::string_view input)
{
    kestro::checkWebWords({input.data(), qsizetype(input.size())}, kestro::WebSpeaker::Helper);
}
