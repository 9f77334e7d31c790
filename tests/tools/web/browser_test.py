#!/usr/bin/env python3
"""Drives fp-demo's web view from headless Chromium through chromedriver.

Usage: browser_test.py FP_DEMO ARTIFACT_DIR
Exit 77 (a CTest skip) when chromium or chromedriver is not installed.
"""
import base64
import json
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import urllib.request

SKIP = 77
# Network row, address row, then the address typed on the keypad, then commit.
NAV_KEYS = ["\ue015", "\ue007", "\ue015", "\ue007"]  # ArrowDown Enter ArrowDown Enter
PAD_DIGITS = "192168001020"
ADDRESS_ROW = ">192.168.1.20"

# Loopback only: never through a proxy from the environment.
OPENER = urllib.request.build_opener(urllib.request.ProxyHandler({}))


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def wait_for(what, check, seconds=60.0):
    end = time.monotonic() + seconds
    while True:
        value = check()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError("timed out waiting for " + what)
        time.sleep(0.05)


class Driver:
    """The few WebDriver calls the test needs, over plain HTTP."""

    def __init__(self, port):
        self.base = "http://127.0.0.1:%d" % port
        self.session = None

    def call(self, method, path, body=None):
        data = None if body is None else json.dumps(body).encode()
        req = urllib.request.Request(self.base + path, data=data, method=method,
                                     headers={"Content-Type": "application/json"})
        with OPENER.open(req, timeout=60) as r:
            return json.loads(r.read().decode())["value"]

    def start(self, profile):
        args = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                "--disable-background-networking", "--disable-component-update",
                "--disable-sync", "--no-proxy-server", "--window-size=1100,640",
                "--user-data-dir=" + profile]
        caps = {"capabilities": {"alwaysMatch": {
            "browserName": "chrome",
            "goog:chromeOptions": {"binary": shutil.which("chromium"), "args": args}}}}
        self.session = self.call("POST", "/session", caps)["sessionId"]

    def s(self, path):
        return "/session/%s%s" % (self.session, path)

    def get(self, url):
        self.call("POST", self.s("/url"), {"url": url})

    def js(self, script):
        return self.call("POST", self.s("/execute/sync"), {"script": script, "args": []})

    def press(self, key):
        actions = [{"type": "keyDown", "value": key}, {"type": "pause", "duration": 30},
                   {"type": "keyUp", "value": key}]
        self.call("POST", self.s("/actions"),
                  {"actions": [{"type": "key", "id": "kbd", "actions": actions}]})

    def click(self, css):
        el = self.call("POST", self.s("/element"), {"using": "css selector", "value": css})
        self.call("POST", self.s("/element/%s/click" % list(el.values())[0]), {})

    def screenshot(self, path):
        with open(path, "wb") as f:
            f.write(base64.b64decode(self.call("GET", self.s("/screenshot"))))

    def quit(self):
        if self.session:
            try:
                self.call("DELETE", self.s(""))
            except OSError:
                pass


ROWS = "return Array.from(document.querySelectorAll('#lcd .row')).map(r => r.textContent);"


def main():
    demo, artifacts = sys.argv[1], sys.argv[2]
    chromium, chromedriver = shutil.which("chromium"), shutil.which("chromedriver")
    if not chromium or not chromedriver:
        print("chromium or chromedriver is not installed: skipping")
        return SKIP
    try:
        socket.getaddrinfo("localhost", None)
    except OSError:
        # chromedriver reaches the browser it starts at "localhost"; without
        # it the session fails with a bare "unable to connect to renderer".
        print("the name localhost does not resolve (no /etc/hosts?): chromedriver needs it")
        return 1
    os.makedirs(artifacts, exist_ok=True)
    work = tempfile.mkdtemp(prefix="fp-web-test-")
    out_path = os.path.join(work, "demo.out")
    procs = []
    driver = None
    try:
        with open(out_path, "w") as out:
            demo_proc = subprocess.Popen(
                [demo, "--db", os.path.join(work, "settings.db"), "--log",
                 os.path.join(work, "demo.log"), "--web", "127.0.0.1:0",
                 "--print-var", "net.ipAddress"],
                stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT)
        procs.append(demo_proc)

        def printed_url():
            with open(out_path) as f:
                for line in f:
                    if line.startswith("fp-demo: open http://"):
                        return line.split()[2]
            if demo_proc.poll() is not None:
                raise AssertionError("fp-demo ended early:\n" + open(out_path).read())
            return None
        url = wait_for("fp-demo's address", printed_url, 60)

        port = free_port()
        procs.append(subprocess.Popen([chromedriver, "--port=%d" % port],
                                      stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        driver = Driver(port)

        def driver_up():
            try:
                return driver.call("GET", "/status")["ready"]
            except OSError:
                return False
        wait_for("chromedriver", driver_up, 30)
        driver.start(os.path.join(work, "profile"))
        live = lambda: driver.js("return document.body.dataset.live === 'yes' && "
                                 "document.body.dataset.access === 'press';")
        driver.get(url)
        # Under a sanitizer on a loaded machine the first connection can be
        # slow; a page that is not live yet is loaded once more, as a user would.
        try:
            wait_for("the page to go live with keys enabled", live, 45)
        except AssertionError:
            driver.get(url)
            wait_for("the page to go live with keys enabled (reloaded)", live, 90)

        def after(action):
            before = driver.js(ROWS)
            action()
            # Every key of this walk changes the display; wait until it did.
            return wait_for("the display to change", lambda: driver.js(ROWS) != before, 60)

        for key in NAV_KEYS:
            after(lambda: driver.press(key))
        # A digit that matches the one already there changes nothing to wait
        # for; one socket keeps the keys in order, so they go in one after another.
        for digit in PAD_DIGITS:
            driver.click('#keypad button[data-key="%s"]' % digit)
        driver.click('#keypad button[data-key="ENTER"]')
        wait_for("the new address on the page",
                 lambda: any(ADDRESS_ROW in row for row in driver.js(ROWS)), 60)
        # The unit redraws its hints a moment after a commit: let it settle.
        settled = {"rows": None, "since": time.monotonic()}

        def quiet():
            rows = driver.js(ROWS)
            if rows != settled["rows"]:
                settled.update(rows=rows, since=time.monotonic())
            return time.monotonic() - settled["since"] > 1.0
        wait_for("the display to settle", quiet, 20)
        driver.screenshot(os.path.join(artifacts, "web-panel.png"))

        demo_proc.send_signal(signal.SIGTERM)
        assert demo_proc.wait(60) == 0, open(out_path).read()
        rows = driver.js(ROWS)  # the page keeps the last state it was sent
        text = open(out_path).read()
        # The emulator's own grid, as fp-demo prints it at the end.
        lines = text.split("== end [", 1)[1].splitlines()[1:]
        width = len(rows[0])
        grid = [line[1:1 + width] for line in lines[1:1 + len(rows)]]
        assert grid == rows, "page %r != emulator %r" % (rows, grid)
        assert "net.ipAddress=192.168.1.20\n" in text, text
        print("page rows match the emulator; net.ipAddress changed; screenshot in " + artifacts)
        return 0
    finally:
        if driver:
            driver.quit()
        for p in procs:
            if p.poll() is None:
                p.kill()
                p.wait()
        shutil.rmtree(work, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
