"""Movies that are made for what goes wrong with them."""

import subprocess

from harness import BOUND, movie_folder

ENCODED = ["-c:v", "libx264", "-preset", "ultrafast", "-pix_fmt", "yuv420p"]


def _made(name, *words):
    """The movie of that name, made by ffmpeg where it is not there yet."""
    path = movie_folder() / name
    if not path.exists():
        subprocess.run(["ffmpeg", "-nostdin", "-v", "error", *words, str(path)], check=True, timeout=BOUND)
    return path


def streamed(path):
    """The same movie with its index in front, so that it can be played while it comes."""
    return _made(f"{path.stem}-streamed.mp4", "-i", str(path), "-c", "copy", "-movflags", "+faststart")


def heavy():
    """Some 3 MB of noise in 8 seconds, its index in front: what has been read ahead is soon used up."""
    source = "color=c=gray:s=320x240:r=10:d=8,noise=alls=60:allf=t"
    return _made("heavy.mp4", "-f", "lavfi", "-i", source, *ENCODED, "-b:v", "3M", "-maxrate", "3M", "-bufsize", "1M",
                 "-g", "10", "-movflags", "+faststart")


def without_duration():
    """The same movie as a camera sends it: its pictures one after the other, and no word of when they are shown or end."""
    return _made("bare.h264", "-i", str(heavy()), "-c", "copy", "-f", "h264")


def one_key_frame():
    """24 seconds in 4K whose only key frame is the first."""
    return _made("one-key-frame.mp4", "-f", "lavfi", "-i", "color=c=gray:s=3840x2160:r=30:d=0.04,loop=-1:1", "-t", "24", *ENCODED,
                 "-g", "100000", "-keyint_min", "100000", "-sc_threshold", "0")
