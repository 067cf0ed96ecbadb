"""A remote library from outside: the built program and a server that behaves, or does not."""

import gzip
import http.server
import json
import os
import random
import signal
import ssl
import subprocess
import sys
import threading
import time
import unittest
from concurrent.futures import ThreadPoolExecutor

from tomcatto_process import Tomcatto

FILM = bytes(range(256)) * 400


def entry(name, base, **changes):
    video = {"url": f"{base}/{name}.mp4", "sizeBytes": len(FILM), "durationSec": 9, "width": 640, "height": 360,
             "codec": "h264", "loop": {"mode": "cut", "crossfadeSec": 0}}
    small = {"url": f"{base}/{name}.small.mp4", "sizeBytes": 9, "width": 320, "fps": 10, "durationSec": 3}
    return {"id": name, "slug": name, "title": name.title(), "video": video, "thumbnail": small,
            "sourceHash": "h1", **changes}


class Server:
    """Serves the paths that it is told; a behaviour is bytes, or a function that gets the handler."""

    def __init__(self, authority=None):
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                server.asked.append(self.path)
                behaviour = server.paths.get(self.path, lambda handler: handler.send_error(404))
                try:
                    if isinstance(behaviour, bytes):
                        answer(self, behaviour)
                    else:
                        behaviour(self)
                except OSError:
                    pass

            def log_message(self, *_):
                pass

        self.paths, self.asked = {}, []
        self.http = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.http.daemon_threads = True
        if authority:
            context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            context.load_cert_chain(authority + ".pem", authority + ".key")
            self.http.socket = context.wrap_socket(self.http.socket, server_side=True)
        self.base = f"http{'s' if authority else ''}://127.0.0.1:{self.http.server_port}"
        threading.Thread(target=self.http.serve_forever, daemon=True).start()

    def publish(self, *names, **changes):
        for name in names:
            self.paths[f"/{name}.mp4"] = FILM
        self.paths["/manifest.json"] = json.dumps(
            {"version": 1, "generatedAt": "now", "videos": [entry(name, self.base, **changes) for name in names]}).encode()
        return self.paths["/manifest.json"]

    def close(self):
        self.http.shutdown()
        self.http.server_close()


def answer(handler, body, length=None, headers=(), status=200):
    handler.send_response(status)
    handler.send_header("Content-Length", str(len(body) if length is None else length))
    for name, value in headers:
        handler.send_header(name, value)
    handler.end_headers()
    handler.wfile.write(body)


def raw(*pieces, pause=0.0):
    def behave(handler):
        for piece in pieces:
            handler.wfile.write(piece)
            handler.wfile.flush()
            time.sleep(pause)
        handler.close_connection = True
    return behave


def leads_to(address):
    return lambda handler: answer(handler, b"", headers=[("Location", address)], status=302)


class RemoteLibrary(unittest.TestCase):
    def user(self, server, **environment):
        tomcatto = Tomcatto()
        self.addCleanup(tomcatto.close)
        folder = os.path.join(tomcatto.folder, "etc", "studio.quillbay.Tomcatto")
        os.makedirs(folder)
        with open(os.path.join(folder, "Info.json"), "w", encoding="utf-8") as file:
            json.dump({"RemoteManifestURL": server.base + "/manifest.json"}, file)
        tomcatto.environment.update(XDG_CONFIG_DIRS=os.path.join(tomcatto.folder, "etc"), **environment)
        tomcatto.cache = os.path.join(tomcatto.folder, "data", "Tomcatto", "RemoteVideoCache")
        return tomcatto

    def server(self, authority=None):
        server = Server(authority)
        self.addCleanup(server.close)
        return server

    def files(self, tomcatto):
        return sorted(os.listdir(tomcatto.cache)) if os.path.isdir(tomcatto.cache) else []

    def films(self, tomcatto):
        return [name for name in self.files(tomcatto) if name.endswith(".mp4")]

    def check(self, result, status, words=""):
        self.assertEqual(result.returncode, status, result.stdout + result.stderr)
        self.assertIn(words, result.stdout + result.stderr)

    def test_a_library_is_offered_kept_and_goes_on_without_its_server(self):
        server = self.server()
        server.publish(*"abcdefgh")
        tomcatto = self.user(server)
        tomcatto.start()
        tomcatto.wait_for(lambda: self.films(tomcatto) == [f"{name}.mp4" for name in "abcdef"])
        with open(os.path.join(tomcatto.cache, "a.mp4"), "rb") as film:
            self.assertEqual(film.read(), FILM)
        self.check(tomcatto.run("videos", "download", "h"), 0, "h is downloaded")
        self.check(tomcatto.run("videos", "download", "x"), 1, "no video \"x\"")
        self.check(tomcatto.run("videos", "deselect", "b"), 0)
        self.check(tomcatto.run("videos", "select", "g"), 1, "not downloaded")
        self.check(tomcatto.run("videos", "remove", "a"), 0)
        server.publish(*"bcdefgh", sourceHash="h2")
        self.check(tomcatto.run("videos", "refresh"), 0, "7 videos")
        tomcatto.wait_for(lambda: self.films(tomcatto) == [])
        self.check(tomcatto.run("videos", "download", "c"), 0)
        os.mkdir(os.path.join(tomcatto.cache, "d.mp4"))
        self.check(tomcatto.run("videos", "download", "d"), 4, "cannot be stored")
        self.assertEqual([name for name in self.files(tomcatto) if name.startswith(".")], [])
        server.paths.clear()
        self.check(tomcatto.run("videos", "refresh"), 1, "The list is the one it had last")
        self.assertEqual(tomcatto.end(), 0)
        server.close()
        self.check(tomcatto.run("videos", "refresh"), 1, "cannot be reached")
        self.check(tomcatto.run("videos", "deselect", "c"), 0)
        self.check(tomcatto.run("videos", "select", "d"), 1, "not downloaded")
        self.check(tomcatto.run("videos", "remove", "x"), 1, "no video \"x\"")
        lines = [line.split("\t") for line in tomcatto.run("videos", "list").stdout.splitlines()]
        self.assertEqual([line[0] for line in lines], list("bcdefgh"))
        self.assertEqual(lines[1][1:], ["-", "9.0", "C", os.path.join(tomcatto.cache, "c.mp4")])

    def test_a_server_that_misbehaves_gives_a_clear_status_and_leaves_nothing(self):
        server = self.server()
        text = server.publish("tom")
        elsewhere = self.server()
        elsewhere.publish("tom")
        head = b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n" % len(text)
        deep = b'{"version":1,"generatedAt":"","videos":' + b"[" * 8_000_000
        manifests = {
            "loop": leads_to("/manifest.json"), "elsewhere": leads_to("http://tomcatto.invalid/manifest.json"),
            "file": leads_to("file:///etc/passwd"), "short": lambda it: answer(it, text, len(text) + 1),
            "packed": lambda it: answer(it, gzip.compress(bytes(10**7)), headers=[("Content-Encoding", "gzip")]),
            "deep": deep, "huge": lambda it: answer(it, b" " * 2**20 * 17), "announced": lambda it: answer(it, b"", 10**15),
            "negative": raw(head.replace(b"%d" % len(text), b"-5") + text[:-9]), "nonsense": raw(b"\x00\xff" * 99),
            "chunks": raw(b"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nff\r\n", text[:9]),
            "slow": raw(head, *[text[at:at + 1] for at in range(40)], pause=1),
            "silent": lambda it: time.sleep(40), "keys": b'{"a":' + b"[{}," * 2_000_000,
            **{f"cut {at}": raw((head + text)[:at]) for at in (0, 1, 12, len(head) - 1, len(head), len(head) + 1,
                                                             len(head) + len(text) - 1)}}
        films = {
            "film cut": lambda it: answer(it, FILM[:-1], len(FILM)), "film head": lambda it: answer(it, b"", len(FILM)),
            "film silent": raw(b"HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n", b"x", pause=40),
            "film large": lambda it: answer(it, b"", 2_000_000_001), "film 500": lambda it: it.send_error(500),
            "film elsewhere": leads_to("http://tomcatto.invalid/tom.mp4")}

        def attempt(name, behaviour):
            each = self.server()
            each.publish("tom")
            each.paths["/tom.mp4" if name.startswith("film") else "/manifest.json"] = behaviour
            tomcatto = self.user(each)
            words = ("videos", "download", "tom") if name.startswith("film") else ("videos", "refresh")
            result = tomcatto.run(*words)
            left = self.files(tomcatto)
            each.paths["/tom.mp4"] = FILM
            return name, result, left, os.listdir(tomcatto.folder)

        with ThreadPoolExecutor(6) as pool:
            for name, result, left, folder in pool.map(lambda it: attempt(*it), {**films, **manifests}.items()):
                with self.subTest(name):
                    self.check(result, 1, "video")
                    self.assertNotIn("Sanitizer", result.stderr)
                    self.assertEqual(left, ["manifest.json"] if name.startswith("film") else [])
                    self.assertLessEqual(set(folder), {"config", "data", "cache", "run", "etc"})

    def test_only_a_known_authority_is_believed(self):
        folder = self.user(self.server()).folder
        certificate = os.path.join(folder, "authority")
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=127.0.0.1", "-addext",
                        "subjectAltName=IP:127.0.0.1", "-keyout", certificate + ".key", "-out", certificate + ".pem"],
                       check=True, capture_output=True)
        server = self.server(certificate)
        server.publish("tom")
        self.check(self.user(server).run("videos", "refresh"), 1, "cannot be reached")
        self.check(self.user(server, SSL_CERT_FILE=certificate + ".pem").run("videos", "download", "tom"), 0)

    def test_an_end_by_force_leaves_nothing_half(self):
        server = self.server()
        server.publish(*"abcdef")
        tomcatto = self.user(server)
        random.seed(seed := int(os.environ.get("TOMCATTO_SEED", random.randrange(10**6))))
        print("seed", seed, file=sys.stderr)
        for name in "abcdef":
            server.paths[f"/{name}.mp4"] = raw(b"HTTP/1.1 200 OK\r\nContent-Length: %d\r\n\r\n" % len(FILM),
                                               *[FILM[at:at + 4096] for at in range(0, len(FILM), 4096)], pause=0.01)
        for attempt in range(int(os.environ.get("TOMCATTO_DOWNLOAD_KILLS", 10))):
            tomcatto.start()
            tomcatto.wait_for(lambda: any(path.endswith(".mp4") for path in server.asked) or attempt > 0)
            for _ in range(3):
                tomcatto.run("videos", "deselect" if attempt % 2 else "select", "a")
            time.sleep(random.uniform(0, 0.6))
            if attempt % 3 == 2:
                self.assertEqual(tomcatto.end(), 0)
                self.assertEqual([name for name in self.files(tomcatto) if name.startswith(".")], [])
            else:
                self.assertEqual(tomcatto.end(signal.SIGKILL), -signal.SIGKILL)
            state = os.path.join(tomcatto.cache, "state.json")
            if os.path.exists(state):
                with open(state, encoding="utf-8") as file:
                    for known in json.load(file)["entries"]:
                        self.assertEqual(os.path.getsize(os.path.join(tomcatto.cache, known + ".mp4")), len(FILM))
        tomcatto.start()
        tomcatto.wait_for(lambda: self.files(tomcatto) == [*(f"{name}.mp4" for name in "abcdef"), "manifest.json",
                                                           "state.json"])
        self.assertNotIn("Sanitizer", tomcatto.output())


if __name__ == "__main__":
    unittest.main()
