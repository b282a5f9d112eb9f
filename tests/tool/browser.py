"""A headless browser for tests, driven by the WebDriver protocol (W3C) through chromedriver."""
import json
import subprocess
import tempfile
import urllib.error
import urllib.request

DRIVER = "/usr/bin/chromedriver"
BROWSER = "/usr/bin/chromium"
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"  # the protocol's name of a reference to an element
# Entries get their height when they come into view, which moves what is below them away from under the mouse.
SHOW = """
    const node = document.querySelector(arguments[0]);
    const frame = () => new Promise((resolve) => requestAnimationFrame(() => requestAnimationFrame(resolve)));
    return (async () => {
      for (let top = NaN; top !== node.getBoundingClientRect().top; await frame()) {
        node.scrollIntoView({ block: "center" });
        top = node.getBoundingClientRect().top;
      }
    })();"""
KEYS = {"Enter": "\ue007", "Escape": "\ue00c", "Down": "\ue015", "Up": "\ue013", "Tab": "\ue004"}
ARGUMENTS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-sync",
             "--disable-background-networking", "--disable-component-update", "--disable-dev-shm-usage"]


class Browser:
    """A browser with an empty profile. To be used in a with statement, which ends it."""

    def __enter__(self):
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.driver = subprocess.Popen([DRIVER, "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        try:
            self.base = f"http://127.0.0.1:{self._port()}"
            options = {"binary": BROWSER, "args": [*ARGUMENTS, f"--user-data-dir={self.profile.name}"]}
            capabilities = {"goog:chromeOptions": options, "goog:loggingPrefs": {"browser": "ALL"}}
            session = self._send("POST", "/session", {"capabilities": {"alwaysMatch": capabilities}})
            self.base += f"/session/{session['sessionId']}"
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        try:
            self._send("DELETE", "")
        finally:
            self._end()

    def _end(self):
        self.driver.terminate()
        self.driver.wait(timeout=60)
        self.driver.stdout.close()
        self.profile.cleanup()

    def _port(self):
        for line in self.driver.stdout:
            if "started successfully on port" in line:
                return int(line.rstrip(".\n").split()[-1])
        raise RuntimeError("chromedriver did not start")

    def _send(self, method, path, body=None):
        data = None if body is None else json.dumps(body).encode()
        request = urllib.request.Request(self.base + path, data, {"Content-Type": "application/json"}, method=method)
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))  # the driver is on this machine
        try:
            with opener.open(request, timeout=120) as response:
                return json.load(response)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(json.load(error)["value"]["message"]) from None

    def open(self, path):
        self._send("POST", "/url", {"url": path.as_uri()})

    def reload(self):
        self._send("POST", "/refresh", {})

    def run(self, script, *arguments):
        """What the script, the body of a function, returns; elements come as CSS selectors in its arguments."""
        return self._send("POST", "/execute/sync", {"script": script, "args": arguments})

    def click(self, selector):
        self.run(SHOW, selector)
        found = self._send("POST", "/element", {"using": "css selector", "value": selector})
        self._send("POST", f"/element/{found[ELEMENT]}/click", {})

    def press(self, *keys):
        """Presses keys one after the other: those of KEYS by name, else the characters of a text."""
        presses = [{"type": kind, "value": character} for key in keys for character in KEYS.get(key, key)
                   for kind in ("keyDown", "keyUp")]
        self._send("POST", "/actions", {"actions": [{"type": "key", "id": "keyboard", "actions": presses}]})

    def command(self, name, **parameters):
        """A command of the browser's own protocol."""
        return self._send("POST", "/goog/cdp/execute", {"cmd": name, "params": parameters})

    def set_width(self, width, height=800):
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def set_system_theme(self, theme):
        self.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": theme}])

    def messages(self):
        """What the console was told since the last call, errors and warnings of any kind."""
        return [entry["message"] for entry in self._send("POST", "/se/log", {"type": "browser"})]
