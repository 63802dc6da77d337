// The state of the page: which count it is, its lines, what is queued and what the desk has said.

import { sum } from './fold.js';
import { Lines, addTo, keyOf } from './lines.js';
import { Listener } from './listener.js';
import { Sender } from './sender.js';
import { numberOf } from './store.js';

const nameKey = 'koru.name';
const codeKey = 'koru.code';

/** Keeps a short text, where the browser does: what fits nowhere is known until the page is closed. */
export function keepText(key, text, storage = localStorage) {
  try {
    storage.setItem(key, text);
  } catch {
    // This page knows it.
  }
}

/** What follows # in the address: as it is where it is not the encoding of a text. */
function typedCode() {
  const typed = location.hash.slice(1);
  try {
    return decodeURIComponent(typed);
  } catch {
    return typed;
  }
}

/** Takes the code off the address bar. A tab keeps its count when another tab opens another one. */
export function takeCode() {
  const typed = typedCode();
  if (!typed) return sessionStorage.getItem(codeKey) ?? localStorage.getItem(codeKey) ?? '';
  history.replaceState(null, '', location.pathname);
  keepText(codeKey, typed, sessionStorage);
  keepText(codeKey, typed);
  return typed;
}

export class Floor extends EventTarget {
  lines = new Lines();
  /** Figures without an answer, of all counts, in their order. */
  queue = [];
  /** Barcodes that no line has, until the desk has seen to them. */
  unknown = [];
  /** What the desk has said, under all codes, and the counter has not read, the newest first. */
  notices = [];
  inFlight = 0;
  /** 'unknown' until the desk was tried, then 'reached' or 'away'. */
  reach = 'unknown';
  /** Whether the desk takes figures now. */
  open = true;
  closed = false;
  /** Whether the browser's storage fails, so that nothing is sent. */
  isStuck = false;
  count = 0;
  /** The name of the store, and what distinguishes the counting from others; empty while the desk has not said it. */
  place = '';
  counting = '';
  /** Whether the lines are those of the desk or those kept from before. */
  areLinesKnown = false;

  #store;
  #code;
  #sender;
  #listener;
  #name = localStorage.getItem(nameKey) ?? '';
  #refusals = { sender: '', listener: '' };
  #noticesOf = new Map();
  #closedCodes = new Set();

  constructor(store, code) {
    super();
    this.#store = store;
    this.#code = code;
    this.#sender = new Sender(store, () => ({ ...this.#here(), name: this.name }),
                              (news) => this.#hear(news, 'sender'));
    this.#listener = new Listener(code, () => ({ device: store.device, name: this.name }),
                                  (news) => this.#hear(news, 'listener'));
  }

  get code() {
    return this.#code;
  }

  /** Whether the desk has said that it does not know a code, or knows it no more. */
  isClosed(code) {
    return this.#closedCodes.has(code);
  }

  /** Why the desk cannot do now what it is asked for, in its words; empty while it does. */
  get refusal() {
    return this.reach === 'away' ? '' : this.#refusals.sender || this.#refusals.listener;
  }

  get name() {
    return this.#name;
  }

  set name(name) {
    this.#name = name;
    keepText(nameKey, name);
    this.#listener.greetAnew();
  }

  /** Shows what is kept, then asks the desk. */
  async begin() {
    try {
      await this.readKept();
      const kept = this.#code && await this.#store.keptLines(this.#code);
      if (kept && !this.areLinesKnown) this.#takeKept(kept);
    } catch {
      // The sender needs the same storage, and reports what it does not do.
    }
    if (!this.#code) return;
    if (this.queue.length > 0) this.#listener.mark();
    this.#sender.run();
    this.#listener.run();
  }

  #takeKept({ count, place, store, counting = '', text, figures }) {
    this.count = count;
    this.place = place ?? store;  // pages before this one kept it under that name
    this.counting = counting;
    this.#takeLines(JSON.parse(text));
    for (const { barcode, ordinal, figure } of figures) this.lines.setFigure(barcode, ordinal, figure, 0);
    this.lines.countAnew();
    this.#changed('figures');
  }

  /** Tries at once what waits for its next time. */
  retry() {
    this.#sender.wake();
    this.#listener.wake();
  }

  /** Reads queue and notices anew: another tab may have changed them. */
  async readKept() {
    const [{ queue, notices }, unknown] = await Promise.all([this.#store.kept(), this.#store.unknown()]);
    this.unknown = unknown;
    const inOrder = notices.sort((a, b) => a.time - b.time || a.seq - b.seq);
    this.#noticesOf = new Map();
    for (const notice of inOrder) {
      if (this.isOfThisCode(notice)) addTo(this.#noticesOf, keyOf(notice.barcode, notice.ordinal), notice);
    }
    this.notices = inOrder.reverse();
    this.#setQueue(queue);
  }

  /** Whether a figure or a notice is of the count that the page shows. */
  isOfThisCode({ code }) {
    return code === this.#code;
  }

  /** The line of a notice, where the page has it. */
  lineOf(notice) {
    return this.isOfThisCode(notice) ? this.lines.lineOf(notice.barcode, notice.ordinal) : undefined;
  }

  /** What the desk has said about figures of a line, the oldest first. */
  noticesOf(barcode, ordinal) {
    return this.#noticesOf.get(keyOf(barcode, ordinal)) ?? [];
  }

  /**
   * Enters a figure; when this has returned, it is kept. One that is added to a figure which is set and has no answer
   * yet is set with it: whatever the desk has instead, it is not added to that.
   */
  async enter({ barcode, ordinal, name }, op, text, base) {
    const before = op === 'add' ? this.lines.unansweredSet(barcode, ordinal) : undefined;
    const entered = before === undefined ? { op, text, base } : { op: 'set', text: sum(before, text), base: before };
    const item = { ...this.#here(), barcode, ordinal, name, ...entered };
    const kept = await this.#store.enter(item);
    this.#setQueue([...this.queue, kept]);  // known from now on, should the browser erase it
    await this.readKept().catch(() => {});
    this.#sender.wake();
  }

  /** Where something is entered, which is kept with it. */
  #here() {
    const { count, place, counting } = this;
    return { code: this.#code, count, place, counting };
  }

  /** The browser has erased what it kept; what is shown as unsent or unread is kept again, and the id is another. */
  erased() {
    this.#listener.greetAnew();
    keepText(nameKey, this.#name);
    keepText(codeKey, this.#code);
    if (this.queue.length + this.unknown.length > 0) this.#changed('erased');
  }

  async dismiss(notice) {
    await this.#change(() => this.#store.dismiss(notice));
  }

  /** Figures whose count is closed: they become those of this count, or are forgotten. */
  async moveHere(items) {
    await this.#change(() => this.#store.move(items, this.#code));
    this.#sender.wake();
  }

  async forget({ figures, barcodes }) {
    await this.#change(async () => {
      await this.#store.forget(figures);
      for (const entry of barcodes) await this.#store.forgetUnknown(entry);
    });
  }

  /** Changes what is kept; reports when the browser's storage does not do it. */
  async #change(change) {
    try {
      await change();
      await this.readKept();
    } catch {
      this.#changed('failed');
    }
  }

  async noteUnknown(barcode) {
    const entry = { ...this.#here(), barcode, time: Date.now() };
    await this.#store.keepUnknown(entry);
    this.unknown = [...this.unknown, entry];  // as an entered figure
    await this.readKept().catch(() => {});
    this.#sender.wake();
  }

  /** `from` is who reports: the desk may answer the one and refuse the other. */
  #hear(news, from) {
    if ('inFlight' in news) this.inFlight = news.inFlight;
    if ('stuck' in news) this.isStuck = news.stuck;
    if (news.away) this.reach = 'away';
    if (news.busy) this.reach = 'reached';
    if (news.busy || news.away || news.closed || news.isDone || 'open' in news) this.#refusals[from] = news.busy ?? '';
    if (news.unanswered) this.#listener.mark();
    if (news.closed) this.#closedCodes.add(news.closed);
    if (news.closed === this.#code) this.#setClosed(true);
    if ('open' in news) this.#admitted(news.code ?? this.#code, news);
    if (news.hello) this.#greeted(news.hello);
    if (news.lines) this.#linesCame(news.lines);
    if (news.cells) this.#cellsCame(news.cells, news.rev);
    if (news.answered) this.#answersCame(news.answered, news.rev);
    if (news.noted) this.readKept().catch(() => {});
    if (news.unlisted) this.dispatchEvent(new CustomEvent('unlisted', { detail: news }));
    this.#changed('state');
  }

  /** The desk knows a code. Figures that it decided before it closed the code may be answered after that. */
  #admitted(code, { open, answered }) {
    if (answered && !open && this.isClosed(code)) return;
    this.#closedCodes.delete(code);
    if (code === this.#code) this.#reached(open);
  }

  #setClosed(closed) {
    this.closed = closed;
    if (closed) this.reach = 'reached';
  }

  #reached(open) {
    const isBack = this.reach !== 'reached' || this.closed || (open && !this.open);
    this.reach = 'reached';
    this.open = open;
    this.#setClosed(false);
    if (isBack && this.queue.length + this.unknown.length > 0) this.#sender.wake();
  }

  #greeted({ count, store, counting = '' }) {
    if (this.areLinesKnown && counting !== this.counting) this.#forgetLines();
    this.count = count;
    this.place = store;
    if (counting !== this.counting && this.unknown.length > 0) this.#sender.wake();
    this.counting = counting;
  }

  /** They are of another counting. */
  #forgetLines() {
    this.#takeLines([]);
    this.areLinesKnown = false;
    this.#listener.readLinesAnew();
  }

  #linesCame(rows) {
    this.#takeLines(rows);
    this.#store.keepLines({ ...this.#here(), text: JSON.stringify(rows) })
        .catch(() => {});  // the lines are a convenience; the queue is what must be kept
  }

  #takeLines(rows) {
    this.areLinesKnown = true;
    this.lines.setRows(rows);
    this.#changed('lines');
  }

  #cellsCame(cells, revision) {
    if (cells.length === 0) return;
    for (const [barcode, ordinal, figure] of cells) this.lines.hear(barcode, ordinal, figure, revision);
    this.lines.countAnew();
    this.#changed('figures');
    const kept = cells.filter(([barcode, ordinal]) => !this.lines.isAdding(barcode, ordinal))
        .map(([barcode, ordinal, figure]) => ({ code: this.#code, barcode, ordinal, figure, rev: revision }));
    this.#store.keepFigures(kept).catch(() => {});  // as the lines
  }

  #setQueue(queue) {
    this.queue = queue;
    this.lines.setPending(queue.filter(({ code }) => code === this.#code));
    this.#changed('figures');
  }

  /** The figures leave the queue and reach the lines at once, so that nothing is counted twice or not at all. */
  #answersCame(answered, revision) {
    for (const { item, answer } of answered) {
      if (item.code !== this.#code || answer.text === undefined || answer.state === 'gone') continue;
      this.lines.setFigure(item.barcode, item.ordinal, answer.text, revision);
    }
    this.#listener.rewind();
    const settled = new Set(answered.map(({ item }) => numberOf(item)));
    this.#setQueue(this.queue.filter((item) => !settled.has(numberOf(item))));
    this.readKept().catch(() => {}).then(() => {
      const asked = answered.filter(({ answer }) => answer.state !== 'stored');
      if (asked.length > 0) this.dispatchEvent(new CustomEvent('asked', { detail: asked }));
    });
  }

  #changed(what) {
    this.dispatchEvent(new Event(what));
  }
}
