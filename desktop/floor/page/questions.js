// What a device is asked once, before the first figure.

import { keepText } from './floor.js';

const arrivedKey = 'koru.arrived';

/**
 * Figures that wait in the page of the http address are not seen by this one, which the browser keeps apart from it:
 * whether there are any is the counter's to say.
 */
function asksForPlain() {
  return location.protocol === 'https:' && localStorage.getItem(arrivedKey) === null;
}

/** The desk's port for http is the one before that for https. */
function plainAddress() {
  return `http://${location.hostname}:${Number(location.port) - 1}/`;
}

export class Questions {
  #naming;
  #arrived;
  #hasArrived = false;
  #floor;
  #onDone;

  /** `naming` is the form with the field `name`, `arrived` the one with the link `plain`. */
  constructor({ naming, name, arrived, plain }, floor, onDone) {
    this.#naming = naming;
    this.#arrived = arrived;
    this.#floor = floor;
    this.#onDone = onDone;
    naming.addEventListener('submit', (event) => {
      event.preventDefault();
      const typed = name.value.trim();
      if (!/\p{L}/u.test(typed)) return;  // a scanned barcode is no name
      floor.name = typed;
      this.ask();
    });
    arrived.addEventListener('submit', (event) => {
      event.preventDefault();
      this.#hasArrived = true;
      keepText(arrivedKey, 'yes');
      this.ask();
    });
    plain.href = plainAddress();
  }

  /** Asks the next question; nothing else can be reached meanwhile. */
  ask() {
    const asked = this.#next();
    for (const part of document.body.children) part.inert = asked !== undefined && part !== asked;
    for (const form of [this.#naming, this.#arrived]) form.hidden = form !== asked;
    if (asked === undefined) {
      this.#onDone();
    } else {
      asked.querySelector('input')?.focus();
    }
  }

  #next() {
    if (this.#floor.code === '') return undefined;
    if (this.#floor.name === '') return this.#naming;
    return !this.#hasArrived && asksForPlain() ? this.#arrived : undefined;
  }
}
