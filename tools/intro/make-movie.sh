#!/bin/bash
# make-movie.sh GENERATOR MOVIE: draws the intro movie with GENERATOR (kestro-intro) and encodes it to MOVIE.
#
# A finished movie is also kept in the user's cache folder under a name that holds the hash of all it is made from,
# so that each further build tree copies it. Files appear under their names only when whole.
set -euo pipefail

generator=$1
movie=$2
sources=$(cd "$(dirname "$0")" && pwd)
key=$(cd "$sources" && LC_ALL=C sha256sum ./*.cpp ./*.h CMakeLists.txt make-movie.sh | sha256sum | cut -c1-20)
cache=${XDG_CACHE_HOME:-${HOME:+$HOME/.cache}}
cached=${cache:+$cache/kestro/intro-$key.mov}
scratch=

# No temporary file stays behind, whatever happens.
trap 'rm -f "$scratch"' EXIT

# place FILE TARGET: copies FILE beside TARGET, then renames it.
place() {
    scratch=$(mktemp "$(dirname "$2")/.intro-XXXXXX") || return 1
    cp "$1" "$scratch" && chmod 644 "$scratch" && mv "$scratch" "$2"
}

# The dead zones are narrowed so that the encoder keeps the grain, which is what hides bands in the dark gradients.
encode() {
    "$generator" | ffmpeg -v error -y \
        -f rawvideo -video_size 1920x1080 -pixel_format yuv420p -framerate 30 -color_range tv \
        -color_primaries bt709 -color_trc bt709 -colorspace bt709 -i - \
        -c:v libx264 -preset faster -crf 18 -g 30 -keyint_min 30 -sc_threshold 0 \
        -x264-params aq-mode=3:deadzone-inter=6:deadzone-intra=6:no-dct-decimate=1:chroma-qp-offset=-2 \
        -video_track_timescale 600 -movflags +faststart -f mov "$1"
}

mkdir -p "$(dirname "$movie")"
if [[ -n $cached && -s $cached ]]; then
    place "$cached" "$movie"
    exit
fi

scratch=$(mktemp "$(dirname "$movie")/.intro-XXXXXX")
encode "$scratch"
chmod 644 "$scratch"
mv "$scratch" "$movie"
# The cache only saves time: none, or one that cannot be written, is no fault.
if [[ -n $cached ]]; then
    { mkdir -p "$(dirname "$cached")" && place "$movie" "$cached"; } 2> /dev/null || true
fi
