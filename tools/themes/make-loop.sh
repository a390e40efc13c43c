#!/bin/bash
# make-loop.sh GENERATOR LOOP FRAMES RATE MOVIE: draws the theme movie LOOP, of so many FRAMES at RATE a second, with
# GENERATOR (kestro-themes) and encodes it to MOVIE.
#
# A finished movie is also kept in the user's cache folder under a name that holds the hash of all it is made from,
# so that each further build tree copies it. Files appear under their names only when whole.
set -euo pipefail

generator=$1
loop=$2
frames=$3
rate=$4
movie=$5
sources=$(cd "$(dirname "$0")" && pwd)
key=$(cd "$sources" && {
    LC_ALL=C sha256sum ./*.cpp ./*.h CMakeLists.txt make-loop.sh ../intro/Maths.h
    echo "$loop $frames $rate"
} | sha256sum | cut -c1-20)
cache=${XDG_CACHE_HOME:-${HOME:+$HOME/.cache}}
cached=${cache:+$cache/kestro/theme-$loop-$key.mov}
scratch=

# No temporary file stays behind, whatever happens.
trap 'rm -f "$scratch"' EXIT

# place FILE TARGET: copies FILE beside TARGET, then renames it.
place() {
    scratch=$(mktemp "$(dirname "$2")/.theme-XXXXXX") || return 1
    cp "$1" "$scratch" && chmod 644 "$scratch" && mv "$scratch" "$2"
}

# Each picture is as good as the next (mbtree=0): else the last ones of a second, which no other follows, are worse, and
# the first of the next second, and of the next round, is seen to jump.
encode() {
    "$generator" "$loop" "$frames" | ffmpeg -v error -y \
        -f rawvideo -video_size 1024x576 -pixel_format yuv420p -framerate "$rate" -color_range tv \
        -color_primaries bt709 -color_trc bt709 -colorspace bt709 -i - \
        -c:v libx264 -preset veryfast -crf 25 -g "$rate" -keyint_min "$rate" -sc_threshold 0 \
        -x264-params aq-mode=3:bframes=2:mbtree=0 \
        -video_track_timescale 600 -movflags +faststart -f mov "$1"
}

mkdir -p "$(dirname "$movie")"
if [[ -n $cached && -s $cached ]]; then
    place "$cached" "$movie"
    exit
fi

scratch=$(mktemp "$(dirname "$movie")/.theme-XXXXXX")
encode "$scratch"
chmod 644 "$scratch"
mv "$scratch" "$movie"
# The cache only saves time: none, or one that cannot be written, is no fault.
if [[ -n $cached ]]; then
    { mkdir -p "$(dirname "$cached")" && place "$movie" "$cached"; } 2> /dev/null || true
fi
