// Reads the lines, and hears from the desk what changes.

import { Closed, call, newsOf } from './desk.js';
import { Wake } from './wake.js';

const pauses = [300, 700, 1500, 3000];
const pauseWhileClosed = 20000;
const shortestRound = 300;

export class Listener {
  #code;
  #who;
  #report;
  #wake = new Wake();
  #control = new AbortController();
  #revision = null;
  #greeted = false;
  #mark;

  /** `report` hears {hello}, {lines}, {cells}, {open}, {closed}, {away}, {busy}. `who` gives {device, name}. */
  constructor(code, who, report) {
    this.#code = code;
    this.#who = who;
    this.#report = report;
  }

  /** Asks the desk now, whatever it is waiting for. */
  wake() {
    this.#wake.wake();
    this.#control.abort();
  }

  /** From now on, figures are sent again: their answers may be older than what is known here. */
  mark() {
    if (this.#mark === undefined) this.#mark = this.#revision;
  }

  /** They are answered: what has changed since the mark is read again. */
  rewind() {
    if (this.#mark === undefined) return;
    this.#revision = this.#mark;
    this.#mark = undefined;
    this.wake();
  }

  /** What is known of the lines is not of this counting. */
  readLinesAnew() {
    this.#revision = null;
    this.#mark = undefined;
  }

  /** The name or the id has changed: the desk is to hear it. */
  greetAnew() {
    this.#greeted = false;
    this.wake();
  }

  async run() {
    for (let failures = 0; ; ) {
      this.#wake.settle();
      this.#control = new AbortController();
      const begin = performance.now();
      try {
        const isNews = await this.#round();
        failures = 0;
        if (!isNews && performance.now() - begin < shortestRound) await this.#wake.wait(shortestRound);
      } catch (error) {
        if (this.#control.signal.aborted) continue;
        this.#greeted = false;
        const isClosed = error instanceof Closed;
        this.#report(isClosed ? { closed: this.#code } : newsOf(error));
        await this.#wake.wait(isClosed ? pauseWhileClosed : pauses[Math.min(failures++, pauses.length - 1)]);
      }
    }
  }

  async #round() {
    const { signal } = this.#control;
    if (!this.#greeted) {
      const body = JSON.stringify(this.#who());
      const hello = await call('a/hello', this.#code, { body, signal });
      this.#greeted = true;
      this.#report({ hello, open: hello.open });
      return true;
    }
    if (this.#revision === null) {
      const { rev, open, lines } = await call('a/lines', this.#code, { signal, seconds: 60 });
      this.#revision = rev;
      this.#report({ lines, open });
      return true;
    }
    const path = `a/changes?since=${this.#revision}&device=${encodeURIComponent(this.#who().device)}`;
    const changes = await call(path, this.#code, { signal, seconds: 40 });
    const isNews = changes.lines || changes.cells.length > 0;
    this.#revision = changes.lines ? null : changes.rev;
    this.#report({ cells: changes.cells, rev: changes.rev, open: changes.open });
    return isNews;
  }
}
