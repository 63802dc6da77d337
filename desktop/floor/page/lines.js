// The lines of the count, as the desk has them and with the figures that are still under way.

import { fold, sum } from './fold.js';

const barcodeAt = 0;
const ordinalAt = 1;
const codeAt = 2;
const nameAt = 3;
const unitAt = 4;
const figureAt = 5;

export function keyOf(barcode, ordinal) {
  return `${barcode}\n${ordinal}`;
}

export class Lines {
  #rows = [];
  #byKey = new Map();
  #byBarcode = new Map();
  #byCode = new Map();
  #texts = null;
  #revisions = [];
  #pending = new Map();
  #heard = new Map();
  #counted = 0;

  get size() {
    return this.#rows.length;
  }

  /** The number of lines that have a figure. */
  get counted() {
    return this.#counted;
  }

  /** Rows are [barcode, ordinal, code, name, unit, figure]. */
  setRows(rows) {
    this.#rows = rows;
    this.#revisions = new Float64Array(rows.length);
    this.#heard.clear();
    this.#texts = null;
    this.#byKey = new Map();
    this.#byBarcode = new Map();
    this.#byCode = new Map();
    rows.forEach((row, line) => {
      this.#byKey.set(keyOf(row[barcodeAt], row[ordinalAt]), line);
      addTo(this.#byBarcode, fold(row[barcodeAt]), line);
      addTo(this.#byCode, fold(row[codeAt]), line);
    });
    this.#count();
  }

  rows() {
    return this.#rows;
  }

  /** Queued figures of this count, in their order. */
  setPending(items) {
    this.#pending = new Map();
    for (const item of items) addTo(this.#pending, keyOf(item.barcode, item.ordinal), item);
    for (const [key, { barcode, ordinal, figure, revision }] of this.#heard) {
      if (this.isAdding(barcode, ordinal)) continue;
      this.#heard.delete(key);
      this.setFigure(barcode, ordinal, figure, revision);
    }
    this.#count();
  }

  /** Whether an addition to the line has no answer yet: what the desk says of it meanwhile may include that. */
  isAdding(barcode, ordinal) {
    return (this.#pending.get(keyOf(barcode, ordinal)) ?? []).some(({ op }) => op === 'add');
  }

  /** What a line has once the desk has its waiting figures; undefined unless one of them is set. */
  unansweredSet(barcode, ordinal) {
    let figure;
    for (const { op, text } of this.#pending.get(keyOf(barcode, ordinal)) ?? []) {
      if (op === 'set') figure = text;
      else if (figure !== undefined) figure = sum(figure, text);
    }
    return figure;
  }

  /** The desk has said a figure without being asked. Where an addition is under way, it counts after the answer. */
  hear(barcode, ordinal, figure, revision) {
    if (this.isAdding(barcode, ordinal)) {
      this.#heard.set(keyOf(barcode, ordinal), { barcode, ordinal, figure, revision });
    } else {
      this.setFigure(barcode, ordinal, figure, revision);
    }
  }

  /** The desk had a figure at a revision, which may be before one that is known here: answers overtake each other. */
  setFigure(barcode, ordinal, figure, revision) {
    const line = this.lineOf(barcode, ordinal);
    if (line === undefined || revision < this.#revisions[line]) return;
    this.#rows[line][figureAt] = figure;
    this.#revisions[line] = revision;
  }

  countAnew() {
    this.#count();
  }

  lineOf(barcode, ordinal) {
    return this.#byKey.get(keyOf(barcode, ordinal));
  }

  at(line) {
    const row = this.#rows[line];
    return {
      barcode: row[barcodeAt],
      ordinal: row[ordinalAt],
      code: row[codeAt],
      name: row[nameAt],
      unit: row[unitAt],
      figure: this.figure(line),
      isPending: this.#pending.has(keyOf(row[barcodeAt], row[ordinalAt])),
    };
  }

  /** The figure as the counter sees it: what is queued counts already. Empty: not counted. */
  figure(line) {
    const row = this.#rows[line];
    let figure = row[figureAt];
    if (this.#pending.size === 0) return figure;
    for (const item of this.#pending.get(keyOf(row[barcodeAt], row[ordinalAt])) ?? []) {
      figure = item.op === 'add' ? sum(figure, item.text) : item.text;
    }
    return figure;
  }

  /** Lines of a scanned barcode; of a code when no barcode is the same; of the barcode in its other form. */
  scanned(text) {
    const folded = fold(text.trim());
    const found = this.#byBarcode.get(folded) ?? this.#byCode.get(folded) ?? this.#byBarcode.get(otherForm(folded)) ?? [];
    const exact = found.filter((line) => this.#rows[line][barcodeAt] === text.trim());
    return exact.length > 0 ? exact : found;
  }

  /** Whether a barcode is the same, without the codes. */
  isBarcode(text) {
    const folded = fold(text.trim());
    return this.#byBarcode.has(folded) || this.#byBarcode.has(otherForm(folded));
  }

  isCode(text) {
    return this.#byCode.has(fold(text.trim()));
  }

  /** Lines that have each word somewhere in name, code or barcode, and that `isWanted`. */
  search(text, isWanted = () => true) {
    const words = fold(text).split(/\s+/).filter((word) => word !== '');
    const found = [];
    const texts = words.length === 0 ? null : this.#searchTexts();
    for (let line = 0; line < this.#rows.length; ++line) {
      if (texts && !words.every((word) => texts[line].includes(word))) continue;
      if (isWanted(line)) found.push(line);
    }
    return found;
  }

  /** Folds all texts, once for all searches. */
  #searchTexts() {
    this.#texts ??= this.#rows.map((row) => fold(`${row[nameAt]}\n${row[codeAt]}\n${row[barcodeAt]}`));
    return this.#texts;
  }

  #count() {
    this.#counted = 0;
    for (let line = 0; line < this.#rows.length; ++line) if (this.figure(line) !== '') ++this.#counted;
  }
}

/** UPC-A has 12 digits for most scanners, and 13 with a leading 0 for cameras. */
function otherForm(barcode) {
  if (/^0\d{12}$/.test(barcode)) return barcode.slice(1);
  return /^\d{12}$/.test(barcode) ? `0${barcode}` : undefined;
}

/** Adds a value to those of a key. */
export function addTo(map, key, value) {
  const values = map.get(key);
  if (values) {
    values.push(value);
  } else {
    map.set(key, [value]);
  }
}
