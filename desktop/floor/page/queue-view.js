// The figures that the desk has not answered, and the barcodes that it has not seen to, as a list that can be read out.

import { VirtualList } from './virtual-list.js';
import { fillQueued, fillUnknown, makeRow } from './rows.js';
import { hasStrangers, movableOf, queueText, strangersOf } from './state.js';

export class QueueView {
  #box;
  #floor;
  #list;
  #text = document.createElement('p');
  #move = document.createElement('button');
  #forget = document.createElement('button');
  #isSure = false;

  constructor(box, floor, onClosed) {
    this.#box = box;
    this.#floor = floor;
    const top = document.createElement('div');
    top.className = 'top';
    const rows = document.createElement('div');
    rows.className = 'rows';
    const close = document.createElement('button');
    close.textContent = 'بستن';
    close.addEventListener('click', onClosed);
    this.#move.textContent = 'فرستادن به این شمارش';
    this.#move.addEventListener('click', () => floor.moveHere(movableOf(floor)));
    this.#forget.addEventListener('click', () => this.#forgetThem());
    for (const button of [close, this.#move, this.#forget]) button.type = 'button';
    top.append(this.#text, close, this.#move, this.#forget);
    box.append(top, rows);
    this.#list = new VirtualList(rows, {
      make: makeRow,
      fill: (row, at) => this.#fill(row, at),
      choose: () => {},
    });
  }

  draw() {
    if (this.#box.hidden) {
      this.#isSure = false;
      return;
    }
    this.#text.textContent = queueText(this.#floor);
    this.#move.hidden = movableOf(this.#floor).length === 0;
    this.#forget.hidden = !hasStrangers(this.#floor);
    this.#forget.textContent = this.#isSure ? 'بله، از گوشی پاک شود' : 'پاک کردن از گوشی';
    this.#list.setLength(this.#floor.queue.length + this.#floor.unknown.length);
  }

  #fill(row, at) {
    const { code, queue, unknown } = this.#floor;
    const [fill, entry] = at < queue.length ? [fillQueued, queue[at]] : [fillUnknown, unknown[at - queue.length]];
    fill(row, entry, entry.code !== code);
  }

  /** Only what is of a code that is closed, and only when pressed twice. */
  async #forgetThem() {
    if (this.#isSure) await this.#floor.forget(strangersOf(this.#floor));
    this.#isSure = !this.#isSure;
    this.draw();
  }
}
