// What is said above the list: at most one thing for now, and what the counter must read.

import { isolated } from './fold.js';

export class Sayings {
  #banner;
  #unknown;
  #unknownText;
  #unread = [];
  #holding = new Set();

  /** `banner` is a box that is pressed; `unknown` is one with `unknownText` and the button `unknownClose`. */
  constructor({ banner, unknown, unknownText, unknownClose }) {
    this.#banner = banner;
    this.#unknown = unknown;
    this.#unknownText = unknownText;
    unknownClose.addEventListener('click', () => this.hide());
    banner.addEventListener('click', () => {
      this.#unread = [];
      this.hide();
    });
  }

  /** Says something until the next scan. */
  say(text, isBad = true) {
    this.#show([...this.#unread, text], isBad || this.#unread.length > 0);
  }

  /** Says what stays until the counter presses it. */
  sayUntilRead(text) {
    if (!this.#unread.includes(text)) this.#unread.push(text);
    this.#show(this.#unread, true);
  }

  /** Says once what has begun to hold; takes it back when it holds no more. */
  sayWhile(holds, text) {
    if (holds === this.#holding.has(text)) return;
    if (holds) {
      this.#holding.add(text);
      this.sayUntilRead(text);
    } else {
      this.#holding.delete(text);
      this.takeBack(text);
    }
  }

  /** What was to be read need not be any more. */
  takeBack(text) {
    if (!this.#unread.includes(text)) return;
    this.#unread = this.#unread.filter((unread) => unread !== text);
    this.#banner.hidden = true;
    if (this.#unread.length > 0) this.#show(this.#unread, true);
  }

  sayUnknown(barcode) {
    this.#unknown.hidden = false;
    this.#unknownText.textContent = `بارکد ${isolated(barcode)} در این شمارش نیست. به میز خبر داده می‌شود.`;
  }

  /** Hides what has been said, but not what the counter must read. */
  hide() {
    this.#unknown.hidden = true;
    this.#banner.hidden = true;
    if (this.#unread.length > 0) this.#show(this.#unread, true);
  }

  #show(texts, isBad) {
    this.#banner.hidden = false;
    this.#banner.className = isBad ? 'bad' : '';
    this.#banner.textContent = texts.join('\n');
  }
}
