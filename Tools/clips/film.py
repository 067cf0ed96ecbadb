"""Turns painted frames and mixed sound into one mp4 with FFmpeg."""

import subprocess
import wave

import numpy as np

from motion import FPS
from noise import RATE
from sound import mix
from stage import HEIGHT, WIDTH

# x264's rate factor. It is low, and the first frame is the only key frame, so that the step from the last frame to the
# first is not larger than those within the clip: a key frame sets everything right at once, which can be seen.
QUALITY = 18

# What a break costs is mostly decoding. Two thirds of each picture stand still, and a decoder is done with them soonest
# when a run of them is a plain number (no CABAC) and a copy of the picture before (no pictures between two others, no
# weights, no filter of block edges, which find next to nothing to do at this quality). A thorough search for what moved
# makes up for most of the bytes.
EASY = "cabac=0:weightp=0:no-deblock=1:bframes=0:ref=4"

# Everything that may lead another machine to other bytes: the number of threads, faster but not quite equal arithmetic,
# the encoder's name and version.
SAME_EVERYWHERE = ["-threads", "2", "-map_metadata", "-1", "-fflags", "+bitexact", "-flags", "+bitexact"]

PICTURES = ["-f", "rawvideo", "-pixel_format", "bgr0", "-video_size", f"{WIDTH}x{HEIGHT}", "-framerate", str(FPS)]
COLOUR = "scale=in_range=pc:out_range=tv:out_color_matrix=bt709:flags=lanczos+accurate_rnd+full_chroma_int+bitexact"
TAGS = ["-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709", "-color_range", "tv"]


def write_sound(scene, path):
    """The scene's sound as 16-bit PCM. A whisper of noise hides the rounding, which is near at these levels."""
    signal = mix(scene.sound, scene.seconds)
    grain = np.random.default_rng(1)
    signal = signal * 32767 + grain.random(signal.shape) - grain.random(signal.shape)
    with wave.open(str(path), "wb") as file:
        file.setnchannels(2)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.clip(np.rint(signal), -32768, 32767).astype("<i2").tobytes())


def _ending(scene):
    return ["-c:a", "aac", "-b:a", "96k", "-t", str(scene.seconds), *SAME_EVERYWHERE, "-movflags", "+faststart",
            "-f", "mp4"]


def replace_sound(scene, sound, path):
    """Gives a finished film another sound and leaves its pictures as they are."""
    unfinished = path.with_suffix(".mp4.part")
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-i", str(path), "-i", str(sound), "-map", "0:v", "-map", "1:a",
                    "-c:v", "copy", *_ending(scene), str(unfinished)], check=True)
    unfinished.replace(path)


def write_film(scene, pictures, sound, path):
    """Encodes an iterable of frames (bytes) and a sound file. The group of pictures is closed, so that a player may jump
    back to the start at once."""
    unfinished = path.with_suffix(".mp4.part")
    command = ["ffmpeg", "-v", "error", "-y", *PICTURES, "-i", "-", "-i", str(sound), "-map", "0:v", "-map", "1:a",
               "-vf", f"{COLOUR},format=yuv420p", *TAGS,
               "-c:v", "libx264", "-profile:v", "high", "-level", "4.0", "-preset", "veryslow", "-tune", "animation",
               "-crf", str(QUALITY), "-g", str(scene.seconds * FPS),
               "-x264-params", f"{EASY}:open-gop=0:scenecut=0:aq-mode=3:lookahead-threads=1:cpu-independent=1",
               *_ending(scene), str(unfinished)]
    with subprocess.Popen(command, stdin=subprocess.PIPE) as encoder:
        for picture in pictures:
            encoder.stdin.write(picture)
        encoder.stdin.close()
        if encoder.wait():
            raise SystemExit(f"ffmpeg failed on {path.name}")
    unfinished.replace(path)


def write_poster(picture, path, cut="null"):
    """One frame as JPEG; `cut` is an FFmpeg filter."""
    path.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["ffmpeg", "-v", "error", "-y", *PICTURES, "-i", "-", "-frames:v", "1", "-vf", cut,
                    "-pix_fmt", "yuvj420p", "-q:v", "3", *SAME_EVERYWHERE, str(path)],
                   input=picture, check=True)
