#include "Target.h"
#include "WebWords.h"

/// The input is one message as the saver says it to its web helper.
void kestro::tryInput(std::string_view input)
{
    kestro::checkWebWords({input.data(), qsizetype(input.size())}, kestro::WebSpeaker::Saver);
}
