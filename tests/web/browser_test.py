#!/usr/bin/env python3
"""The web page and the web player in a real browser.

Headless chromium is driven over its DevTools protocol on a pipe (no port to share with
anyone); the pages are made by quillmark-cli from tests/data/fifteen.txt. Exit 0 when every
check holds, 1 with the failures listed, 77 when no chromium is installed (outside CI).
"""

import argparse
import base64
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time

CORRUPT = "Puzzle not in Quillmark format or is corrupt."


class Browser:
    """One headless chromium, spoken to with JSON messages ended by NUL on fds 3 and 4."""

    def __init__(self, chromium, profile):
        to_browser_r, self.to_browser = os.pipe()
        self.from_browser, from_browser_w = os.pipe()

        # The pipes' own ends are not inherited (Python opens them close-on-exec); only the
        # copies made as fds 3 and 4 reach the browser.
        def wire():
            read_end, write_end = os.dup(to_browser_r), os.dup(from_browser_w)  # out of 3 and 4's way
            os.dup2(read_end, 3)
            os.dup2(write_end, 4)

        self.process = subprocess.Popen(
            [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
             "--no-first-run", "--disable-background-networking", "--disable-component-update",
             "--disable-sync", "--remote-debugging-pipe", "--user-data-dir=" + profile,
             "--allow-file-access-from-files", "about:blank"],
            close_fds=False, preexec_fn=wire,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser_r)
        os.close(from_browser_w)
        self.buffer = b""
        self.next_id = 0
        self.events = []
        self.session = None

    def close(self):
        try:
            self.call("Browser.close", session=False)
        except Exception:
            pass
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()

    def _read_message(self, deadline):
        while b"\0" not in self.buffer:
            if time.time() > deadline:
                raise TimeoutError("the browser did not answer")
            chunk = os.read(self.from_browser, 1 << 16)
            if not chunk:
                raise RuntimeError("the browser closed its pipe")
            self.buffer += chunk
        message, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, params=None, session=True, timeout=30):
        self.next_id += 1
        message = {"id": self.next_id, "method": method, "params": params or {}}
        if session and self.session:
            message["sessionId"] = self.session
        os.write(self.to_browser, json.dumps(message).encode() + b"\0")
        deadline = time.time() + timeout
        while True:
            reply = self._read_message(deadline)
            if reply.get("id") == self.next_id:
                if "error" in reply:
                    raise RuntimeError("%s: %s" % (method, reply["error"]))
                return reply.get("result", {})
            self.events.append(reply)

    def wait_event(self, method, timeout=30):
        deadline = time.time() + timeout
        while True:
            for i, event in enumerate(self.events):
                if event.get("method") == method:
                    return self.events.pop(i)
            self.events.append(self._read_message(deadline))

    def open_page(self):
        target = self.call("Target.createTarget", {"url": "about:blank"})["targetId"]
        self.session = self.call("Target.attachToTarget", {"targetId": target, "flatten": True})["sessionId"]
        for domain in ("Page", "Runtime", "Network", "Log", "DOM"):
            self.call(domain + ".enable")

    def navigate(self, url):
        self.events = [e for e in self.events if e.get("method") != "Page.loadEventFired"]
        self.call("Page.navigate", {"url": url})
        self.wait_event("Page.loadEventFired")

    def reload(self):
        self.events = [e for e in self.events if e.get("method") != "Page.loadEventFired"]
        self.call("Page.reload")
        self.wait_event("Page.loadEventFired")

    def eval(self, expression):
        result = self.call("Runtime.evaluate", {"expression": expression, "returnByValue": True,
                                                "awaitPromise": True})
        if "exceptionDetails" in result:
            raise RuntimeError("script failed: %s" % result["exceptionDetails"])
        return result["result"].get("value")

    def click_at(self, x, y):
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", {"type": kind, "x": x, "y": y, "button": "left",
                                                   "clickCount": 1})

    def click(self, selector):
        box = self.eval("(() => { const e = document.querySelector(%s); e.scrollIntoView({block: 'nearest'});"
                        " const r = e.getBoundingClientRect();"
                        " return [r.left + r.width / 2, r.top + r.height / 2]; })()" % json.dumps(selector))
        self.click_at(box[0], box[1])

    KEYS = {"Tab": 9, "Backspace": 8, "ArrowRight": 39, "ArrowLeft": 37, "ArrowDown": 40,
            "ArrowUp": 38, "Escape": 27, "Enter": 13, "Delete": 46, " ": 32}

    def key(self, key, shift=False):
        params = {"type": "keyDown", "key": key, "modifiers": 8 if shift else 0}
        if key in self.KEYS:
            params["windowsVirtualKeyCode"] = self.KEYS[key]
            if key == " ":
                params["text"] = " "
        else:
            params["text"] = key
        self.call("Input.dispatchKeyEvent", params)
        self.call("Input.dispatchKeyEvent", {"type": "keyUp", "key": key, "modifiers": params["modifiers"]})

    def type(self, text):
        for ch in text:
            self.key(ch)

    def screenshot(self, path, width, height, mobile):
        self.call("Emulation.setDeviceMetricsOverride", {"width": width, "height": height,
                                                         "deviceScaleFactor": 1, "mobile": mobile})
        time.sleep(0.2)
        full = self.eval("[document.documentElement.scrollWidth, document.documentElement.scrollHeight]")
        shot = self.call("Page.captureScreenshot", {"format": "png", "captureBeyondViewport": True,
                                                    "clip": {"x": 0, "y": 0, "width": full[0],
                                                             "height": full[1], "scale": 1}})
        with open(path, "wb") as f:
            f.write(base64.b64decode(shot["data"]))
        return full[0]


class Checks:
    def __init__(self):
        self.failures = []

    def equal(self, what, got, expected):
        if got != expected:
            self.failures.append("%s: got %r, expected %r" % (what, got, expected))

    def true(self, what, value):
        if not value:
            self.failures.append(what)


def run_cli(cli, *args):
    subprocess.run([cli] + list(args), check=True, stdout=subprocess.PIPE)


def problems(browser):
    """Console errors, uncaught exceptions and requests that leave the page's own file."""
    found = []
    for event in browser.events:
        method, params = event.get("method"), event.get("params", {})
        if method == "Runtime.exceptionThrown":
            found.append("exception: %s" % params["exceptionDetails"].get("text"))
        elif method == "Runtime.consoleAPICalled" and params.get("type") in ("error", "warning", "assert"):
            found.append("console %s: %s" % (params["type"], params.get("args")))
        elif method == "Log.entryAdded" and params["entry"].get("level") == "error":
            found.append("log: %s" % params["entry"].get("text"))
        elif method == "Network.requestWillBeSent":
            url = params["request"]["url"]
            if not url.startswith(("file:", "data:", "about:")):
                found.append("network request: %s" % url)
    browser.events = []
    return found


def solution_at(words, c, r):
    for w in words:
        dc, dr = (1, 0) if w["direction"] == "across" else (0, 1)
        for k, letter in enumerate(w["answer"]):
            if (w["column"] + k * dc, w["row"] + k * dr) == (c, r):
                return letter
    return None


def cell(c, r):
    return '#grid [data-column="%d"][data-row="%d"]' % (c, r)


def cell_text(browser, c, r):
    return browser.eval("document.querySelector(%s).textContent" % json.dumps(cell(c, r)))


def current_square(browser):
    return browser.eval("(() => { const c = document.querySelector('#grid .cell.current');"
                        " return [Number(c.dataset.column), Number(c.dataset.row)]; })()")


def exported_page(browser, work, info, checks, shots):
    words = info["entries"]
    browser.navigate("file://" + os.path.join(work, "fifteen.html"))
    checks.equal("page title", browser.eval("document.title"), "fifteen")
    checks.equal("byline", browser.eval("document.getElementById('byline').textContent"), info["byline"])
    checks.equal("squares", browser.eval("document.querySelectorAll('#grid [data-column][data-row]').length"), 225)
    listed = browser.eval("Array.from(document.querySelectorAll('#across-list li, #down-list li'))"
                          ".map(li => li.querySelector('.clue-number').textContent + ' ' +"
                          " li.querySelector('.clue-text').textContent)")
    in_lists = sorted(words, key=lambda w: (w["direction"] != "across", w["number"]))
    checks.equal("clue lists", listed, ["%d %s" % (w["number"], w["clue"]) for w in in_lists])
    checks.equal("injected scripts", browser.eval("document.scripts.length"), 2)
    checks.equal("labelled squares",
                 browser.eval("Array.from(document.querySelectorAll('#grid [data-column]'))"
                              ".every(c => c.getAttribute('aria-label'))"), True)

    # Click a square and type a word: lower case comes out as capitals, the cursor follows.
    first = words[0]
    browser.click(cell(1, 1))
    if browser.eval("document.querySelector('#across-list li.active') === null"):
        browser.click(cell(1, 1))  # the same square again turns the direction
    browser.type(first["answer"].lower())
    checks.equal("typed word", "".join(cell_text(browser, c, 1) for c in range(1, len(first["answer"]) + 1)),
                 first["answer"])
    checks.equal("number not in the square's text", cell_text(browser, 1, 1), first["answer"][0])

    # Tab and Shift+Tab go from word to word; the arrows move the cursor.
    browser.key("Tab")
    checks.equal("Tab goes to the next across clue",
                 browser.eval("document.querySelector('#across-list li.active .clue-number').textContent"),
                 str([w for w in words if w["direction"] == "across"][1]["number"]))
    browser.key("Tab", shift=True)
    checks.equal("Shift+Tab comes back", current_square(browser), [1, 1])
    browser.key("ArrowDown")
    browser.key("ArrowDown")
    checks.equal("the first arrow down turns, the second moves", current_square(browser), [1, 2])

    # A wrong letter is marked by Check Puzzle; the accent of the puzzle's language is typed.
    accented = [w for w in words if w["direction"] == "across" and w["row"] == 3][0]
    browser.click("#across-list li[value=\"%d\"]" % accented["number"])
    checks.equal("a clicked clue goes to its word", current_square(browser), [1, 3])
    browser.type("q")
    browser.key("ArrowRight")
    browser.key("é")
    checks.equal("accented capital", cell_text(browser, 3, 3), "É")
    browser.click('button[data-action="check"][data-scope="puzzle"]')
    checks.equal("wrong squares", browser.eval(
        "Array.from(document.querySelectorAll('#grid .wrong')).map(c => c.dataset.column + ',' + c.dataset.row)"),
        ["1,3"] if accented["answer"][0] != "Q" else [])
    checks.true("check announces", "wrong" in browser.eval("document.querySelector('[role=status]').textContent"))

    # The clock stops while paused.
    browser.click("#pause-button")
    paused_at = browser.eval("document.getElementById('clock').textContent")
    time.sleep(1.5)
    checks.equal("paused clock", browser.eval("document.getElementById('clock').textContent"), paused_at)
    checks.equal("paused grid is covered", browser.eval("document.getElementById('paused-cover').hidden"), False)
    browser.click("#pause-button")

    # Reveal a square.
    browser.click(cell(15, 15))
    browser.click('button[data-action="reveal"][data-scope="square"]')
    checks.equal("revealed square", cell_text(browser, 15, 15), solution_at(words, 15, 15))
    checks.true("revealed square is marked",
                browser.eval("document.querySelector(%s).classList.contains('revealed')" % json.dumps(cell(15, 15))))

    # Progress survives a reload.
    before = browser.eval("Array.from(document.querySelectorAll('#grid .cell')).map(c => c.textContent).join('')")
    browser.reload()
    after = browser.eval("Array.from(document.querySelectorAll('#grid .cell')).map(c => c.textContent).join('')")
    checks.equal("letters after reload", after, before)
    checks.true("some letters were kept", len(after) > len(first["answer"]))

    # Keyboard only: Esc leaves the grid for the tools, Tab comes back to it.
    browser.key("Escape")
    checks.equal("Esc goes to the tools", browser.eval("document.activeElement.id"), "pause-button")
    for _ in range(10):
        browser.key("Tab")
        if browser.eval("document.activeElement.id") == "entry":
            break
    checks.equal("Tab reaches the grid", browser.eval("document.activeElement.id"), "entry")

    if shots:
        browser.screenshot(os.path.join(shots, "web-desktop-progress.png"), 1280, 900, False)

    # Complete the puzzle from the clue lists and see it solved.
    for word in in_lists:
        browser.click("#%s-list li[value=\"%d\"]" % (word["direction"], word["number"]))
        c, r = current_square(browser)
        at = (c - word["column"]) + (r - word["row"])
        browser.type(word["answer"][at:].lower())
    status = browser.eval("document.querySelector('[role=status]').textContent")
    checks.true("solved is shown (status %r)" % status, status.startswith("Solved"))
    checks.equal("problems on the exported page", problems(browser), [])

    # Paper gets the blank puzzle and its clues, without the tools. Capital É is in the
    # grid only, so it must not be printed.
    pdf = os.path.join(work, "printed.pdf")
    with open(pdf, "wb") as f:
        f.write(base64.b64decode(browser.call("Page.printToPDF")["data"]))
    printed = subprocess.run(["pdftotext", "-enc", "UTF-8", pdf, "-"], check=True,
                             stdout=subprocess.PIPE).stdout.decode()
    checks.true("printed clues", "ACROSS" in printed and "Clue for 59 Across" in printed)
    checks.true("printed page has no letters in the grid", "É" not in printed)
    checks.true("printed page has no tools", "Reveal" not in printed and "Pause" not in printed)

    if shots:
        width = browser.screenshot(os.path.join(shots, "web-desktop.png"), 1280, 900, False)
        checks.equal("desktop page fits its width", width, 1280)
        browser.call("Runtime.evaluate", {"expression": "window.scrollTo(0, 0)"})
        width = browser.screenshot(os.path.join(shots, "web-phone.png"), 390, 844, True)
        checks.equal("phone page fits its width", width, 390)
        side = browser.eval("[document.getElementById('grid').getBoundingClientRect().width,"
                            " document.querySelector('.clue-lists').getBoundingClientRect().top >"
                            " document.getElementById('grid').getBoundingClientRect().bottom]")
        checks.true("phone: the clues stand under the grid", side[1])
        browser.call("Emulation.clearDeviceMetricsOverride")


def player_page(browser, work, info, checks):
    browser.navigate("file://" + os.path.join(work, "player.html"))
    checks.equal("player shows its loader", browser.eval("document.getElementById('loader').hidden"), False)

    def load(name, drop=False):
        path = os.path.join(work, name)
        if drop:
            data = {"items": [], "files": [path], "dragOperationsMask": 1}
            for kind in ("dragEnter", "dragOver", "drop"):
                browser.call("Input.dispatchDragEvent", {"type": kind, "x": 300, "y": 300, "data": data})
        else:
            document = browser.call("DOM.getDocument")["root"]["nodeId"]
            node = browser.call("DOM.querySelector", {"nodeId": document, "selector": "#file-input"})["nodeId"]
            browser.call("DOM.setFileInputFiles", {"nodeId": node, "files": [path]})
        before = browser.eval("document.getElementById('title').textContent")
        for _ in range(100):
            if browser.eval("document.getElementById('title').textContent !== %s ||"
                            " document.getElementById('load-error').textContent !== ''" % json.dumps(before)):
                return
            time.sleep(0.05)

    load("old.xwd", drop=True)
    checks.equal("version 5 file shown", browser.eval("document.getElementById('player').hidden"), False)
    checks.equal("version 5 title", browser.eval("document.getElementById('title').textContent"), "old")
    checks.equal("version 5 byline", browser.eval("document.getElementById('byline').textContent"),
                 "Zoë O'Brien & “Friends” <crew>")
    checks.equal("version 5 squares", browser.eval("document.querySelectorAll('#grid .cell:not(.block)').length"),
                 225 - info["blackSquares"])
    checks.equal("version 5 clue", browser.eval("document.querySelector('#down-list li[value=\"3\"] .clue-text')"
                                                ".textContent"), "Café “crème”, ‘naïve’ façade — ½ off")
    browser.click(cell(3, 3))
    browser.key("é")
    checks.equal("version 5 language admits É", cell_text(browser, 3, 3), "É")

    load("corrupt.xwd")
    checks.equal("corrupt file message", browser.eval("document.getElementById('load-error').textContent"), CORRUPT)
    checks.equal("corrupt file keeps the puzzle in hand", cell_text(browser, 3, 3), "É")
    browser.reload()
    load("corrupt.xwd")
    checks.equal("corrupt file as the first", browser.eval("document.getElementById('load-error').textContent"), CORRUPT)
    checks.equal("no grid without a puzzle", browser.eval("document.getElementById('player').hidden"), True)
    checks.equal("problems on the player page", problems(browser), [])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--cli", required=True)
    parser.add_argument("--fixtures", required=True)
    parser.add_argument("--chromium", default=shutil.which("chromium") or "")
    parser.add_argument("--shots", help="folder for screenshots at desktop and phone widths")
    args = parser.parse_args()
    if not args.chromium:
        print("chromium is not installed")
        return 1 if os.environ.get("CI") else 77

    work = tempfile.mkdtemp(prefix="quillmark-web-")
    browser = None
    checks = Checks()
    try:
        run_cli(args.cli, "import", os.path.join(args.fixtures, "fifteen.txt"), os.path.join(work, "fifteen.xwd"))
        run_cli(args.cli, "export-web", os.path.join(work, "fifteen.xwd"), os.path.join(work, "fifteen.html"))
        run_cli(args.cli, "convert", "--version5", os.path.join(work, "fifteen.xwd"), os.path.join(work, "old.xwd"))
        run_cli(args.cli, "generate-player", os.path.join(work, "player.html"))
        with open(os.path.join(work, "corrupt.xwd"), "wb") as f:
            f.write(b"not a puzzle\n" * 100)
        info = json.loads(subprocess.run([args.cli, "info", "--json", os.path.join(work, "fifteen.xwd")],
                                         check=True, stdout=subprocess.PIPE).stdout)
        if args.shots:
            os.makedirs(args.shots, exist_ok=True)

        browser = Browser(args.chromium, os.path.join(work, "profile"))
        browser.open_page()
        browser.call("Emulation.setDeviceMetricsOverride", {"width": 1280, "height": 900,
                                                            "deviceScaleFactor": 1, "mobile": False})
        exported_page(browser, work, info, checks, args.shots)
        player_page(browser, work, info, checks)
    finally:
        if browser:
            browser.close()
        shutil.rmtree(work, ignore_errors=True)

    for failure in checks.failures:
        print("FAILED:", failure)
    print("%d failures" % len(checks.failures))
    return 1 if checks.failures else 0


if __name__ == "__main__":
    sys.exit(main())
