#!/usr/bin/python3
"""A folder of clips made into a library for a web server."""

import hashlib
import json
import os
import subprocess
import unittest

from tomcatto_process import Tomcatto

KEYS = {"": ["version", "generatedAt", "videos"],
        "entry": ["id", "slug", "title", "video", "thumbnail", "sourceHash"],
        "video": ["url", "sizeBytes", "durationSec", "width", "height", "codec", "loop"],
        "loop": ["mode", "crossfadeSec", "detection", "seamSSIM", "confidence", "fps"],
        "thumbnail": ["url", "sizeBytes", "width", "fps", "durationSec"]}


class PublishTest(unittest.TestCase):
    def setUp(self):
        self.tomcatto = Tomcatto()
        self.addCleanup(self.tomcatto.close)
        self.clips = os.path.join(self.tomcatto.folder, "clips")
        self.output = os.path.join(self.tomcatto.folder, "out")
        os.mkdir(self.clips)

    def ffmpeg(self, *arguments):
        subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", *arguments], cwd=self.clips, check=True)

    def publish(self, status, url="https://cats.example/lib"):
        result = self.tomcatto.run("publish", self.clips, "--base-url", url, "--output", self.output)
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        return result

    def files(self):
        found = {}
        for folder, _, names in os.walk(self.output):
            for name in names:
                with open(os.path.join(folder, name), "rb") as file:
                    found[os.path.relpath(os.path.join(folder, name), self.output)] = file.read()
        return found

    def test_a_library(self):
        # Once round in two seconds, and a picture that only fills up.
        self.ffmpeg("-f", "lavfi", "-i", "testsrc=size=320x180:rate=30:duration=2", "-vf",
                    "loop=loop=-1:size=1,rotate=2*PI*t/2", "-t", "2", "-pix_fmt", "yuv420p", "01_Über den-Dächern.mp4")
        self.ffmpeg("-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=1.4", "-vf",
                    "fade=in:d=1.4", "-c:v", "libvpx-vp9", "02 dawn.webm")
        self.ffmpeg("-i", "01_Über den-Dächern.mp4", "-c", "copy", "-metadata:s:v:0", "rotate=90", "03-tall.mp4")
        with open(os.path.join(self.clips, "notes.txt"), "w", encoding="utf-8") as notes:
            notes.write("no video")
        self.publish(0)
        files = self.files()
        manifest = json.loads(files["manifest.json"])
        self.assertEqual(list(manifest), KEYS[""])
        for entry in manifest["videos"]:
            video, thumbnail = entry["video"], entry["thumbnail"]
            self.assertEqual([list(entry), list(video), list(video["loop"]), list(thumbnail)],
                             [KEYS["entry"], KEYS["video"], KEYS["loop"], KEYS["thumbnail"]])
            bytes_of = {kind: files.pop(f"{kind}/{entry['id']}{os.path.splitext(url)[1]}")
                        for kind, url in (("videos", video["url"]), ("previews", thumbnail["url"]))}
            self.assertEqual(entry["sourceHash"], hashlib.sha256(bytes_of["videos"]).hexdigest())
            self.assertEqual([video["sizeBytes"], thumbnail["sizeBytes"]], [len(b) for b in bytes_of.values()])
        self.assertEqual(list(files), ["manifest.json"], "nothing besides")
        roofs, dawn, tall = manifest["videos"]
        self.assertEqual((roofs["id"], roofs["title"]), ("über-den-dächern", "Über den Dächern"))
        self.assertEqual(roofs["video"]["url"], "https://cats.example/lib/videos/%C3%BCber-den-d%C3%A4chern.mp4")
        self.assertEqual([(v["video"]["durationSec"], v["video"]["width"], v["video"]["height"], v["video"]["codec"],
                           v["video"]["loop"]["fps"], v["thumbnail"]["width"], v["thumbnail"]["durationSec"])
                          for v in manifest["videos"]],
                         [(2, 320, 180, "h264", 30, 320, 2), (1, 160, 120, "vp9", 10, 160, 2),
                          (2, 180, 320, "h264", 30, 180, 2)])
        self.assertEqual([v["video"]["loop"]["mode"] for v in manifest["videos"]], ["seamless", "cut", "seamless"])
        self.assertGreater(roofs["video"]["loop"]["seamSSIM"], dawn["video"]["loop"]["seamSSIM"] + 0.2)
        preview = os.path.join(self.output, "previews", "tall.mp4")
        shown = subprocess.check_output(["ffprobe", "-v", "error", "-count_frames", "-of", "csv=p=0", "-show_entries",
                                         "stream=codec_name,width,height,r_frame_rate,nb_read_frames", preview], text=True)
        self.assertEqual(shown.split(), ["h264,180,320,12/1,24"])
        before = self.files()
        self.publish(0)
        self.assertEqual(self.files(), before, "the same clips make the same files")

    def test_refusals_write_nothing(self):
        self.assertIn("no videos", self.publish(1).stderr)
        self.ffmpeg("-f", "lavfi", "-i", "testsrc=size=64x64:rate=10:duration=1", "a cat.mp4")
        for url in ("http://cats.example/", "cats", "https://cats.example/?a=b", "file:///tmp/"):
            self.assertIn("https", self.publish(2, url).stderr)
        for name in ("A-Cat.mov", "broken.mp4", "2-....mp4"):
            path = os.path.join(self.clips, name)
            with open(path, "w", encoding="utf-8") as file:
                file.write("no video")
            self.assertIn(name, self.publish(4).stderr)
            os.remove(path)
        self.assertFalse(os.path.exists(self.output))
        with open(self.output, "w", encoding="utf-8"):
            self.assertIn(self.output, self.publish(4).stderr)


if __name__ == "__main__":
    unittest.main()
