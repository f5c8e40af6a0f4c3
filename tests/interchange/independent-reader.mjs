// Each example converted to .puz and .ipuz by quillmark-cli, read by npm's crossword libraries
// (@confuzzle/puz-crossword, @xwordly/xword-parser) and compared with its text form; the .puz
// checksums, which neither library checks, are computed here. A German grid with curly quotes
// must stay one byte a square, in the Latin-1 version.
// Usage: node independent-reader.mjs QUILLMARK_CLI EXAMPLES_DIR TEST_DATA_DIR

import { execFileSync } from 'node:child_process';
import { existsSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { basename, dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

const here = dirname(fileURLToPath(import.meta.url));
if (!existsSync(join(here, 'node_modules', '@xwordly', 'xword-parser')) ||
    !existsSync(join(here, 'node_modules', '@confuzzle', 'puz-crossword'))) {
  console.log('independent reader not installed (npm ci in tests/interchange); skipped');
  process.exit(77);
}
const { parse } = await import('@xwordly/xword-parser');
const { PuzCrossword } = await import('@confuzzle/puz-crossword');

const [cli, examples, testData] = process.argv.slice(2);
const scratch = mkdtempSync(join(tmpdir(), 'quillmark-interchange-'));
let [passed, failed] = [0, 0];
const check = (ok, what) => (ok ? passed++ : (failed++, console.log(`FAIL: ${what}`)));

// The puzzle as quillmark-cli's text form gives it: grid rows, clues by "1A", byline.
function textForm(xwd) {
  const lines = execFileSync(cli, ['export-text', xwd, '-'], { encoding: 'utf8' }).split('\n');
  const size = Number(lines.find((l) => l.startsWith('size ')).slice(5));
  const byline = lines.find((l) => l.startsWith('byline ')).slice(7);
  const gridAt = lines.indexOf('grid') + 1;
  const grid = lines.slice(gridAt, gridAt + size);
  const clues = new Map();
  for (const line of lines.slice(lines.indexOf('clues') + 1)) {
    const m = /^(\d+)([AD]) (.*)$/.exec(line);
    if (m) clues.set(`${m[1]}${m[2]}`, m[3]);
  }
  return { size, byline, grid, clues };
}

function checksum(bytes, start = 0) {
  let c = start;
  for (const b of bytes) {
    c = c & 1 ? (c >> 1) + 0x8000 : c >> 1;
    c = (c + b) & 0xffff;
  }
  return c;
}

// Every checksum of a .puz file, computed afresh and compared with the stored ones.
function checkPuzChecksums(buf, name) {
  const [w, h, nclues] = [buf[0x2c], buf[0x2d], buf.readUInt16LE(0x2e)];
  const version = buf.subarray(0x18, 0x1b).toString('latin1');
  let at = 0x34;
  const solution = buf.subarray(at, (at += w * h));
  const fill = buf.subarray(at, (at += w * h));
  const strings = [];
  for (let i = 0; i < 4 + nclues; i++) {
    const end = buf.indexOf(0, at);
    strings.push(buf.subarray(at, end));
    at = end + 1;
  }
  const [title, author, copyright] = strings;
  const clues = strings.slice(3, 3 + nclues);
  const notes = strings[3 + nclues];
  const withNul = (s) => Buffer.concat([s, Buffer.from([0])]);
  const textSum = (c) => {
    for (const s of [title, author, copyright]) if (s.length) c = checksum(withNul(s), c);
    for (const s of clues) c = checksum(s, c);
    if (version >= '1.3' && notes.length) c = checksum(withNul(notes), c);
    return c;
  };
  const cib = checksum(buf.subarray(0x2c, 0x34));
  check(buf.readUInt16LE(0x0e) === cib, `${name}: CIB checksum`);
  check(buf.readUInt16LE(0) === textSum(checksum(fill, checksum(solution, cib))), `${name}: file checksum`);
  const parts = [cib, checksum(solution), checksum(fill), textSum(0)];
  const mask = Buffer.from('ICHEATED', 'latin1');
  parts.forEach((sum, i) => {
    check(buf[0x10 + i] === (mask[i] ^ (sum & 0xff)), `${name}: masked low checksum ${i}`);
    check(buf[0x14 + i] === (mask[4 + i] ^ (sum >> 8)), `${name}: masked high checksum ${i}`);
  });
}

// The .puz reader's view in the ipuz reader's shape. (xword-parser 1.0.5 reads .puz clues as
// all across before all down, which is not the format's order, so it is not used for .puz.)
function readPuz(bytes) {
  const cw = PuzCrossword.from(bytes);
  const cells = Array.from({ length: cw.height }, (_, r) => [...cw.solution.slice(r * cw.width, (r + 1) * cw.width)]
    .map((ch) => (ch === '.' ? { isBlack: true } : { isBlack: false, solution: ch })));
  const clues = { across: [], down: [] };
  for (const clue of cw.parsedClues)
    (clue.isAcross ? clues.across : clues.down).push({ number: clue.number, text: clue.text });
  return { title: cw.title, author: cw.author, grid: { width: cw.width, height: cw.height, cells }, clues };
}

function compare(puzzle, expected, name, title) {
  check(puzzle.grid.width === expected.size && puzzle.grid.height === expected.size, `${name}: grid size`);
  expected.grid.forEach((want, r) => {
    const row = (puzzle.grid.cells[r] ?? []).map((cell) => (cell.isBlack ? '#' : cell.solution || '.')).join('');
    check(row === want, `${name}: row ${r + 1} reads ${row}, not ${want}`);
  });
  const got = new Map();
  for (const [list, d] of [[puzzle.clues.across, 'A'], [puzzle.clues.down, 'D']])
    for (const clue of list) if (clue.text) got.set(`${clue.number}${d}`, clue.text);
  for (const [key, text] of expected.clues)
    if (text) check(got.get(key) === text, `${name}: clue ${key} reads "${got.get(key)}", not "${text}"`);
  check(got.size === [...expected.clues.values()].filter((t) => t).length, `${name}: no clue more`);
  const author = expected.byline === '--' ? '' : expected.byline;
  check((puzzle.author ?? '') === author, `${name}: author "${puzzle.author}", not "${author}"`);
  check(puzzle.title === title, `${name}: title "${puzzle.title}", not "${title}"`);
}

try {
  for (const file of readdirSync(examples).filter((f) => f.endsWith('.xwd'))) {
    const xwd = join(examples, file);
    const expected = textForm(xwd);
    const full = expected.grid.every((row) => !/[.?]/.test(row));
    for (const ext of full ? ['puz', 'ipuz'] : ['ipuz']) {
      const out = join(scratch, `${basename(file, '.xwd')}.${ext}`);
      execFileSync(cli, ['convert', xwd, out]);
      const bytes = readFileSync(out);
      if (ext === 'puz') checkPuzChecksums(bytes, out);
      const puzzle = ext === 'puz' ? readPuz(bytes) : parse(bytes.toString('utf8'), { filename: out });
      compare(puzzle, expected, basename(out), basename(file, '.xwd'));
    }
  }

  // fifteen.txt is French; with Ä for É it is German, and its clues keep their “curly” quotes.
  const german = readFileSync(join(testData, 'fifteen.txt'), 'utf8')
    .replace(/^language 1$/m, 'language 4')
    .replace(/^([A-Z#É]{15})$/gm, (row) => row.replaceAll('É', 'Ä'));
  writeFileSync(join(scratch, 'german.txt'), german);
  execFileSync(cli, ['import', join(scratch, 'german.txt'), join(scratch, 'german.xwd')]);
  const expected = textForm(join(scratch, 'german.xwd'));
  check(expected.grid.some((row) => row.includes('Ä')), 'german.txt: the grid has an Ä');
  execFileSync(cli, ['convert', join(scratch, 'german.xwd'), join(scratch, 'german.puz')], { stdio: 'pipe' });
  const bytes = readFileSync(join(scratch, 'german.puz'));
  checkPuzChecksums(bytes, 'german.puz');
  check(bytes.subarray(0x18, 0x1b).toString('latin1') === '1.3', 'german.puz: version 1.3 (Latin-1)');
  const plain = (text) => text.replace(/[‘’‚]/g, "'").replace(/[“”„]/g, '"').replace(/[–—]/g, '-');
  for (const [key, text] of expected.clues) expected.clues.set(key, plain(text));
  expected.byline = plain(expected.byline);
  compare(readPuz(bytes), expected, 'german.puz', 'german');
} finally {
  rmSync(scratch, { recursive: true, force: true });
}
console.log(`${passed} passed, ${failed} failed`);
process.exit(failed ? 1 : 0);
