"""What a remote library costs: a download beside curl's of the same file, and a long list."""

import contextlib
import functools
import http.server
import json
import os
import pathlib
import statistics
import tempfile
import threading

from figures import row
from measured_process import Places

ROUNDS = 3
FILM_BYTES = 1_000_000_000
LONG_LIST = 10_000


class Quiet(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


@contextlib.contextmanager
def library(places, videos):
    """A server on this machine with that many videos, all of them one file, and the application's address of it."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        with http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Quiet, directory=name)) as server:
            threading.Thread(target=server.serve_forever, daemon=True).start()
            base = f"http://127.0.0.1:{server.server_port}"
            loop = {"mode": "cut", "crossfadeSec": 0.5, "detection": "ssim", "seamSSIM": 0.98, "confidence": "high", "fps": 30}
            entries = [{"id": f"cat{number}", "slug": "cat", "title": f"Cat {number}",
                        "video": {"url": f"{base}/film", "sizeBytes": FILM_BYTES, "durationSec": 9, "width": 1920,
                                  "height": 1080, "codec": "h264", "loop": loop},
                        "thumbnail": {"url": f"{base}/small", "sizeBytes": 9, "width": 320, "fps": 10, "durationSec": 3},
                        "sourceHash": "h"} for number in range(videos)]
            (folder / "manifest.json").write_text(json.dumps({"version": 1, "generatedAt": "", "videos": entries}))
            with open(folder / "film", "wb") as film:
                film.truncate(FILM_BYTES)
            settings = pathlib.Path(places.folder, "etc", "studio.quillbay.Tomcatto")
            settings.mkdir(parents=True)
            (settings / "Info.json").write_text(json.dumps({"RemoteManifestURL": f"{base}/manifest.json"}))
            places.environment["XDG_CONFIG_DIRS"] = str(settings.parent)
            yield base
            server.shutdown()


def peak_of(name):
    """The most memory in use, in MB, by the running program of that name."""
    peak = 0
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):
            if (process / "comm").read_text().strip() == name:
                status = (process / "status").read_text()
                peak = max(peak, int(status.split("VmHWM:")[1].split()[0]) * 1024 / 1e6)
    return peak


def watched(name, action):
    """What the action gives, and the most memory that a program had meanwhile."""
    peaks, has_ended = [0.0], threading.Event()

    def watch():
        while not has_ended.wait(0.02):
            peaks.append(peak_of(name))

    watcher = threading.Thread(target=watch)
    watcher.start()
    try:
        return action(), max(peaks)
    finally:
        has_ended.set()
        watcher.join()


def downloads(build, _):
    program = str(build.resolve() / "tomcatto")
    with Places() as places, library(places, 1) as base:
        copy = os.path.join(places.folder, "copy")
        taken, peak = [], 0.0
        places.run(program, "videos", "refresh")
        for _ in range(ROUNDS):
            (ours, _), memory = watched("tomcatto-fetch", lambda: places.run(program, "videos", "download", "cat0"))
            places.run(program, "videos", "remove", "cat0")
            theirs, _ = places.run("sh", "-c", f"curl -so '{copy}' {base}/film && sync '{copy}'")
            os.remove(copy)
            taken.append((ours, theirs))
            peak = max(peak, memory)
    ours, theirs = (statistics.median(column) for column in zip(*taken))
    yield row("a download of 1 GB from this machine, until it is on disk", ours, "s", 1.25, ("`curl` and `sync`", theirs),
              "at least 0.8 × as fast", True)
    yield row("the same: memory of what fetches, at most", peak, "MB", 64)


def long_list(build, _):
    program = str(build.resolve() / "tomcatto")
    with Places() as places, library(places, LONG_LIST):
        places.run(program, "videos", "refresh")
        _, long = places.run(program, "videos", "refresh")
    with Places() as places, library(places, 1):
        places.run(program, "videos", "refresh")
        _, short = places.run(program, "videos", "refresh")
    yield row(f"a refresh of a list of {LONG_LIST:,} videos, processor time", long * 1e3, "ms",
              yardstick=("one video", short * 1e3))


MEASUREMENTS = (downloads, long_list)
