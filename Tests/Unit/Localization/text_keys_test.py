"""Whether the tables of texts and the sources that use them know the same keys."""

import collections
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]
TABLE = ROOT / "Resources" / "en.lproj" / "Localizable.strings"

# Texts that wait for the rooms that will show them, by the beginning of their keys.
WAITING = (
    "notifications.work_ended.body_minutes.",
    "stats.chart.today",
    "window.videos.delete.", "window.videos.download.", "window.videos.preview.", "window.videos.tile.", "button.undo",
)


def pattern(literal):
    """What a key in a source stands for: itself, its plural forms, or every key that it is a piece of."""
    text = re.sub(r"%\d", r"[a-zA-Z_]+", re.escape(literal))
    return re.compile(text + (".*" if re.search(r"%\d|[._]$", literal) else r"(\.one|\.other)?"))


class TextKeys(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.keys = set(re.findall(r'^"((?:[^"\\]|\\.)*)"\s*=', TABLE.read_text(), re.M))
        spaces = "|".join(sorted({re.escape(key.split(".")[0]) for key in cls.keys}))
        cls.literals = collections.defaultdict(set)
        for folder in ("Tomcatto", "QuillbayKit"):
            for path in (ROOT / folder).rglob("*"):
                if path.suffix in (".cpp", ".h", ".qml"):
                    source = re.sub(r"^\s*//.*", "", path.read_text(), flags=re.M)
                    # A file's name is not a key.
                    for literal in re.findall(rf'"((?:{spaces})\.(?!json")[^"\\]*)"', source):
                        cls.literals[literal].add(str(path.relative_to(ROOT)))
        cls.used = {literal: {key for key in cls.keys if pattern(literal).fullmatch(key)} for literal in cls.literals}

    def test_every_key_that_is_used_is_in_the_table(self):
        self.assertGreater(len(self.literals), 200)
        missing = {literal: sorted(self.literals[literal]) for literal, keys in self.used.items() if not keys}
        self.assertEqual(missing, {})

    def test_every_text_of_the_table_has_a_user(self):
        idle = self.keys.difference(*self.used.values())
        self.assertEqual(sorted(key for key in idle if not key.startswith(WAITING)), [])
        self.assertEqual([start for start in WAITING if not any(key.startswith(start) for key in idle)], [])


unittest.main()
