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
            "ArrowUp": 38, "Escape": 27, "Enter": 13, "Delete": 46, " ": 32, "Home": 36, "End": 35}

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


def active_across(browser):
    return browser.eval("(document.querySelector('#across-list li.active .clue-number') || {}).textContent")


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

    # Past a word's last square the cursor goes on to the next word, so the last letter
    # stays; Backspace from a word's first square goes back into the word before.
    length = len(first["answer"])
    second = [w for w in words if w["direction"] == "across"][1]
    checks.equal("past the end, the next word", active_across(browser), str(second["number"]))
    browser.type("x")
    checks.equal("the last letter is not overwritten", cell_text(browser, length, 1), first["answer"][-1])
    checks.equal("the letter went to the next word", cell_text(browser, second["column"], second["row"]), "X")
    browser.key("Backspace")
    browser.key("Backspace")
    checks.equal("Backspace goes back into the word before", current_square(browser), [length, 1])
    checks.equal("and clears its last letter", cell_text(browser, length, 1), "")
    browser.key("Home")
    checks.equal("Home goes to the word's start", current_square(browser), [1, 1])
    browser.key("End")
    checks.equal("End goes to the word's end", current_square(browser), [length, 1])
    browser.type(first["answer"][-1].lower())

    # Tab and Shift+Tab go from word to word; the arrows move the cursor.
    browser.key("Tab", shift=True)
    checks.equal("Shift+Tab comes back", current_square(browser), [1, 1])
    browser.key("Tab")
    checks.equal("Tab goes to the next across clue", active_across(browser), str(second["number"]))
    browser.key("Tab", shift=True)
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
    grid_top = "document.getElementById('grid').getBoundingClientRect().top + scrollY"
    top_before = browser.eval(grid_top)
    browser.click('button[data-action="check"][data-scope="puzzle"]')
    checks.equal("a status message leaves the grid where it was", browser.eval(grid_top), top_before)
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
    checks.equal("paused clues are hidden",
                 browser.eval("getComputedStyle(document.getElementById('across-list')).visibility"), "hidden")
    browser.click("#pause-button")

    # Reveal a square.
    browser.click(cell(15, 15))
    browser.click('button[data-action="reveal"][data-scope="square"]')
    checks.equal("revealed square", cell_text(browser, 15, 15), solution_at(words, 15, 15))
    checks.true("revealed square is marked",
                browser.eval("document.querySelector(%s).classList.contains('revealed')" % json.dumps(cell(15, 15))))
    other = "Q" if solution_at(words, 15, 15) != "Q" else "Z"
    browser.type(other.lower())
    checks.equal("a revealed square refuses a letter", cell_text(browser, 15, 15), solution_at(words, 15, 15))

    # Progress survives a reload.
    before = browser.eval("Array.from(document.querySelectorAll('#grid .cell')).map(c => c.textContent).join('')")
    browser.reload()
    after = browser.eval("Array.from(document.querySelectorAll('#grid .cell')).map(c => c.textContent).join('')")
    checks.equal("letters after reload", after, before)
    checks.true("some letters were kept", len(after) > len(first["answer"]))

    # Esc leaves the grid for the tools, and a letter typed there still goes to the grid.
    browser.key("Escape")
    checks.equal("Esc goes to the tools", browser.eval("document.activeElement.id"), "pause-button")
    browser.type(first["answer"][0].lower())
    checks.equal("a letter after Esc goes to the grid", browser.eval("document.activeElement.id"), "entry")
    checks.equal("and lands in the square", current_square(browser), [2, 1])

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
    checks.true("the solver's letters are printed", "É" in printed)
    pages = subprocess.run(["pdfinfo", pdf], check=True, stdout=subprocess.PIPE).stdout.decode()
    checks.true("grid and clues on one page", "Pages:           1" in pages)
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


def phone_page(browser, work, info, checks, shots):
    """The exported page on a phone: taps, a sticky clue bar, and a keyboard that stays up."""
    words = info["entries"]
    browser.call("Emulation.setDeviceMetricsOverride", {"width": 390, "height": 844, "deviceScaleFactor": 1,
                                                        "mobile": True})
    browser.call("Emulation.setTouchEmulationEnabled", {"enabled": True, "maxTouchPoints": 1})
    browser.navigate("file://" + os.path.join(work, "fifteen.html"))
    browser.eval("localStorage.clear()")
    browser.reload()

    def tap(selector):
        box = browser.eval("(() => { const e = document.querySelector(%s); e.scrollIntoView({block: 'center'});"
                           " const r = e.getBoundingClientRect();"
                           " return [r.left + r.width / 2, r.top + r.height / 2]; })()" % json.dumps(selector))
        browser.call("Input.dispatchTouchEvent", {"type": "touchStart", "touchPoints": [{"x": box[0], "y": box[1]}]})
        browser.call("Input.dispatchTouchEvent", {"type": "touchEnd", "touchPoints": []})
        time.sleep(0.2)

    def in_sight():
        return browser.eval("(() => { const c = document.querySelector('#grid .cell.current').getBoundingClientRect();"
                            " const bar = document.getElementById('clue-bar').getBoundingClientRect();"
                            " return c.top >= Math.max(0, bar.bottom) - 1 && c.bottom <= innerHeight"
                            " && c.left >= 0 && c.right <= innerWidth; })()")

    # A clue tapped far down the lists brings its square back into sight, clear of the bar,
    # and the letters typed go there.
    checks.equal("phone: the typing field has the focus", browser.eval("document.activeElement.id"), "entry")
    time.sleep(1.2)
    checks.equal("phone: the clock waits for the first letter",
                 browser.eval("document.getElementById('clock').textContent"), "0:00")
    for word in ([w for w in words if w["direction"] == "down"][-1], [w for w in words if w["direction"] == "across"][0]):
        tap("#%s-list li[value=\"%d\"]" % (word["direction"], word["number"]))
        checks.equal("phone: a tapped clue moves the cursor to %d %s" % (word["number"], word["direction"]),
                     current_square(browser), [word["column"], word["row"]])
        checks.true("phone: %d %s's square is in sight below the clue bar" % (word["number"], word["direction"]),
                    in_sight())
        browser.type(word["answer"][:2].lower())
        checks.true("phone: the square typed into next is in sight", in_sight())
        checks.equal("phone: the letters went to %d %s" % (word["number"], word["direction"]),
                     cell_text(browser, word["column"], word["row"]), word["answer"][0])

    # A tap on a black square keeps the keyboard; the clue bar steps through the clues.
    black = browser.eval("(() => { const b = document.querySelector('#grid .cell.block');"
                         " return [Number(b.dataset.column), Number(b.dataset.row)]; })()")
    browser.eval("window.blurs = 0; document.getElementById('entry').addEventListener('blur', () => blurs++)")
    tap(cell(black[0], black[1]))
    browser.click(cell(black[0], black[1]))  # a press that would take the focus if let
    checks.equal("phone: a black square keeps the keyboard (the field is never left)",
                 browser.eval("[document.activeElement.id, blurs]"), ["entry", 0])
    before = active_across(browser)
    tap("#next-clue")
    checks.true("phone: the clue bar's next button moves on", active_across(browser) != before)
    checks.equal("phone: the clue bar's buttons keep the keyboard", browser.eval("document.activeElement.id"), "entry")
    checks.equal("phone: buttons a finger can hit", browser.eval(
        "Array.from(document.querySelectorAll('#player button')).filter(b => b.offsetParent)"
        ".filter(b => b.getBoundingClientRect().height < 44).map(b => b.id || b.textContent)"), [])
    checks.true("phone: clue numbers no smaller than 9 px", browser.eval(
        "parseFloat(getComputedStyle(document.querySelector('#grid [data-number]'), '::before').fontSize) >= 9"))
    if shots:
        browser.call("Runtime.evaluate", {"expression": "window.scrollTo(0, 0)"})
        browser.screenshot(os.path.join(shots, "web-phone-typing.png"), 390, 844, True)

    # Clear, after a question, empties the grid and puts the clock back.
    tap("#clear-button")
    checks.equal("phone: Clear asks first", browser.eval("document.getElementById('clear-dialog').open"), True)
    tap("#clear-confirm")
    checks.equal("phone: Clear empties the grid",
                 browser.eval("Array.from(document.querySelectorAll('#grid .letter')).map(l => l.textContent).join('')"),
                 "")
    checks.equal("phone: and the clock", browser.eval("document.getElementById('clock').textContent"), "0:00")
    checks.equal("problems on the phone", problems(browser), [])
    browser.call("Emulation.setTouchEmulationEnabled", {"enabled": False})
    browser.call("Emulation.setDeviceMetricsOverride", {"width": 1280, "height": 900, "deviceScaleFactor": 1,
                                                        "mobile": False})


def player_page(browser, work, info, checks):
    browser.navigate("file://" + os.path.join(work, "player.html"))
    checks.equal("player shows its loader", browser.eval("document.getElementById('loader').hidden"), False)

    def load(name, drop=False):
        path = os.path.join(work, name)
        browser.eval("document.getElementById('load-error').textContent = ''")
        before = browser.eval("document.getElementById('title').textContent")
        if drop:
            data = {"items": [], "files": [path], "dragOperationsMask": 1}
            for kind in ("dragEnter", "dragOver", "drop"):
                browser.call("Input.dispatchDragEvent", {"type": kind, "x": 300, "y": 300, "data": data})
        else:
            document = browser.call("DOM.getDocument")["root"]["nodeId"]
            node = browser.call("DOM.querySelector", {"nodeId": document, "selector": "#file-input"})["nodeId"]
            browser.call("DOM.setFileInputFiles", {"nodeId": node, "files": [path]})
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
    load("unfinished.xwd")
    refused = browser.eval("document.getElementById('load-error').textContent")
    checks.true("an unfinished puzzle is refused, saying so (%r)" % refused, "not finished" in refused)
    browser.reload()
    load("corrupt.xwd")
    checks.equal("corrupt file as the first", browser.eval("document.getElementById('load-error').textContent"), CORRUPT)
    checks.equal("no grid without a puzzle", browser.eval("document.getElementById('player').hidden"), True)
    checks.equal("problems on the player page", problems(browser), [])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--cli", required=True)
    parser.add_argument("--fixtures", required=True)
    parser.add_argument("--examples", help="the example puzzles, for a 13 x 13 printed with its real clues")
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
        with open(os.path.join(args.fixtures, "fifteen.txt"), encoding="utf-8") as f:
            text = f.read().replace("\nSEYT#", "\n.EYT#")  # the first square left empty
        with open(os.path.join(work, "unfinished.txt"), "w", encoding="utf-8") as f:
            f.write(text)
        run_cli(args.cli, "import", os.path.join(work, "unfinished.txt"), os.path.join(work, "unfinished.xwd"))
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
        phone_page(browser, work, info, checks, args.shots)
        player_page(browser, work, info, checks)
        if args.examples:
            thirteen = os.path.join(args.examples, "sunday-stroll.xwd")
            run_cli(args.cli, "export-web", thirteen, os.path.join(work, "stroll.html"))
            browser.navigate("file://" + os.path.join(work, "stroll.html"))
            browser.type("abc")
            pdf = os.path.join(work, "stroll.pdf")
            with open(pdf, "wb") as f:
                f.write(base64.b64decode(browser.call("Page.printToPDF")["data"]))
            pages = subprocess.run(["pdfinfo", pdf], check=True, stdout=subprocess.PIPE).stdout.decode()
            checks.true("a 13 x 13 puzzle prints on one page with its clues", "Pages:           1" in pages)
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
