// Sends what is queued until the desk has answered, in the order of entry.

import { Away, Closed, NotTaken, call, newsOf } from './desk.js';
import { isOfThisCount } from './state.js';
import { Wake } from './wake.js';

const maxItems = 500;
const maxLength = 200000;
const pauses = [300, 700, 1500, 2000];
const pauseWhileClosed = 20000;
const pauseAfterAll = 5000;  // a tab that was closed leaves its figures to the others, and wakes none

/** The first figures, of one device, that fit into a request. */
function nextBatch(items, atMost) {
  const bytes = new TextEncoder();
  const batch = [];
  let length = 0;
  for (const item of items) {
    const { seq, barcode, ordinal, op, text, base } = item;
    const wire = JSON.stringify({ seq, barcode, ordinal, op, text, base });
    length += bytes.encode(wire).length + 1;
    if (batch.length === atMost || item.device !== items[0].device || (batch.length > 0 && length > maxLength)) break;
    batch.push({ item, wire });
  }
  return batch;
}

/** What the counter is to read about an answer; nothing where the figure is simply in the counting. */
function noticeOf(item, answer) {
  if (answer.state === 'stored') return undefined;
  const { device, seq, code, count, barcode, ordinal, name, op, text } = item;
  return { device, seq, code, count, barcode, ordinal, name, op, mine: text, state: answer.state, theirs: answer.text ?? '',
           message: answer.message ?? '', by: answer.by ?? '', time: Date.now() };
}

/** What the desk has after an answer, for the time without network. */
function figureOf(item, answer, rev) {
  if (answer.text === undefined || answer.state === 'gone') return undefined;
  const { code, barcode, ordinal } = item;
  return { code, barcode, ordinal, figure: answer.text, rev };
}

export class Sender {
  #store;
  #here;
  #introduced = new Set();
  #wake = new Wake();
  #report;

  /**
   * `report` hears of all that happens: {inFlight}, {answered: [{item, answer}], open}, {away}, {busy: what the desk
   * says}, {unanswered}, {closed: code}, {unlisted: barcode, message}, {isDone} when nothing is left, {stuck: whether the
   * browser's storage fails}, {noted: barcode that the desk has seen to}. `here` gives {name of the device, code, count,
   * counting} of the page.
   */
  constructor(store, here, report) {
    this.#store = store;
    this.#here = here;
    this.#report = report;
  }

  /** Something was queued, or the desk can be reached again. */
  wake() {
    this.#wake.wake();
  }

  async run() {
    for (let failures = 0; ; ) {
      this.#wake.settle();
      const outcome = await this.#trySendAll();
      failures = outcome === 'waits' ? failures + 1 : 0;
      if (outcome === 'sent') await this.#rest();
      if (outcome === 'closed') await this.#wake.wait(pauseWhileClosed);
      if (outcome === 'waits') await this.#wake.wait(pauses[Math.min(failures, pauses.length) - 1]);
    }
  }

  /** A hidden tab leaves what a closed one has left to those that are seen, where the desk's questions are read. */
  async #rest() {
    let isWoken = false;
    do isWoken = await this.#wake.wait(pauseAfterAll);
    while (!isWoken && document.hidden);
  }

  /** What the browser's storage does not do now is tried again. */
  async #trySendAll() {
    try {
      const outcome = await this.#sendAll();
      this.#report({ stuck: false, isDone: outcome === 'sent' });
      return outcome;
    } catch {
      this.#report({ stuck: true });
      return 'waits';
    }
  }

  /** Returns 'sent' when nothing is left, 'closed' when only figures of closed counts are, else 'waits'. */
  async #sendAll() {
    const closed = new Set();
    let atMost = maxItems;
    for (;;) {
      const queue = (await this.#store.kept()).queue.filter((item) => !closed.has(item.code));
      if (queue.length === 0) break;
      const { code } = queue[0];
      const batch = nextBatch(queue.filter((item) => item.code === code), atMost);
      try {
        if (!await this.#send(code, batch)) return 'waits';
      } catch (error) {
        if (error instanceof Closed) {
          closed.add(code);
          this.#report({ closed: code });
        } else if (error instanceof NotTaken) {
          if (batch.length === 1) await this.#refuse(batch[0].item, error.message);
          atMost = 1;
        } else if (error instanceof Away) {
          this.#report({ unanswered: true, ...newsOf(error) });
          return 'waits';
        } else {
          throw error;
        }
      } finally {
        this.#report({ inFlight: 0 });
      }
    }
    if (!await this.#sendUnknown(closed)) return 'waits';
    return closed.size === 0 ? 'sent' : 'closed';
  }

  /** Returns false when the desk takes no figures now. */
  async #send(code, batch) {
    this.#report({ inFlight: batch.length });
    const { device } = batch[0].item;
    await this.#introduce(code, device);
    const body = `{"device":${JSON.stringify(device)},"items":[${batch.map(({ wire }) => wire).join(',')}]}`;
    const { items, open, rev } = await call('a/figures', code, { body });
    const bySeq = new Map(items.map((answer) => [answer.seq, answer]));
    const answered = [];
    for (const { item } of batch) {
      const answer = bySeq.get(item.seq);
      if (answer && answer.state !== 'paused') answered.push({ item, answer });
    }
    await this.#store.settle(answered.map(({ item, answer }) => (
        { item, notice: noticeOf(item, answer), figure: figureOf(item, answer, rev) })));
    this.#report({ answered, code, open, rev });
    return answered.length > 0;
  }

  /** The desk shows the counter's name with figures of an id that this browser had before, too. */
  async #introduce(code, device) {
    const key = `${code}\n${device}`;
    const { name } = this.#here();
    if (device === this.#store.device || name === '' || this.#introduced.has(key)) return;
    try {
      await call('a/hello', code, { body: JSON.stringify({ device, name }) });
      this.#introduced.add(key);
    } catch {
      // The figures come without it.
    }
  }

  async #refuse(item, message) {
    const answer = { state: 'refused', message };
    await this.#store.settle([{ item, notice: noticeOf(item, answer) }]);
    this.#report({ answered: [{ item, answer }], code: item.code });
  }

  async #sendUnknown(closed) {
    for (const entry of await this.#store.unknown()) {
      try {
        if (!await this.#sendBarcode(entry, closed)) continue;
      } catch (error) {
        if (error instanceof Away) {
          this.#report(newsOf(error));
          return false;
        }
        if (!(error instanceof NotTaken)) throw error;
        this.#report({ unlisted: entry.barcode, message: error.message });
      }
      await this.#store.forgetUnknown(entry);
      this.#report({ noted: entry });
    }
    return true;
  }

  /**
   * Sends a barcode under its code. If that is closed, it is one of this code, where both are of the same count. Returns
   * false when it waits for the counter.
   */
  async #sendBarcode(entry, closed) {
    const here = this.#here();
    const body = JSON.stringify({ device: this.#store.device, barcode: entry.barcode });
    for (const code of isOfThisCount(entry, here) ? [entry.code, here.code] : [entry.code]) {
      if (closed.has(code)) continue;
      try {
        await call('a/unknown', code, { body });
        return true;
      } catch (error) {
        if (!(error instanceof Closed)) throw error;
        closed.add(code);
        this.#report({ closed: code });
      }
    }
    return false;
  }
}
