"""Movies that are made for what goes wrong with them."""

import struct
import subprocess

from harness import BOUND, movie_folder

IVF_HEADER = 32  # bytes; each frame has one of twelve: its size and its number
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


def _frames_of_ivf(stored):
    """The frames of an IVF file, packed as they are."""
    frames, at = [], IVF_HEADER
    while at < len(stored):
        size, _ = struct.unpack_from("<IQ", stored, at)
        frames.append(stored[at + 12 : at + 12 + size])
        at += 12 + size
    return frames


def _frame_of_ivf(number, frame):
    return struct.pack("<IQ", len(frame), number) + frame


def one_key_frame():
    """24 seconds in 4K whose only key frame is the first: the second, which VP8 may have as often as one likes, follows it 719
    times."""
    two = _made("two-frames.ivf", "-f", "lavfi", "-i", "color=c=gray:s=3840x2160:r=30", "-frames:v", "2", "-c:v", "libvpx",
                "-deadline", "realtime", "-cpu-used", "8").read_bytes()
    header, first, second = two[:IVF_HEADER], *_frames_of_ivf(two)
    whole = movie_folder() / "one-key-frame.ivf"
    whole.write_bytes(header + b"".join(_frame_of_ivf(number, second if number else first) for number in range(24 * 30)))
    return _made("one-key-frame.webm", "-i", str(whole), "-c", "copy")
