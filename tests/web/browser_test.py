#!/usr/bin/env python3
"""The web page and the web player in headless chromium, driven over its DevTools protocol on a
pipe (no port to share); quillmark-cli makes the pages from tests/data/fifteen.txt. Exit 0 when
every check holds, 1 with the failures listed, 77 when no chromium is installed (outside CI)."""

import argparse, base64, json, os, shutil, subprocess, sys, tempfile, time  # noqa: E401

CORRUPT = "Puzzle not in Quillmark format or is corrupt."
failures = []


def equal(what, got, expected):
    if got != expected:
        failures.append("%s: got %r, expected %r" % (what, got, expected))


def true(what, value):
    equal(what, bool(value), True)


def output(*args):
    return subprocess.run(args, check=True, stdout=subprocess.PIPE).stdout.decode()


class Browser:
    """One headless chromium, spoken to with JSON messages ended by NUL on fds 3 and 4."""

    def __init__(self, chromium, profile):
        to_browser_r, self.to_browser = os.pipe()
        self.from_browser, from_browser_w = os.pipe()

        def wire():  # the pipes are close-on-exec: only these copies as fds 3 and 4 reach the browser
            read_end, write_end = os.dup(to_browser_r), os.dup(from_browser_w)  # out of 3 and 4's way
            os.dup2(read_end, 3)
            os.dup2(write_end, 4)

        self.process = subprocess.Popen(
            [chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--remote-debugging-pipe", "--user-data-dir=" + profile, "--allow-file-access-from-files", "about:blank"],
            close_fds=False, preexec_fn=wire, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser_r)
        os.close(from_browser_w)
        self.buffer, self.next_id, self.events, self.session = b"", 0, [], None

    def close(self):
        try:
            self.call("Browser.close", session=False)
            self.process.wait(timeout=10)
        except Exception:
            self.process.kill()

    def wait(self, matches, timeout=30):
        """The first message that `matches`; the others are kept as events."""
        deadline = time.time() + timeout
        for i, event in enumerate(self.events):
            if matches(event):
                return self.events.pop(i)
        while True:
            while b"\0" not in self.buffer:
                if time.time() > deadline:
                    raise TimeoutError("the browser did not answer")
                chunk = os.read(self.from_browser, 1 << 16)
                if not chunk:
                    raise RuntimeError("the browser closed its pipe")
                self.buffer += chunk
            text, self.buffer = self.buffer.split(b"\0", 1)
            message = json.loads(text)
            if matches(message):
                return message
            self.events.append(message)

    def call(self, method, params=None, session=True, timeout=30):
        self.next_id += 1
        message = {"id": self.next_id, "method": method, "params": params or {}}
        if session and self.session:
            message["sessionId"] = self.session
        os.write(self.to_browser, json.dumps(message).encode() + b"\0")
        reply = self.wait(lambda m: m.get("id") == message["id"], timeout)
        if "error" in reply:
            raise RuntimeError("%s: %s" % (method, reply["error"]))
        return reply.get("result", {})

    def open_page(self):
        target = self.call("Target.createTarget", {"url": "about:blank"})["targetId"]
        self.session = self.call("Target.attachToTarget", {"targetId": target, "flatten": True})["sessionId"]
        for domain in ("Page", "Runtime", "Network", "Log", "DOM"):
            self.call(domain + ".enable")

    def load(self, path=None):
        """The page in the file at `path`, or the current page again."""
        self.events = [e for e in self.events if e.get("method") != "Page.loadEventFired"]
        self.call("Page.navigate", {"url": "file://" + path}) if path else self.call("Page.reload")
        self.wait(lambda m: m.get("method") == "Page.loadEventFired")

    def eval(self, expression):
        result = self.call("Runtime.evaluate", {"expression": expression, "returnByValue": True,
                                                "awaitPromise": True})
        if "exceptionDetails" in result:
            raise RuntimeError("script failed: %s" % result["exceptionDetails"])
        return result["result"].get("value")

    def text(self, selector):
        return self.eval("document.querySelector(%s).textContent" % json.dumps(selector))

    def centre(self, selector, block):
        return self.eval("(() => { const e = document.querySelector(%s); e.scrollIntoView({block: '%s'});"
                         " const r = e.getBoundingClientRect(); return [r.left + r.width / 2, r.top + r.height / 2]; })()"
                         % (json.dumps(selector), block))

    def click(self, selector):
        x, y = self.centre(selector, "nearest")
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", {"type": kind, "x": x, "y": y, "button": "left", "clickCount": 1})

    def tap(self, selector):
        x, y = self.centre(selector, "center")
        self.call("Input.dispatchTouchEvent", {"type": "touchStart", "touchPoints": [{"x": x, "y": y}]})
        self.call("Input.dispatchTouchEvent", {"type": "touchEnd", "touchPoints": []})
        time.sleep(0.2)

    def key(self, key, shift=False):
        down = {"type": "keyDown", "key": key, "modifiers": 8 if shift else 0}
        if len(key) == 1:
            down["text"] = key  # the page reads the key's name; only a character types text
        self.call("Input.dispatchKeyEvent", down)
        self.call("Input.dispatchKeyEvent", {"type": "keyUp", "key": key, "modifiers": down["modifiers"]})

    def type(self, text):
        for ch in text:
            self.key(ch)

    def viewport(self, width, height, mobile=False):
        self.call("Emulation.setDeviceMetricsOverride",
                  {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": mobile})

    def page_width(self, width, height, mobile, shots, name):
        """The page's own width at a viewport of width x height; the whole page is kept in
        shots/name when a folder for screenshots is given."""
        self.viewport(width, height, mobile)
        time.sleep(0.2)
        full = self.eval("[document.documentElement.scrollWidth, document.documentElement.scrollHeight]")
        if shots:
            os.makedirs(shots, exist_ok=True)
            shot = self.call("Page.captureScreenshot", {"format": "png", "captureBeyondViewport": True, "clip": {
                "x": 0, "y": 0, "width": full[0], "height": full[1], "scale": 1}})
            with open(os.path.join(shots, name), "wb") as f:
                f.write(base64.b64decode(shot["data"]))
        return full[0]

    def print_pdf(self, path):
        """The page on paper: its text and how many pages it takes."""
        with open(path, "wb") as f:
            f.write(base64.b64decode(self.call("Page.printToPDF")["data"]))
        pages = [l for l in output("pdfinfo", path).splitlines() if l.startswith("Pages:")][0].split()[1]
        return output("pdftotext", "-enc", "UTF-8", path, "-"), int(pages)


def problems(browser):
    """Console errors, uncaught exceptions and requests that leave the page's own file."""
    found = []
    for event in browser.events:
        method, params = event.get("method"), event.get("params", {})
        if (method == "Runtime.exceptionThrown"
                or method == "Runtime.consoleAPICalled" and params.get("type") in ("error", "warning", "assert")
                or method == "Log.entryAdded" and params["entry"].get("level") == "error"
                or method == "Network.requestWillBeSent"
                and not params["request"]["url"].startswith(("file:", "data:", "about:"))):
            found.append("%s: %s" % (method, json.dumps(params)[:400]))
    browser.events = []
    return found


def cell(c, r):
    return '#grid [data-column="%d"][data-row="%d"]' % (c, r)


def current_square(browser):
    return browser.eval("(() => { const c = document.querySelector('#grid .cell.current');"
                        " return [Number(c.dataset.column), Number(c.dataset.row)]; })()")


def active_across(browser):
    return browser.eval("(document.querySelector('#across-list li.active .clue-number') || {}).textContent")


def clue(word):
    return '#%s-list li[value="%d"]' % (word["direction"], word["number"])


def focus(browser):
    return browser.eval("document.activeElement.id")


def text_at(c, r):
    return lambda browser: browser.text(cell(c, r))


def steps(browser, table):
    """Each row's keys pressed (a letter types itself, Shift+ holds Shift), then its reading checked."""
    for keys, what, read, expected in table:
        for key in keys.split():
            browser.key(key.removeprefix("Shift+"), shift=key.startswith("Shift+"))
        equal(what, read(browser), expected)


def exported_page(browser, work, info, shots):
    words = info["entries"]
    browser.load(os.path.join(work, "fifteen.html"))
    equal("byline", browser.text("#byline"), info["byline"])
    equal("squares", browser.eval("document.querySelectorAll('#grid [data-column][data-row]').length"), 225)
    listed = browser.eval("Array.from(document.querySelectorAll('#across-list li, #down-list li'))"
                          ".map(li => li.querySelector('.clue-number').textContent + ' ' +"
                          " li.querySelector('.clue-text').textContent)")
    in_lists = sorted(words, key=lambda w: (w["direction"] != "across", w["number"]))
    equal("clue lists", listed, ["%d %s" % (w["number"], w["clue"]) for w in in_lists])
    equal("injected scripts", browser.eval("document.scripts.length"), 2)
    true("labelled squares", browser.eval("Array.from(document.querySelectorAll('#grid [data-column]'))"
                                          ".every(c => c.getAttribute('aria-label'))"))

    # Click a square and type a word: lower case comes out as capitals, the cursor follows.
    first = words[0]
    length = len(first["answer"])
    browser.click(cell(1, 1))
    if browser.eval("document.querySelector('#across-list li.active') === null"):
        browser.click(cell(1, 1))  # the same square again turns the direction
    browser.type(first["answer"].lower())
    equal("typed word", "".join(browser.text(cell(c, 1)) for c in range(1, length + 1)), first["answer"])
    equal("number not in the square's text", browser.text(cell(1, 1)), first["answer"][0])

    # Past a word's last square the cursor goes on to the next word, so the last letter
    # stays; Backspace from a word's first square goes back into the word before.
    second = [w for w in words if w["direction"] == "across"][1]
    steps(browser, (
        ("", "past the end, the next word", active_across, str(second["number"])),
        ("x", "the last letter is not overwritten", text_at(length, 1), first["answer"][-1]),
        ("", "the letter went to the next word", text_at(second["column"], second["row"]), "X"),
        ("Backspace Backspace", "Backspace goes back into the word before", current_square, [length, 1]),
        ("", "and clears its last letter", text_at(length, 1), ""),
        ("Home", "Home goes to the word's start", current_square, [1, 1]),
        ("End", "End goes to the word's end", current_square, [length, 1]),
        (first["answer"][-1].lower() + " Shift+Tab", "Shift+Tab comes back", current_square, [1, 1]),
        ("Tab", "Tab goes to the next across clue", active_across, str(second["number"])),
        ("Shift+Tab ArrowDown ArrowDown", "the first arrow down turns, the second moves", current_square, [1, 2])))

    # A wrong letter is marked by Check Puzzle; the accent of the puzzle's language is typed.
    accented = [w for w in words if w["direction"] == "across" and w["row"] == 3][0]
    browser.click(clue(accented))
    steps(browser, (("", "a clicked clue goes to its word", current_square, [1, 3]),
                    ("q ArrowRight é", "accented capital", text_at(3, 3), "É")))
    grid_top = "document.getElementById('grid').getBoundingClientRect().top + scrollY"
    top_before = browser.eval(grid_top)
    browser.click('button[data-action="check"][data-scope="puzzle"]')
    equal("a status message leaves the grid where it was", browser.eval(grid_top), top_before)
    equal("wrong squares", browser.eval("Array.from(document.querySelectorAll('#grid .wrong'))"
                                        ".map(c => c.dataset.column + ',' + c.dataset.row)"),
          ["1,3"] if accented["answer"][0] != "Q" else [])
    true("check announces", "wrong" in browser.text("[role=status]"))

    # The clock stops while paused.
    browser.click("#pause-button")
    paused_at = browser.text("#clock")
    time.sleep(1.5)
    equal("paused clock", browser.text("#clock"), paused_at)
    equal("paused grid is covered", browser.eval("document.getElementById('paused-cover').hidden"), False)
    equal("paused clues are hidden",
          browser.eval("getComputedStyle(document.getElementById('across-list')).visibility"), "hidden")
    browser.click("#pause-button")

    # A revealed square is marked and refuses another letter.
    solution = [w for w in words if w["direction"] == "across" and w["row"] == 15][-1]["answer"][-1]  # at (15, 15)
    browser.click(cell(15, 15))
    browser.click('button[data-action="reveal"][data-scope="square"]')
    equal("revealed square", browser.text(cell(15, 15)), solution)
    true("revealed square is marked",
         browser.eval("document.querySelector(%s).classList.contains('revealed')" % json.dumps(cell(15, 15))))
    browser.type("q" if solution != "Q" else "z")
    equal("a revealed square refuses a letter", browser.text(cell(15, 15)), solution)

    # Progress survives a reload.
    letters = "Array.from(document.querySelectorAll('#grid .cell')).map(c => c.textContent).join('')"
    before = browser.eval(letters)
    browser.load()
    after = browser.eval(letters)
    equal("letters after reload", after, before)
    true("some letters were kept", len(after) > length)

    # Esc leaves the grid for the tools, and a letter typed there still goes to the grid.
    steps(browser, (("Escape", "Esc goes to the tools", focus, "pause-button"),
                    (first["answer"][0].lower(), "a letter after Esc goes to the grid", focus, "entry"),
                    ("", "and lands in the square", current_square, [2, 1])))
    browser.page_width(1280, 900, False, shots, "web-desktop-progress.png")

    # Complete the puzzle from the clue lists and see it solved.
    for word in in_lists:
        browser.click(clue(word))
        c, r = current_square(browser)
        browser.type(word["answer"][(c - word["column"]) + (r - word["row"]):].lower())
    status = browser.text("[role=status]")
    true("solved is shown (status %r)" % status, status.startswith("Solved"))
    equal("problems on the exported page", problems(browser), [])

    # Paper gets the grid with the solver's letters (capital É stands in the grid only) and
    # the clues, without the tools.
    printed, pages = browser.print_pdf(os.path.join(work, "printed.pdf"))
    true("printed clues", "ACROSS" in printed and "Clue for 59 Across" in printed)
    true("the solver's letters are printed", "É" in printed)
    equal("grid and clues on one page", pages, 1)
    true("printed page has no tools", "Reveal" not in printed and "Pause" not in printed)

    equal("desktop page fits its width", browser.page_width(1280, 900, False, shots, "web-desktop.png"), 1280)
    browser.eval("window.scrollTo(0, 0)")
    equal("phone page fits its width", browser.page_width(390, 844, True, shots, "web-phone.png"), 390)
    true("phone: the clues stand under the grid",
         browser.eval("document.querySelector('.clue-lists').getBoundingClientRect().top >"
                      " document.getElementById('grid').getBoundingClientRect().bottom"))
    browser.call("Emulation.clearDeviceMetricsOverride")


def phone_page(browser, work, info, shots):
    """The exported page on a phone: taps, a sticky clue bar, and a keyboard that stays up."""
    words = info["entries"]
    browser.viewport(390, 844, mobile=True)
    browser.call("Emulation.setTouchEmulationEnabled", {"enabled": True, "maxTouchPoints": 1})
    browser.load(os.path.join(work, "fifteen.html"))
    browser.eval("localStorage.clear()")
    browser.load()

    def in_sight():
        return browser.eval("(() => { const c = document.querySelector('#grid .cell.current').getBoundingClientRect();"
                            " const bar = document.getElementById('clue-bar').getBoundingClientRect();"
                            " return c.top >= Math.max(0, bar.bottom) - 1 && c.bottom <= innerHeight"
                            " && c.left >= 0 && c.right <= innerWidth; })()")

    # A clue tapped far down the lists brings its square back into sight, clear of the bar,
    # and the letters typed go there.
    equal("phone: the typing field has the focus", focus(browser), "entry")
    time.sleep(1.2)
    equal("phone: the clock waits for the first letter", browser.text("#clock"), "0:00")
    for word in ([w for w in words if w["direction"] == "down"][-1], [w for w in words if w["direction"] == "across"][0]):
        named = "%d %s" % (word["number"], word["direction"])
        browser.tap(clue(word))
        equal("phone: a tapped clue moves the cursor to " + named, current_square(browser), [word["column"], word["row"]])
        true("phone: %s's square is in sight below the clue bar" % named, in_sight())
        browser.type(word["answer"][:2].lower())
        true("phone: the square typed into next is in sight", in_sight())
        equal("phone: the letters went to " + named, browser.text(cell(word["column"], word["row"])), word["answer"][0])

    # A tap on a black square keeps the keyboard; the clue bar steps through the clues.
    black = browser.eval("(() => { const b = document.querySelector('#grid .cell.block');"
                         " return [Number(b.dataset.column), Number(b.dataset.row)]; })()")
    browser.eval("window.blurs = 0; document.getElementById('entry').addEventListener('blur', () => blurs++)")
    browser.tap(cell(*black))
    browser.click(cell(*black))  # a press that would take the focus if let
    equal("phone: a black square keeps the keyboard (the field is never left)",
          browser.eval("[document.activeElement.id, blurs]"), ["entry", 0])
    before = active_across(browser)
    browser.tap("#next-clue")
    true("phone: the clue bar's next button moves on", active_across(browser) != before)
    equal("phone: the clue bar's buttons keep the keyboard", focus(browser), "entry")
    equal("phone: buttons a finger can hit", browser.eval(
        "Array.from(document.querySelectorAll('#player button')).filter(b => b.offsetParent)"
        ".filter(b => b.getBoundingClientRect().height < 44).map(b => b.id || b.textContent)"), [])
    true("phone: clue numbers no smaller than 9 px", browser.eval(
        "parseFloat(getComputedStyle(document.querySelector('#grid [data-number]'), '::before').fontSize) >= 9"))
    if shots:
        browser.eval("window.scrollTo(0, 0)")
        browser.page_width(390, 844, True, shots, "web-phone-typing.png")

    # Clear, after a question, empties the grid and puts the clock back.
    browser.tap("#clear-button")
    equal("phone: Clear asks first", browser.eval("document.getElementById('clear-dialog').open"), True)
    browser.tap("#clear-confirm")
    equal("phone: Clear empties the grid",
          browser.eval("Array.from(document.querySelectorAll('#grid .letter')).map(l => l.textContent).join('')"), "")
    equal("phone: and the clock", browser.text("#clock"), "0:00")
    equal("problems on the phone", problems(browser), [])
    browser.call("Emulation.setTouchEmulationEnabled", {"enabled": False})
    browser.viewport(1280, 900)


def player_page(browser, work, info):
    browser.load(os.path.join(work, "player.html"))
    equal("player shows its loader", browser.eval("document.getElementById('loader').hidden"), False)

    def load(name, drop=False):
        path = os.path.join(work, name)
        browser.eval("document.getElementById('load-error').textContent = ''")
        before = browser.text("#title")
        if drop:
            data = {"items": [], "files": [path], "dragOperationsMask": 1}
            for kind in ("dragEnter", "dragOver", "drop"):
                browser.call("Input.dispatchDragEvent", {"type": kind, "x": 300, "y": 300, "data": data})
        else:
            document = browser.call("DOM.getDocument")["root"]["nodeId"]
            node = browser.call("DOM.querySelector", {"nodeId": document, "selector": "#file-input"})["nodeId"]
            browser.call("DOM.setFileInputFiles", {"nodeId": node, "files": [path]})
        for _ in range(100):
            if browser.text("#title") != before or browser.text("#load-error") != "":
                return
            time.sleep(0.05)

    load("old.xwd", drop=True)
    equal("version 5 file shown", browser.eval("document.getElementById('player').hidden"), False)
    equal("version 5 title", browser.text("#title"), "old")
    equal("version 5 byline", browser.text("#byline"), "Zoë O'Brien & “Friends” <crew>")
    equal("version 5 squares", browser.eval("document.querySelectorAll('#grid .cell:not(.block)').length"),
          225 - info["blackSquares"])
    equal("version 5 clue", browser.text('#down-list li[value="3"] .clue-text'), "Café “crème”, ‘naïve’ façade — ½ off")
    browser.click(cell(3, 3))
    browser.key("é")
    equal("version 5 language admits É", browser.text(cell(3, 3)), "É")

    load("corrupt.xwd")
    equal("corrupt file message", browser.text("#load-error"), CORRUPT)
    equal("corrupt file keeps the puzzle in hand", browser.text(cell(3, 3)), "É")
    load("unfinished.xwd")
    refused = browser.text("#load-error")
    true("an unfinished puzzle is refused, saying so (%r)" % refused, "not finished" in refused)
    browser.load()
    load("corrupt.xwd")
    equal("corrupt file as the first", browser.text("#load-error"), CORRUPT)
    equal("no grid without a puzzle", browser.eval("document.getElementById('player').hidden"), True)
    equal("problems on the player page", problems(browser), [])


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
    at = lambda name: os.path.join(work, name)  # noqa: E731
    browser = None
    try:
        output(args.cli, "import", os.path.join(args.fixtures, "fifteen.txt"), at("fifteen.xwd"))
        output(args.cli, "export-web", at("fifteen.xwd"), at("fifteen.html"))
        output(args.cli, "convert", "--version5", at("fifteen.xwd"), at("old.xwd"))
        output(args.cli, "generate-player", at("player.html"))
        with open(os.path.join(args.fixtures, "fifteen.txt"), encoding="utf-8") as f, \
                open(at("unfinished.txt"), "w", encoding="utf-8") as unfinished:
            unfinished.write(f.read().replace("\nSEYT#", "\n.EYT#"))  # the first square left empty
        output(args.cli, "import", at("unfinished.txt"), at("unfinished.xwd"))
        with open(at("corrupt.xwd"), "wb") as f:
            f.write(b"not a puzzle\n" * 100)
        info = json.loads(output(args.cli, "info", "--json", at("fifteen.xwd")))

        browser = Browser(args.chromium, at("profile"))
        browser.open_page()
        browser.viewport(1280, 900)
        exported_page(browser, work, info, args.shots)
        phone_page(browser, work, info, args.shots)
        player_page(browser, work, info)
        if args.examples:
            output(args.cli, "export-web", os.path.join(args.examples, "sunday-stroll.xwd"), at("stroll.html"))
            browser.load(at("stroll.html"))
            browser.type("abc")
            equal("a 13 x 13 puzzle prints on one page with its clues", browser.print_pdf(at("stroll.pdf"))[1], 1)
    finally:
        if browser:
            browser.close()
        shutil.rmtree(work, ignore_errors=True)

    for failure in failures:
        print("FAILED:", failure)
    print("%d failures" % len(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
