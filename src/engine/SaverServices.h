#pragma once

#include "settings/CaptionOptions.h"
#include "settings/MovieOptions.h"
#include "settings/Sunlight.h"

namespace kestro {

class AheadFetch;
class BackSaverHost;
class Desktop;
class EntryMarks;
class LatestTrailers;
class MovieFolders;
class MovieLibrary;
class NeverList;
class SettingsStore;
class ShuffleRecord;
class SignPictures;
class WebEngine;

/// What savers of one process share. All of it outlives every saver.
struct SaverServices {
    Desktop& desktop;
    MovieLibrary& movies;
    SettingsStore& store;
    LatestTrailers& trailers;
    SignPictures& signs;
    BackSaverHost& backSavers;
    WebEngine* webEngine = nullptr; ///< null: web content counts as unplayable
    MovieOptions options = {};
    MovieFolders* folders = nullptr;  ///< null: folders among the entries hold nothing
    ShuffleRecord* shuffle = nullptr; ///< of random order that remembers; null for one that does not
    NeverList* never = nullptr;       ///< movies that are not played; null where none can be told
    CaptionOptions caption = {};
    EntryMarks* marks = nullptr;     ///< null: nothing is said of entries that are no folders
    std::optional<Place> place = {}; ///< where the person is; nothing where that is not known
    AheadFetch* ahead = nullptr;     ///< null: nothing is fetched ahead
};

} // namespace kestro
