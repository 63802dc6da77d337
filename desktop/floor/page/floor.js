// The state of the page: which count it is, its lines, what is queued and what the desk has said.

import { Lines, keyOf } from './lines.js';
import { Listener } from './listener.js';
import { Sender } from './sender.js';

const nameKey = 'koru.name';
const codeKey = 'koru.code';

/** Takes the code off the address bar. A tab keeps its count when another tab opens another one. */
export function takeCode() {
  const typed = decodeURIComponent(location.hash.slice(1));
  if (typed) {
    history.replaceState(null, '', location.pathname);
    sessionStorage.setItem(codeKey, typed);
    localStorage.setItem(codeKey, typed);
  }
  return sessionStorage.getItem(codeKey) ?? localStorage.getItem(codeKey) ?? '';
}

/** Keeps a short text, where the browser does. */
function keepText(key, text) {
  try {
    localStorage.setItem(key, text);
  } catch {
    // This page knows it.
  }
}

export class Floor extends EventTarget {
  lines = new Lines();
  /** Figures without an answer, of all counts, in their order. */
  queue = [];
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
  place = '';
  /** Whether the lines are those of the desk or those kept from before. */
  areLinesKnown = false;

  #store;
  #code;
  #sender;
  #listener;
  #name = localStorage.getItem(nameKey) ?? '';
  #noticeOf = new Map();
  #closedCodes = new Set();

  constructor(store, code, device) {
    super();
    this.#store = store;
    this.#code = code;
    this.#sender = new Sender(store, device, (news) => this.#hear(news));
    this.#listener = new Listener(code, device, () => this.name, (news) => this.#hear(news));
  }

  get code() {
    return this.#code;
  }

  /** Whether the desk has said that it does not know a code, or knows it no more. */
  isClosed(code) {
    return this.#closedCodes.has(code);
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

  #takeKept({ count, store, text, figures }) {
    this.count = count;
    this.place = store;
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
    const { queue, notices } = await this.#store.kept();
    this.notices = notices.filter(({ code }) => code === this.#code).sort((a, b) => b.time - a.time);
    this.#noticeOf = new Map(this.notices.map((notice) => [keyOf(notice.barcode, notice.ordinal), notice]));
    this.#setQueue(queue);
  }

  noticeOf(barcode, ordinal) {
    return this.#noticeOf.get(keyOf(barcode, ordinal));
  }

  /** Enters a figure; when this has returned, it is kept. */
  async enter({ barcode, ordinal, name }, op, text, base) {
    const item = { code: this.#code, count: this.count, barcode, ordinal, name, op, text, base, time: Date.now() };
    const kept = await this.#store.enter(item);
    await this.readKept().catch(() => this.#setQueue([...this.queue, kept]));
    this.#sender.wake();
  }

  /** The browser has erased what it kept; figures and notices that are shown are kept again. */
  erased() {
    keepText(nameKey, this.#name);
    keepText(codeKey, this.#code);
    if (this.queue.length > 0) this.#changed('erased');
  }

  async dismiss(notice) {
    await this.#change(() => this.#store.dismiss(notice));
  }

  /** Figures whose count is closed: they become those of this count, or are forgotten. */
  async moveHere(items) {
    await this.#change(() => this.#store.move(items, this.#code));
    this.#sender.wake();
  }

  async forget(items) {
    await this.#change(() => this.#store.forget(items));
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
    await this.#store.keepUnknown({ code: this.#code, barcode });
    this.#sender.wake();
  }

  #hear(news) {
    if ('inFlight' in news) this.inFlight = news.inFlight;
    if ('stuck' in news) this.isStuck = news.stuck;
    if (news.away) this.reach = 'away';
    if (news.unanswered) this.#listener.mark();
    if (news.closed) this.#closedCodes.add(news.closed);
    if ('open' in news) this.#closedCodes.delete(news.code ?? this.#code);
    if (news.closed === this.#code) this.#setClosed(true);
    if ('open' in news && (news.code ?? this.#code) === this.#code) this.#reached(news.open ?? this.open);
    if (news.hello) this.#greeted(news.hello);
    if (news.lines) this.#linesCame(news.lines);
    if (news.cells) this.#cellsCame(news.cells, news.rev);
    if (news.answered) this.#answersCame(news.answered, news.rev);
    this.#changed('state');
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
    if (isBack && this.queue.length > 0) this.#sender.wake();
  }

  #greeted({ count, store }) {
    this.count = count;
    this.place = store;
  }

  #linesCame(rows) {
    this.#takeLines(rows);
    this.#store.keepLines({ code: this.#code, count: this.count, store: this.place, text: JSON.stringify(rows) })
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
    const settled = new Set(answered.map(({ item }) => item.seq));
    this.#setQueue(this.queue.filter(({ seq }) => !settled.has(seq)));
    this.readKept().catch(() => {}).then(() => {
      const asked = answered.filter(({ item, answer }) => item.code === this.#code && answer.state !== 'stored');
      if (asked.length > 0) this.dispatchEvent(new CustomEvent('asked', { detail: asked }));
    });
  }

  #changed(what) {
    this.dispatchEvent(new Event(what));
  }
}
