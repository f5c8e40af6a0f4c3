// The Quillmark web player: shows one crossword and lets it be solved in the browser.
// An exported page carries its puzzle as JSON in #puzzle-data; the player page carries
// null there and opens .xwd files instead, decoded here byte for byte.
"use strict";

(function () {

  // ---- The puzzle file -------------------------------------------------------------------

  const MAX_GRID = 23;
  const BLOCK_CHAR = 219;
  const OPEN_CHAR = 32;
  const FILE_SIZE = 17818;
  const FILE5_SIZE = 14156;
  const CORRUPT = "Puzzle not in Quillmark format or is corrupt.";

  // A square with no answer would take any letter as right: such a puzzle is not offered.
  function unfinishedMessage(missing) {
    return "This puzzle is not finished: " + missing + (missing === 1 ? " square has" : " squares have") +
      " no letter yet, so it cannot be solved here. Fill the grid in Quillmark first.";
  }

  function refuseUnfinished(puzzle) {
    let missing = 0;
    puzzle.pattern.join("").split("").forEach((square, i) => {
      if (square !== "#" && !puzzle.solution[i]) missing++;
    });
    if (missing > 0) throw new CorruptPuzzle(unfinishedMessage(missing));
    return puzzle;
  }

  const cp1252 = new TextDecoder("windows-1252");
  const charOf = (code) => cp1252.decode(new Uint8Array([code]));

  // The capitals each grid language admits besides A to Z, by Windows-1252 code.
  function range(from, to) {
    const codes = [];
    for (let c = from; c <= to; c++) codes.push(c);
    return codes;
  }
  const LANGUAGE_EXTRAS = [
    [],
    [192, 199, 200, 201, 217],
    [201, 209],
    [192, 200, 201, 210, 217],
    [196, 214, 220, 223],
    [196, 197, 214],
    [197, 198, 216],
    [197, 198, 216],
    [138, 140, 159].concat(range(192, 214), range(216, 221), [223]),
  ];

  function allowedLetters(language) {
    const letters = new Set("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    for (const code of LANGUAGE_EXTRAS[language] || []) letters.add(charOf(code));
    return letters;
  }

  class CorruptPuzzle extends Error {}

  function shortString(bytes, offset, width) {
    const length = Math.min(bytes[offset], width);
    return cp1252.decode(bytes.subarray(offset + 1, offset + 1 + length));
  }

  // A .xwd record, current or version 5 (told apart by length alone), as the puzzle the
  // page shows. Throws CorruptPuzzle for anything else.
  function decodeRecord(buffer, title) {
    const bytes = new Uint8Array(buffer);
    let clueWidth, clueSlots, bylineAt, byline, language;
    if (bytes.length >= FILE_SIZE) {
      clueWidth = 80; clueSlots = 180; bylineAt = 17756;
      byline = shortString(bytes, bylineAt, 60);
      language = bytes[17817];
    } else if (bytes.length >= FILE5_SIZE) {
      clueWidth = 60; clueSlots = 179; bylineAt = 14095;
      const field = shortString(bytes, bylineAt, 60);
      const bar = field.indexOf("|");
      byline = bar >= 0 ? field.slice(0, bar) : field;
      language = 0;
      if (bar >= 0) {
        const last = field.charAt(field.length - 1);
        if (!/^[0-9]$/.test(last)) throw new CorruptPuzzle(CORRUPT);
        language = Number(last);
      }
    } else {
      throw new CorruptPuzzle(CORRUPT);
    }
    const view = new DataView(buffer);
    const size = view.getInt16(0, true);
    if (size < 2 || size > MAX_GRID) throw new CorruptPuzzle(CORRUPT);

    const at = (c, r) => (c - 1) * MAX_GRID + (r - 1);
    const cellAt = (c, r) => bytes[2 + at(c, r)];
    const entryAt = (c, r) => bytes[531 + at(c, r)];
    const slotAt = (c, r, across) => view.getUint16(1060 + at(c, r) * 4 + (across ? 0 : 2), true);
    const clue = (slot) => slot >= 1 && slot <= clueSlots
      ? shortString(bytes, 3176 + (slot - 1) * (clueWidth + 1), clueWidth) : "";

    const pattern = [];
    const solution = [];
    const entries = [];
    for (let r = 1; r <= size; r++) {
      let row = "";
      for (let c = 1; c <= size; c++) {
        const cell = cellAt(c, r);
        row += cell === BLOCK_CHAR ? "#" : ".";
        solution.push(cell === 0 || cell === BLOCK_CHAR || cell === OPEN_CHAR ? "" : charOf(cell));
        const entry = entryAt(c, r);
        entries.push(cell === BLOCK_CHAR || entry === 0 || entry === OPEN_CHAR ? "" : charOf(entry));
      }
      pattern.push(row);
    }
    const puzzle = {
      title: title, byline: byline === "--" ? "" : byline, language: language,
      size: size, pattern: pattern, solution: solution, clues: new Map(), entries: entries,
    };
    for (const word of findWords(puzzle)) {
      puzzle.clues.set(word.key, clue(slotAt(word.column, word.row, word.direction === "across")));
    }
    return refuseUnfinished(puzzle);
  }

  // The answers of an exported page, scrambled by the program: each square's character
  // code XOR a mask that depends on its place, two bytes each, in base 64.
  function unscramble(text, size) {
    const raw = atob(text);
    const letters = [];
    for (let i = 0; i * 2 + 1 < raw.length; i++) {
      const mask = (i * 97 + size * 31 + 0x2D5B) & 0xFFFF;
      const code = ((raw.charCodeAt(i * 2) << 8) | raw.charCodeAt(i * 2 + 1)) ^ mask;
      letters.push(code === 0 ? "" : String.fromCharCode(code));
    }
    return letters;
  }

  function puzzleFromJson(data) {
    const size = data.size;
    if (!Number.isInteger(size) || size < 2 || size > MAX_GRID) throw new CorruptPuzzle(CORRUPT);
    const puzzle = {
      title: data.title, byline: data.byline, language: data.language, size: size,
      pattern: data.pattern, solution: unscramble(data.solution, size), clues: new Map(), entries: null,
    };
    for (const clue of data.clues) {
      puzzle.clues.set(wordKey(clue.direction, clue.column, clue.row), clue.text);
    }
    return refuseUnfinished(puzzle);
  }

  // ---- Geometry --------------------------------------------------------------------------

  function wordKey(direction, column, row) {
    return direction + ":" + column + ":" + row;
  }

  function isBlock(puzzle, c, r) {
    return c >= 1 && r >= 1 && c <= puzzle.size && r <= puzzle.size && puzzle.pattern[r - 1][c - 1] === "#";
  }

  // A word starts at a white square with a black square or the edge before it and a white
  // square after it; the last column and row start none.
  function isStart(puzzle, c, r, across) {
    if (isBlock(puzzle, c, r)) return false;
    const [pc, pr, nc, nr] = across ? [c - 1, r, c + 1, r] : [c, r - 1, c, r + 1];
    const first = across ? c === 1 : r === 1;
    const last = across ? c >= puzzle.size : r >= puzzle.size;
    return (first || isBlock(puzzle, pc, pr)) && !last && !isBlock(puzzle, nc, nr);
  }

  // Every word in reading order, the across word before the down word at a square, with
  // its printed number and its squares (indexes row by row).
  function findWords(puzzle) {
    const words = [];
    let number = 0;
    for (let r = 1; r <= puzzle.size; r++) {
      for (let c = 1; c <= puzzle.size; c++) {
        const across = isStart(puzzle, c, r, true);
        const down = isStart(puzzle, c, r, false);
        if (!across && !down) continue;
        number++;
        for (const [starts, direction, dc, dr] of [[across, "across", 1, 0], [down, "down", 0, 1]]) {
          if (!starts) continue;
          const cells = [];
          for (let x = c, y = r; x <= puzzle.size && y <= puzzle.size && !isBlock(puzzle, x, y); x += dc, y += dr) {
            cells.push((y - 1) * puzzle.size + (x - 1));
          }
          words.push({ number: number, direction: direction, column: c, row: r,
                       key: wordKey(direction, c, r), cells: cells });
        }
      }
    }
    return words;
  }

  // A short stable hash, so that progress is kept per puzzle in local storage.
  function fingerprint(puzzle) {
    const text = [puzzle.size, puzzle.pattern.join("/"), puzzle.solution.join(","),
                  Array.from(puzzle.clues.values()).join("\n")].join("|");
    let hash = 0x811c9dc5;
    for (let i = 0; i < text.length; i++) {
      hash ^= text.charCodeAt(i);
      hash = Math.imul(hash, 0x01000193) >>> 0;
    }
    return hash.toString(16).padStart(8, "0");
  }

  // ---- The solving page ------------------------------------------------------------------

  const $ = (id) => document.getElementById(id);

  function formatTime(seconds) {
    const h = Math.floor(seconds / 3600);
    const m = Math.floor(seconds / 60) % 60;
    const s = String(seconds % 60).padStart(2, "0");
    return h > 0 ? h + ":" + String(m).padStart(2, "0") + ":" + s : m + ":" + s;
  }

  class Game {
    constructor(puzzle) {
      this.puzzle = puzzle;
      this.size = puzzle.size;
      this.letters = allowedLetters(puzzle.language);
      this.words = findWords(puzzle);
      this.wordsAt = new Map();  // square index -> { across: word, down: word }
      for (const word of this.words) {
        for (const i of word.cells) {
          const at = this.wordsAt.get(i) || {};
          at[word.direction] = word;
          this.wordsAt.set(i, at);
        }
      }
      this.storageKey = "quillmark-web:" + fingerprint(puzzle);
      this.entries = puzzle.solution.map(() => "");
      this.revealed = new Set();
      this.wrong = new Set();
      this.seconds = 0;
      this.paused = false;
      this.solved = false;
      this.started = false;  // the clock waits for the first letter
      this.cursor = this.words.length ? this.words[0].cells[0] : 0;
      this.direction = this.words.length ? this.words[0].direction : "across";
      this.restore();
    }

    isWhite(i) { return this.puzzle.pattern[Math.floor(i / this.size)][i % this.size] !== "#"; }

    // ---- progress in local storage

    restore() {
      let saved = null;
      try {
        saved = JSON.parse(localStorage.getItem(this.storageKey) || "null");
      } catch (e) {
        saved = null;
      }
      if (saved && Array.isArray(saved.entries) && saved.entries.length === this.entries.length) {
        this.entries = saved.entries.map((e) => (typeof e === "string" ? e : ""));
        this.revealed = new Set(saved.revealed || []);
        this.seconds = Number(saved.seconds) || 0;
      } else if (this.puzzle.entries) {
        this.entries = this.puzzle.entries.slice();
      }
      this.started = this.seconds > 0 || this.entries.some((e) => e !== "");
    }

    save() {
      try {
        localStorage.setItem(this.storageKey, JSON.stringify({
          entries: this.entries, revealed: Array.from(this.revealed), seconds: this.seconds,
        }));
      } catch (e) {
        // Storage may be full or switched off; solving goes on without it.
      }
    }

    // ---- building the page

    build() {
      const grid = $("grid");
      grid.replaceChildren();
      // A tap anywhere in the grid, black squares too, keeps the focus (and a phone's
      // keyboard) where it is.
      grid.onmousedown = (e) => e.preventDefault();
      $("grid-frame").style.setProperty("--size", this.size);  // the box around the grid sizes by it too
      this.cellElements = [];
      const numbers = new Map(this.words.map((w) => [w.cells[0], w.number]));
      for (let r = 1; r <= this.size; r++) {
        const row = document.createElement("div");
        row.className = "grid-row";
        row.setAttribute("role", "row");
        for (let c = 1; c <= this.size; c++) {
          const i = (r - 1) * this.size + (c - 1);
          const cell = document.createElement("div");
          cell.setAttribute("role", "gridcell");
          cell.dataset.column = c;
          cell.dataset.row = r;
          cell.id = "cell-" + c + "-" + r;
          if (!this.isWhite(i)) {
            cell.className = "cell block";
            cell.addEventListener("click", () => this.focusEntry());
            cell.setAttribute("aria-label", "Black square, row " + r + ", column " + c);
          } else {
            cell.className = "cell";
            if (numbers.has(i)) cell.dataset.number = numbers.get(i);
            cell.addEventListener("click", () => this.clickSquare(i));
          }
          row.appendChild(cell);
          this.cellElements.push(cell);
        }
        grid.appendChild(row);
      }
      this.clueElements = new Map();
      for (const direction of ["across", "down"]) {
        const list = $(direction + "-list");
        list.replaceChildren();
        for (const word of this.words.filter((w) => w.direction === direction)) {
          const item = document.createElement("li");
          item.value = word.number;
          const number = document.createElement("span");
          number.className = "clue-number";
          number.textContent = word.number;
          const text = document.createElement("span");
          text.className = "clue-text";
          text.textContent = this.puzzle.clues.get(word.key) || "";
          item.append(number, text);
          item.tabIndex = -1;
          item.addEventListener("mousedown", (e) => e.preventDefault());
          item.addEventListener("click", () => {
            this.goToWord(word);
            this.bringGridIntoView();
          });
          list.appendChild(item);
          this.clueElements.set(word.key, item);
        }
      }
      $("title").textContent = this.puzzle.title;
      $("byline").textContent = this.puzzle.byline;
      document.title = this.puzzle.title;
      for (let i = 0; i < this.entries.length; i++) this.paintSquare(i);
      this.checkSolved(false);
      this.select(this.cursor, this.direction);
    }

    squareLabel(i) {
      const c = (i % this.size) + 1;
      const r = Math.floor(i / this.size) + 1;
      const parts = [];
      const at = this.wordsAt.get(i) || {};
      for (const direction of ["across", "down"]) {
        const word = at[direction];
        if (word && word.cells[0] === i) parts.push(word.number + " " + direction);
      }
      parts.push("row " + r + ", column " + c);
      parts.push(this.entries[i] ? "letter " + this.entries[i] : "empty");
      if (this.wrong.has(i)) parts.push("wrong");
      if (this.revealed.has(i)) parts.push("revealed");
      return parts.join(", ");
    }

    paintSquare(i) {
      const cell = this.cellElements[i];
      if (!this.isWhite(i)) return;
      // The letter is the square's only text (its number is drawn from data-number), in a
      // span of its own so that paper can leave it out.
      let letter = cell.firstElementChild;
      if (!letter) {
        letter = document.createElement("span");
        letter.className = "letter";
        cell.appendChild(letter);
      }
      letter.textContent = this.entries[i];
      cell.classList.toggle("wrong", this.wrong.has(i));
      cell.classList.toggle("revealed", this.revealed.has(i));
      cell.setAttribute("aria-label", this.squareLabel(i));
    }

    // ---- the cursor and the current word

    wordOf(i, direction) {
      const at = this.wordsAt.get(i) || {};
      return at[direction] || null;
    }

    currentWord() { return this.wordOf(this.cursor, this.direction); }

    select(i, direction) {
      if (!this.isWhite(i)) return;
      if (!this.wordOf(i, direction)) {
        const other = direction === "across" ? "down" : "across";
        if (this.wordOf(i, other)) direction = other;
      }
      this.cursor = i;
      this.direction = direction;
      this.highlight();
      this.revealCursor();
    }

    // The height the clue bar takes at the top of the window when it sticks there (phones).
    stickyBarHeight() {
      const bar = $("clue-bar");
      return getComputedStyle(bar).position === "sticky" ? bar.offsetHeight : 0;
    }

    viewHeight() { return window.visualViewport ? window.visualViewport.height : window.innerHeight; }

    // Scrolls just enough that the cursor's square is on the screen: inside a grid wider
    // than the screen, below the sticky clue bar, above a phone's keyboard.
    revealCursor() {
      const cell = this.cellElements[this.cursor];
      const frame = $("grid-frame");
      const f = frame.getBoundingClientRect();
      let c = cell.getBoundingClientRect();
      if (c.left < f.left) frame.scrollLeft -= f.left - c.left + c.width;
      else if (c.right > f.right) frame.scrollLeft += c.right - f.right + c.width;
      c = cell.getBoundingClientRect();
      const top = this.stickyBarHeight() + 4;
      const bottom = this.viewHeight() - 4;
      if (c.top < top) window.scrollBy(0, c.top - top);
      else if (c.bottom > bottom) window.scrollBy(0, Math.min(c.bottom - bottom, c.top - top));
    }

    // After a clue was picked from the list with the grid scrolled away (a phone, in the
    // lists under the grid): the grid back in view from its top when the cursor's row then
    // fits on the screen, else with the cursor's row just under the bar.
    bringGridIntoView() {
      const grid = $("grid").getBoundingClientRect();
      const cell = this.cellElements[this.cursor].getBoundingClientRect();
      const top = this.stickyBarHeight() + 4;
      if (grid.top >= top) return;
      const shift = cell.bottom - grid.top + top <= this.viewHeight() ? grid.top - top : cell.top - top;
      window.scrollBy(0, shift);
    }

    highlight() {
      for (const el of document.querySelectorAll(".cell.in-word, .cell.current")) {
        el.classList.remove("in-word", "current");
      }
      for (const el of document.querySelectorAll(".clue-lists li.active, .clue-lists li.crossing")) {
        el.classList.remove("active", "crossing");
        el.removeAttribute("aria-current");
      }
      const word = this.currentWord();
      if (word) for (const i of word.cells) this.cellElements[i].classList.add("in-word");
      const cell = this.cellElements[this.cursor];
      cell.classList.add("current");

      const other = this.wordOf(this.cursor, this.direction === "across" ? "down" : "across");
      if (other) this.clueElements.get(other.key).classList.add("crossing");
      let clueText = "";
      if (word) {
        const item = this.clueElements.get(word.key);
        item.classList.add("active");
        item.setAttribute("aria-current", "true");
        this.scrollIntoList(item);
        clueText = word.number + " " + word.direction + ": " + (this.puzzle.clues.get(word.key) || "");
      }
      const current = $("current-clue");
      current.replaceChildren();
      if (word) {
        const label = document.createElement("span");
        label.className = "current-clue-label";
        label.textContent = word.number + (word.direction === "across" ? "A" : "D");
        const text = document.createElement("span");
        text.textContent = this.puzzle.clues.get(word.key) || "";
        current.append(label, text);
      }
      this.placeEntry(clueText);
    }

    // Keeps the active clue in view inside its own list without moving the page.
    scrollIntoList(item) {
      const list = item.parentElement;
      if (list.scrollHeight <= list.clientHeight) return;
      const top = item.offsetTop - list.offsetTop;
      if (top < list.scrollTop) list.scrollTop = top;
      else if (top + item.offsetHeight > list.scrollTop + list.clientHeight) {
        list.scrollTop = top + item.offsetHeight - list.clientHeight;
      }
    }

    // The typing field sits over the current square (a phone shows its keyboard for it)
    // and carries what a screen reader announces.
    placeEntry(clueText) {
      const entry = $("entry");
      const cell = this.cellElements[this.cursor];
      entry.style.left = cell.offsetLeft + "px";
      entry.style.top = cell.offsetTop + "px";
      entry.style.width = cell.offsetWidth + "px";
      entry.style.height = cell.offsetHeight + "px";
      entry.setAttribute("aria-label", (clueText ? clueText + ". " : "") + this.squareLabel(this.cursor));
    }

    clickSquare(i) {
      if (this.paused) return;
      if (i === this.cursor) this.toggleDirection();
      else this.select(i, this.direction);
      this.focusEntry();
    }

    toggleDirection() {
      const other = this.direction === "across" ? "down" : "across";
      if (this.wordOf(this.cursor, other)) this.select(this.cursor, other);
    }

    focusEntry() { $("entry").focus({ preventScroll: true }); }

    goToWord(word) {
      if (this.paused) return;
      const empty = word.cells.find((i) => !this.entries[i]);
      this.select(empty === undefined ? word.cells[0] : empty, word.direction);
      this.focusEntry();
    }

    // The word `step` words on in clue-list order (across, then down), round the end.
    wordAfter(step) {
      const ordered = this.words.filter((w) => w.direction === "across")
        .concat(this.words.filter((w) => w.direction === "down"));
      if (!ordered.length) return null;
      const at = ordered.indexOf(this.currentWord());
      return ordered[(at + step + ordered.length) % ordered.length];
    }

    nextWord(step) {
      const next = this.wordAfter(step);
      if (next) this.goToWord(next);
    }

    // Home and End: the first or the last square of the word.
    wordEnd(last) {
      const word = this.currentWord();
      if (word) this.select(word.cells[last ? word.cells.length - 1 : 0], this.direction);
    }

    // Moves over black squares to the next white one in the line; stays at the edge.
    move(dc, dr) {
      const direction = dc !== 0 ? "across" : "down";
      if (direction !== this.direction && this.wordOf(this.cursor, direction)) {
        this.select(this.cursor, direction);
        return;
      }
      let c = (this.cursor % this.size) + 1;
      let r = Math.floor(this.cursor / this.size) + 1;
      while (true) {
        c += dc; r += dr;
        if (c < 1 || r < 1 || c > this.size || r > this.size) return;
        const i = (r - 1) * this.size + (c - 1);
        if (this.isWhite(i)) {
          this.select(i, direction);
          return;
        }
      }
    }

    // ---- typing

    setEntry(i, letter) {
      this.entries[i] = letter;
      this.wrong.delete(i);
      this.paintSquare(i);
    }

    // A revealed square is the answer, given: it takes no other letter.
    isLocked(i) { return this.revealed.has(i); }

    type(letter) {
      if (this.paused) return;
      this.started = true;
      if (!this.isLocked(this.cursor)) this.setEntry(this.cursor, letter);
      const word = this.currentWord();
      if (word) {
        const at = word.cells.indexOf(this.cursor);
        // After the last square the next word, so that no letter overwrites the last one.
        if (at + 1 < word.cells.length) this.select(word.cells[at + 1], this.direction);
        else this.nextWord(1);
      }
      this.changed();
    }

    // Clears the square's letter; on an empty square, goes back one first, from a word's
    // first square into the end of the word before it.
    backspace() {
      if (this.paused) return;
      if (!this.entries[this.cursor] || this.isLocked(this.cursor)) {
        const word = this.currentWord();
        const at = word ? word.cells.indexOf(this.cursor) : -1;
        if (at > 0) {
          this.select(word.cells[at - 1], this.direction);
        } else {
          const previous = this.wordAfter(-1);
          if (previous) this.select(previous.cells[previous.cells.length - 1], previous.direction);
        }
      }
      if (!this.isLocked(this.cursor)) this.setEntry(this.cursor, "");
      this.highlight();
      this.changed();
    }

    deleteLetter() {
      if (this.paused || this.isLocked(this.cursor)) return;
      this.setEntry(this.cursor, "");
      this.highlight();
      this.changed();
    }

    letterFor(key) {
      if (typeof key !== "string" || key.length !== 1) return null;
      const upper = key.toUpperCase();
      const letter = upper.length === 1 ? upper : key;
      return this.letters.has(letter) ? letter : null;
    }

    keyDown(event) {
      if (event.ctrlKey || event.metaKey || event.altKey) return;
      const key = event.key;
      let handled = true;
      if (key === "ArrowRight") this.move(1, 0);
      else if (key === "ArrowLeft") this.move(-1, 0);
      else if (key === "ArrowDown") this.move(0, 1);
      else if (key === "ArrowUp") this.move(0, -1);
      else if (key === "Tab") this.nextWord(event.shiftKey ? -1 : 1);
      else if (key === "Backspace") this.backspace();
      else if (key === "Delete") this.deleteLetter();
      else if (key === "Home") this.wordEnd(false);
      else if (key === "End") this.wordEnd(true);
      else if (key === " ") this.toggleDirection();
      else if (key === "Enter") this.nextWord(1);
      else if (key === "Escape") { $("entry").blur(); document.querySelector(".toolbar button").focus(); }
      else {
        const letter = this.letterFor(key);
        if (letter) this.type(letter);
        else handled = key.length === 1;  // other characters never reach the field
      }
      if (handled) event.preventDefault();
    }

    // Phones' keyboards send text rather than keys.
    input(event) {
      const field = event.target;
      const text = field.value;
      field.value = "";
      for (const ch of text) {
        const letter = this.letterFor(ch);
        if (letter) this.type(letter);
      }
    }

    // ---- check and reveal

    scopeSquares(scope) {
      if (scope === "square") return [this.cursor];
      if (scope === "word") {
        const word = this.currentWord();
        return word ? word.cells : [this.cursor];
      }
      return this.entries.map((_, i) => i).filter((i) => this.isWhite(i));
    }

    isRight(i) {
      const answer = this.puzzle.solution[i];
      return this.entries[i] !== "" && this.entries[i] === answer;
    }

    check(scope) {
      let wrong = 0;
      for (const i of this.scopeSquares(scope)) {
        if (this.entries[i] && !this.isRight(i)) {
          this.wrong.add(i);
          wrong++;
        }
        this.paintSquare(i);
      }
      if (!this.solved) {
        this.announce(wrong === 0 ? "No wrong letters." : wrong === 1 ? "1 wrong letter." : wrong + " wrong letters.");
      }
    }

    reveal(scope) {
      for (const i of this.scopeSquares(scope)) {
        const answer = this.puzzle.solution[i];
        if (!answer || this.entries[i] === answer) continue;
        this.entries[i] = answer;
        this.revealed.add(i);
        this.wrong.delete(i);
        this.paintSquare(i);
      }
      this.highlight();
      this.changed();
    }

    // Starts again: no letters, reveals or marks, and the clock back at nought.
    clear() {
      this.entries = this.entries.map(() => "");
      this.revealed.clear();
      this.wrong.clear();
      this.seconds = 0;
      this.started = false;
      this.solved = false;
      document.body.classList.remove("solved");
      for (let i = 0; i < this.entries.length; i++) this.paintSquare(i);
      this.announce("");
      this.setPaused(false);
      if (this.words.length) this.goToWord(this.words[0]);
      this.save();
      this.showClock();
    }

    // ---- clock, completion, status

    changed() {
      this.save();
      this.checkSolved(true);
    }

    checkSolved(announceWrong) {
      const squares = this.scopeSquares("puzzle");
      const full = squares.every((i) => this.entries[i] !== "");
      const right = full && squares.every((i) => this.isRight(i));
      if (right && !this.solved) {
        this.solved = true;
        document.body.classList.add("solved");
        this.announce("Solved! Time " + formatTime(this.seconds) + (this.revealed.size ? " (with help)." : "."));
      } else if (!right && this.solved) {
        this.solved = false;
        document.body.classList.remove("solved");
        this.announce("");
      } else if (full && !right && announceWrong) {
        this.announce("The grid is full, but some letters are wrong.");
      }
      this.showClock();
    }

    announce(text) { $("status").textContent = text; }

    showClock() { $("clock").textContent = formatTime(this.seconds); }

    tick() {
      if (this.paused || this.solved || !this.started || document.hidden) return;
      this.seconds++;
      this.showClock();
      this.save();
    }

    setPaused(paused) {
      this.paused = paused;
      const button = $("pause-button");
      button.textContent = paused ? "Resume" : "Pause";
      button.setAttribute("aria-pressed", String(paused));
      $("paused-cover").hidden = !paused;
      document.body.classList.toggle("paused", paused);
      $("grid").classList.toggle("hidden-letters", paused);
      if (!paused) this.focusEntry();
    }
  }

  // ---- Start -----------------------------------------------------------------------------

  let game = null;
  let clockTimer = null;

  function start(puzzle) {
    game = new Game(puzzle);
    $("loader").hidden = true;
    $("player").hidden = false;
    $("load-error").textContent = "";
    game.build();
    game.setPaused(false);
    if (clockTimer === null) clockTimer = setInterval(() => game && game.tick(), 1000);
    game.focusEntry();
  }

  function wirePlayer() {
    $("entry").addEventListener("keydown", (e) => game && game.keyDown(e));
    $("entry").addEventListener("input", (e) => game && game.input(e));
    $("pause-button").addEventListener("click", () => game && game.setPaused(!game.paused));
    for (const button of document.querySelectorAll("button[data-action]")) {
      button.addEventListener("click", () => {
        if (!game || game.paused) return;
        if (button.dataset.action === "check") game.check(button.dataset.scope);
        else game.reveal(button.dataset.scope);
        game.focusEntry();
      });
    }
    for (const [id, step] of [["previous-clue", -1], ["next-clue", 1]]) {
      $(id).addEventListener("mousedown", (e) => e.preventDefault());  // the keyboard stays up
      $(id).addEventListener("click", () => {
        if (!game || game.paused) return;
        game.nextWord(step);
      });
    }
    const dialog = $("clear-dialog");
    $("clear-button").addEventListener("click", () => {
      if (!game) return;
      dialog.returnValue = "";
      dialog.showModal();
    });
    dialog.addEventListener("close", () => {
      if (!game) return;
      if (dialog.returnValue === "clear") game.clear();
      game.focusEntry();
    });
    // Typing goes to the grid while a puzzle is shown, wherever the focus was left (after
    // Esc, or a click beside the grid); the keys that work a focused control stay its own.
    const gridKeys = new Set(["Backspace", "Delete", "Home", "End", "ArrowLeft", "ArrowRight", "ArrowUp",
                              "ArrowDown"]);
    document.addEventListener("keydown", (e) => {
      if (!game || $("player").hidden || e.target === $("entry") || dialog.open) return;
      if (e.ctrlKey || e.metaKey || e.altKey) return;
      if (e.key.length !== 1 && !gridKeys.has(e.key)) return;
      const control = e.target instanceof Element && e.target.closest("button, input, select, textarea, a, summary");
      if (control && (e.key === " " || (control.tagName === "INPUT" && control.type !== "file"))) return;
      game.focusEntry();
      game.keyDown(e);
    });
    window.addEventListener("resize", () => game && game.highlight());
  }

  function openFile(file) {
    const reader = new FileReader();
    reader.onload = () => {
      try {
        start(decodeRecord(reader.result, file.name.replace(/\.xwd$/i, "")));
      } catch (e) {
        if (!(e instanceof CorruptPuzzle)) throw e;
        // Like the program, keep the puzzle in hand when another file cannot be read.
        $("load-error").textContent = e.message;
      }
    };
    reader.onerror = () => { $("load-error").textContent = CORRUPT; };
    reader.readAsArrayBuffer(file);
  }

  function wireLoader() {
    $("loader").hidden = false;
    document.querySelector(".open-group").hidden = false;
    $("file-input").addEventListener("change", (e) => {
      if (e.target.files.length) openFile(e.target.files[0]);
      e.target.value = "";
    });
    $("open-another").addEventListener("click", () => $("file-input").click());
    document.addEventListener("dragover", (e) => {
      e.preventDefault();
      document.body.classList.add("dragging");
    });
    document.addEventListener("dragleave", () => document.body.classList.remove("dragging"));
    document.addEventListener("drop", (e) => {
      e.preventDefault();
      document.body.classList.remove("dragging");
      if (e.dataTransfer.files.length) openFile(e.dataTransfer.files[0]);
    });
  }

  wirePlayer();
  const data = JSON.parse($("puzzle-data").textContent);
  if (data === null) {
    wireLoader();
  } else {
    try {
      start(puzzleFromJson(data));
    } catch (e) {
      if (!(e instanceof CorruptPuzzle)) throw e;
      $("load-error").textContent = e.message;
    }
  }
})();
