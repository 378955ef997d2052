#!/usr/bin/env python3
"""The answer page in a real browser, from hollin-batch back to hollin-batch.

Usage: answer_page_test.py PROGRAM_DIRECTORY PROBE SCRIPTS [PICTURES]. Prints its cases as GoogleTest does; with
PICTURES a folder is filled with the page in each size.
"""
import glob
import json
import os
import socket
import subprocess
import sys
import tempfile
import time
import unittest

from webdriver import Browser

programs, probe, scripts = (os.path.abspath(path) for path in sys.argv[1:4])
pictures = sys.argv[4] if len(sys.argv) > 4 else None
CONTROL = "\ue009"
DELETE, ENTER, TAB, RIGHT = "\ue017", "\ue007", "\ue004", "\ue014"
EQUAL = 8


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=120).stdout


class AnswerPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.directory = cls.folder.name
        for name in ("DB", "file"):
            os.mkdir(f"{cls.directory}/{name}")
        output(f"{programs}/hollin-database", "create", f"{cls.directory}/DB/Hollin.mdb", "--sample")
        output(probe, "rename", cls.directory)
        with open(f"{cls.directory}/file/questions.txt", "w", encoding="utf-8") as file:
            file.write("1 1 優れている\n")
        cls.batch("--answer-pages", "--evaluator", "2", "--evaluator", "3")
        cls.pages = sorted(glob.glob(f"{cls.directory}/file/*.html"), key=lambda path: "高橋" in path)
        cls.browser = Browser(cls.directory)
        cls.addClassCleanup(cls.browser.close)

    @classmethod
    def batch(cls, *arguments):
        return output(f"{programs}/hollin-batch", "--directory", cls.directory, "1", *arguments)

    def pairs(self):
        """The keys of the goal's pairs in their order, and the positions that the page shows."""
        return self.browser.run("""return [...document.querySelectorAll('.pair')].map((pair) =>
            [pair.id, [...pair.querySelectorAll('input')].findIndex((input) => input.checked)])""")

    def choice(self, key, position):
        return f"[id='{key}'] label:nth-child({position + 1}) input"

    def count(self):
        return self.browser.run("const bar = document.getElementById('progress'); return [bar.value, bar.max]")

    def test_arithmetic_is_the_programs_own(self):
        matrices = json.loads(output(probe, "matrices", "10000"))
        scale = [float(9 - p) for p in range(9)] + [self.single(1 / (p - 7)) for p in range(9, 17)]
        with open(f"{scripts}/judgement.js", encoding="utf-8") as file:
            found = self.browser.run(file.read() + """
                const [matrices, scale] = arguments;
                return matrices.map(({ n, positions }) => judgement.judge(positions.map((p) => scale[p]), n, scale));
            """, matrices, scale)
        verdicts = set()
        for ours, theirs in zip(matrices, found, strict=True):
            for figure in ("index", "ratio"):
                if ours[figure] is None:
                    self.assertIsNone(theirs[figure], ours)
                else:
                    self.assertAlmostEqual(ours[figure], theirs[figure], delta=1e-12, msg=ours)
            odd = theirs["odd"] and [theirs["odd"][name] for name in ("pair", "given", "suggested")]
            self.assertEqual(ours["odd"], odd, ours)
            self.assertEqual(ours["consistent"], theirs["isConsistent"], ours)
            verdicts.add((theirs["isConsistent"], odd is not None))
        self.assertEqual(verdicts, {(True, False), (True, True), (False, True)})

    @staticmethod
    def single(number):
        import struct
        return struct.unpack("f", struct.pack("f", number))[0]

    def test_what_is_filled_in_by_keys_clicks_and_touch_is_stored(self):
        browser = self.browser
        browser.open(self.pages[0])
        expected = {}
        keys = [key for key, _ in self.pairs()]
        # Keys: 3, 1/5 with a "1" before the slash, 1 and the next digit at once, deleted, taken back, full-width.
        browser.click("#next-open")
        browser.type("31/519" + "７")
        expected.update(zip(keys, [6, 12, EQUAL, 0, 2]))
        browser.type("4" + TAB)
        self.assertEqual([p for _, p in self.pairs()], [6, 12, EQUAL, 0, 2, 5])
        browser.run("document.querySelector(arguments[0]).focus()", self.choice(keys[0], 6))
        browser.type(DELETE)
        self.assertEqual(self.pairs()[0][1], -1)
        browser.chord(CONTROL, "z")
        browser.type(RIGHT)
        expected[keys[0]], expected[keys[5]] = 7, 5
        self.assertEqual(dict(self.pairs()), expected)
        self.assertIn("CI", browser.text("#verdict"))
        self.assertIn("優れていますか", browser.text("#question"))
        self.assertIn("のほうがかなり優れている（右が 5）", browser.text(f"[id='{keys[1]}'] .sentence"))

        browser.reload()
        self.assertEqual(self.count()[0], 6)
        keys = [key for key, _ in self.pairs()]
        self.assertIn("重要ですか", browser.text("#question"))
        self.assertNotIn(keys[0], expected)  # on to the first goal that is open
        for position, key in enumerate(keys):
            browser.click(self.choice(key, position + 3))
            expected[key] = position + 3
        browser.click("#next")
        for position, (key, _) in enumerate(self.pairs()):
            browser.touch(self.choice(key, 16 - position))
            expected[key] = 16 - position
        # Half of it goes on elsewhere.
        half = self.count()[0]
        browser.click("#save")
        saved = browser.downloaded(1)[0]
        browser.click("#erase")
        self.assertIn("消します", browser.accept())
        self.assertEqual(self.count()[0], 0)
        browser.choose_file("#load", saved)
        time.sleep(0.3)
        self.assertEqual(self.count()[0], half, browser.text("#told"))

        while self.count()[0] < self.count()[1]:
            browser.click("#next-open")
            shown = self.pairs()
            for number, (key, position) in enumerate(shown):
                if position < 0:
                    expected[key] = EQUAL - 1 - number % 8
            browser.type("".join(str(2 + number % 8) for number, (key, p) in enumerate(shown) if p < 0))
        browser.click("#save")
        self.assertIn("お返しください", browser.text("#told"))
        self.batch("--import", browser.downloaded(2)[1], "--replace")
        stored = {f"{goal}/{left}/{right}": value
                  for goal, left, right, value in json.loads(output(probe, "rows", self.directory, self.evaluator()))}
        for key, position in expected.items():
            value = 9 - position if position <= EQUAL else 1 / (position - 7)
            self.assertAlmostEqual(stored.pop(key), value, places=6, msg=key)
        self.assertEqual(stored, {})

        # Another evaluator's page takes neither these answers nor this file.
        browser.open(self.pages[1])
        self.assertEqual(self.count()[0], 0)
        browser.choose_file("#load", saved)
        time.sleep(0.3)
        self.assertIn("別の調査票", browser.text("#told"))
        self.assertEqual(self.count()[0], 0)

    def evaluator(self):
        return self.browser.run("return JSON.parse(document.getElementById('data').textContent).identity[2]")

    def test_names_do_nothing_and_nothing_leaves_the_page(self):
        browser = self.browser
        browser.open(self.pages[1])
        names = browser.run("return [...document.querySelectorAll('.name')].map((name) => name.textContent)")
        self.assertIn("\"引用, 'quoted' & <b>太字</b>", names)
        self.assertIn("{{data}}%1%2{{script}}", names)
        self.assertIn("長" * 400, names)
        self.assertEqual(browser.text("h1"), "</script><script>hacked=1</script>")
        with socket.create_server(("127.0.0.1", 0)) as server:
            server.settimeout(1)
            address = f"http://127.0.0.1:{server.getsockname()[1]}/"
            blocked = browser.run("""
                let blocked = 0;
                const attempts = [() => { new Image().src = arguments[0]; fetch(arguments[0]).catch(() => 0); },
                    () => document.body.append(Object.assign(document.createElement('script'), {text: 'hacked=1'})),
                    () => (document.body.innerHTML += '<p>')];
                for (const attempt of attempts) try { attempt(); } catch { ++blocked; }
                return [blocked, typeof hacked];""", address)
            with self.assertRaises(TimeoutError):
                server.accept()
        self.assertEqual(blocked, [2, "undefined"])

    def test_everyone_can_read_and_reach_everything_at_every_size(self):
        browser = self.browser
        browser.open(self.pages[1])
        browser.run("document.querySelectorAll('details').forEach((part) => (part.open = true))")
        with open(os.path.join(os.path.dirname(__file__), "faults.js"), encoding="utf-8") as file:
            faults = file.read()
        for width, height in ((320, 640), (768, 1024), (1366, 768)):
            for dark in (False, True):
                browser.resize(width, height, dark)
                self.assertEqual(browser.run(faults), [], f"{width} px, dark: {dark}")
                if pictures:
                    browser.run("scrollTo(0, 0)")
                    browser.picture(f"{pictures}/{width}-{'dark' if dark else 'light'}.png", True)
        paper = os.path.join(self.directory, "paper.pdf")
        with open(paper, "wb") as file:
            file.write(browser.paper())
        printed = output("pdftotext", "-layout", paper, "-")
        self.assertEqual(sum(line.count("9 8 7 6 5 4 3 2 1 2") for line in
                             (" ".join(line.split()) for line in printed.splitlines())), self.count()[1])


class Told(unittest.TextTestResult):
    """One line for each case, as the other test programs print them."""

    def startTest(self, test):
        super().startTest(test)
        self.began = time.monotonic()

    def tell(self, verdict, test):
        print(f"{verdict} {test.id().split('.', 1)[1]} ({(time.monotonic() - self.began) * 1000:.0f} ms)", flush=True)

    def addSuccess(self, test):
        self.tell("[       OK ]", test)

    def addFailure(self, test, err):
        super().addFailure(test, err)
        self.tell("[  FAILED  ]", test)

    def addError(self, test, err):
        super().addError(test, err)
        if hasattr(self, "began"):
            self.tell("[  FAILED  ]", test)


if __name__ == "__main__":
    runner = unittest.TextTestRunner(resultclass=Told, verbosity=0)
    unittest.main(argv=sys.argv[:1], testRunner=runner)
