"""A session of Chromium over WebDriver, with nothing but Python's own library."""
import base64
import json
import os
import shutil
import signal
import socket
import subprocess
import time
import urllib.request

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
SECONDS_TO_START = 60


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Browser:
    """Headless, without a sandbox (a container's root has none), with a profile and downloads below `folder`."""

    def __init__(self, folder):
        self.folder = folder
        self.downloads = os.path.join(folder, "downloads")
        os.makedirs(self.downloads, exist_ok=True)
        port = free_port()
        self.driver = subprocess.Popen(
            [shutil.which("chromedriver") or "/usr/lib/chromium/chromedriver", f"--port={port}"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
        self.address = f"http://127.0.0.1:{port}"
        self.session = ""
        try:
            self._begin()
        except BaseException:
            self.close()
            raise

    def _begin(self):
        until = time.monotonic() + SECONDS_TO_START
        while True:
            try:
                self._call("GET", "/status")
                break
            except OSError:
                if time.monotonic() > until or self.driver.poll() is not None:
                    raise
                time.sleep(0.1)
        options = {
            "binary": "/usr/bin/chromium",
            "args": ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
                     "--disable-background-networking", f"--user-data-dir={self.folder}/profile"],
            "prefs": {"download.default_directory": self.downloads, "download.prompt_for_download": False},
        }
        capabilities = {"alwaysMatch": {"browserName": "chrome", "goog:chromeOptions": options,
                                        "unhandledPromptBehavior": "ignore"}}
        self.session = "/session/" + self._call("POST", "/session", {"capabilities": capabilities})["sessionId"]

    def _call(self, method, path, body=None):
        data = None if method == "GET" else json.dumps(body or {}).encode()
        request = urllib.request.Request(self.address + self.session + path, data, {"Content-Type": "application/json"},
                                         method=method)
        try:
            with urllib.request.urlopen(request, timeout=SECONDS_TO_START) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(path + ": " + json.load(error)["value"]["message"]) from None

    def open(self, path):
        self._call("POST", "/url", {"url": "file://" + path})

    def reload(self):
        self._call("POST", "/refresh")

    def run(self, script, *arguments):
        return self._call("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def element(self, selector):
        return self._call("POST", "/element", {"using": "css selector", "value": selector})[ELEMENT]

    def text(self, selector):
        return self.run("return document.querySelector(arguments[0]).textContent", selector)

    def click(self, selector):
        self._call("POST", f"/element/{self.element(selector)}/click")

    def type(self, keys):
        """To whatever has the focus."""
        steps = [{"type": kind, "value": key} for key in keys for kind in ("keyDown", "keyUp")]
        self._actions({"type": "key", "id": "keys", "actions": steps})

    def chord(self, modifier, key):
        self._actions({"type": "key", "id": "keys", "actions": [
            {"type": "keyDown", "value": modifier}, {"type": "keyDown", "value": key},
            {"type": "keyUp", "value": key}, {"type": "keyUp", "value": modifier}]})

    def touch(self, selector):
        self.run("document.querySelector(arguments[0]).scrollIntoView({block: 'center'})", selector)
        origin = {ELEMENT: self.element(selector)}
        self._actions({"type": "pointer", "id": "finger", "parameters": {"pointerType": "touch"}, "actions": [
            {"type": "pointerMove", "duration": 0, "origin": origin, "x": 0, "y": 0},
            {"type": "pointerDown", "button": 0}, {"type": "pointerUp", "button": 0}]})

    def _actions(self, device):
        self._call("POST", "/actions", {"actions": [device]})

    def choose_file(self, selector, path):
        self._call("POST", f"/element/{self.element(selector)}/value", {"text": path})

    def accept(self):
        """Says yes to the question that is shown; its text."""
        text = self._call("GET", "/alert/text")
        self._call("POST", "/alert/accept")
        return text

    def devtools(self, command, **parameters):
        return self._call("POST", "/goog/cdp/execute", {"cmd": command, "params": parameters})

    def resize(self, width, height, dark=False):
        self.devtools("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        scheme = {"name": "prefers-color-scheme", "value": "dark" if dark else "light"}
        self.devtools("Emulation.setEmulatedMedia", features=[scheme])

    def picture(self, path, whole=False):
        shot = self.devtools("Page.captureScreenshot", format="png", captureBeyondViewport=whole)
        with open(path, "wb") as file:
            file.write(base64.b64decode(shot["data"]))

    def paper(self):
        """The printed pages as PDF."""
        return base64.b64decode(self._call("POST", "/print", {}))

    def downloaded(self, count):
        """The paths of so many finished downloads, the latest last."""
        until = time.monotonic() + 10
        while time.monotonic() < until:
            paths = [os.path.join(self.downloads, name) for name in os.listdir(self.downloads)]
            done = [path for path in paths if path.endswith(".csv")]
            if len(done) == len(paths) == count:
                return sorted(done, key=os.path.getmtime)
            time.sleep(0.05)
        raise RuntimeError(f"{len(paths)} downloads, not {count}")

    def close(self):
        try:
            if self.session:
                self._call("DELETE", "")
        except (OSError, RuntimeError):
            pass
        # The driver's own group: the browser ends with it.
        os.killpg(self.driver.pid, signal.SIGKILL)
        self.driver.wait()
