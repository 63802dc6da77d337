// The card of a line: its own figure, the field for another one, and what the desk has said about it.

import { figureText, isolated, isolatedNumber } from './fold.js';
import { figureOrNone, whoHas } from './rows.js';
import { alarm, confirmation } from './signals.js';

// What is longer is a barcode rather than a figure, where a line has it or where it has as many digits as an EAN-8.
const maxDigits = 7;
const shortestBarcode = 4;
const shortestCode = 6;

function make(name, { text, className, dir, type, id } = {}, ...children) {
  const made = document.createElement(name);
  if (text !== undefined) made.textContent = text;
  if (className) made.className = className;
  if (dir) made.dir = dir;
  if (type) made.type = type;
  if (id) made.id = id;
  made.append(...children);
  return made;
}

function button(text, press, className = '') {
  const made = make('button', { text, className, type: 'button' });
  made.addEventListener('click', press);
  return made;
}

export class Card {
  #box;
  #floor;
  #onClosed;
  #onScanned;
  #onFailed;
  #key = null;
  #gone = null;
  #seen = '';
  #input;
  #asked;
  #own;
  #notice;
  #remove;

  /**
   * `onScanned` gets a barcode that was scanned into the figure; `onClosed` is called when the card is closed;
   * `onFailed` gets the line and the figure that could not be kept.
   */
  constructor(box, floor, { onClosed, onScanned, onFailed }) {
    this.#box = box;
    this.#floor = floor;
    this.#onClosed = onClosed;
    this.#onScanned = onScanned;
    this.#onFailed = onFailed;
    floor.addEventListener('figures', () => this.#draw());
    floor.addEventListener('lines', () => this.#draw());
    box.addEventListener('keydown', (event) => {
      if (event.key === 'Escape') this.close();
    });
  }

  get isOpen() {
    return !this.#box.hidden;
  }

  /** Opens the card of a line of the count. */
  open(line) {
    const { barcode, ordinal, code, name, unit, figure } = this.#floor.lines.at(line);
    this.#key = { barcode, ordinal, name };
    this.#seen = figure;
    this.#own = make('div', { className: 'own' });
    this.#asked = make('div', { className: 'notice' });
    this.#asked.hidden = true;
    this.#notice = make('div', { className: 'notice' });
    this.#remove = button('پاک کردن رقم', () => this.#enter('set', ''));
    this.#box.replaceChildren(this.#top(name), this.#own, this.#entry(), this.#asked, this.#notice,
                              this.#details({ barcode, code, unit }), this.#remove);
    this.#box.hidden = false;
    this.#box.scrollTop = 0;
    this.#draw();
    this.#input.focus();
  }

  /** Opens the card of an answer whose line the counting has no more. */
  openGone(notice) {
    this.#key = null;
    const text = make('div', { className: 'notice bad' }, make('p', { text: 'این کالا دیگر در شمارش نیست' }),
                      make('p', { text: `رقم شما: ${figureOrNone(notice.mine)}` }));
    text.append(make('div', { className: 'choices' }, button('باشد', () => this.#dismiss(notice))));
    this.#box.replaceChildren(this.#top(notice.name), text, this.#details({ barcode: notice.barcode }));
    this.#box.hidden = false;
  }

  close() {
    if (this.#box.hidden) return;
    this.#box.hidden = true;
    this.#key = null;
    this.#box.replaceChildren();
    this.#onClosed();
  }

  #top(name) {
    return make('div', { className: 'top' }, make('h2', { text: name, dir: 'auto' }), button('بستن', () => this.close()));
  }

  #entry() {
    this.#input = make('input', { type: 'text', id: 'figure' });
    this.#input.inputMode = 'decimal';
    this.#input.autocomplete = 'off';
    this.#input.maxLength = 60;
    this.#input.enterKeyHint = 'done';
    this.#input.setAttribute('aria-label', 'مقدار');
    this.#input.addEventListener('keydown', (event) => {
      if (event.key !== 'Enter' || event.isComposing) return;
      event.preventDefault();
      this.#take('set');
    });
    return make('div', { className: 'entry' }, this.#input, button('ثبت', () => this.#take('set'), 'main'),
                button('افزودن', () => this.#take('add')));
  }

  #details(values) {
    const list = make('dl');
    for (const [label, value] of [['بارکد', values.barcode], ['کد', values.code], ['واحد', values.unit]]) {
      if (value) list.append(make('dt', { text: label }), make('dd', {}, make('bdi', { text: value, dir: 'auto' })));
    }
    return list;
  }

  #draw() {
    if (!this.#key) return;
    const { barcode, ordinal } = this.#key;
    const line = this.#floor.lines.lineOf(barcode, ordinal);
    if (line === undefined) {
      this.close();
      return;
    }
    const { figure, isPending } = this.#floor.lines.at(line);
    const isChanged = figure !== this.#seen;
    if (!this.#isBusy()) this.#seen = figure;
    this.#own.classList.toggle('changed', isChanged);
    const state = isPending ? 'هنوز به میز نرسیده' : isChanged ? 'همین حالا عوض شد' : '';
    this.#own.replaceChildren(make('span', { text: 'شمارش شما:' }),
                              make('strong', { text: figureOrNone(figure) }), make('span', { text: state }));
    this.#remove.hidden = figure === '';
    this.#drawNotice(this.#floor.noticeOf(barcode, ordinal));
  }

  /** The counter types or is asked: what was shown before is what the figure is set against. */
  #isBusy() {
    return this.#input.value !== '' || !this.#asked.hidden;
  }

  #drawNotice(notice) {
    this.#notice.hidden = notice === undefined;
    if (!notice) return;
    const choices = make('div', { className: 'choices' });
    const texts = [];
    if (notice.state === 'conflict') {
      const theirs = figureOrNone(notice.theirs);
      texts.push(`در این میان رقم دیگری ثبت شده است. ${whoHas(notice)}: ${theirs}`);
      choices.append(button(`${theirs} بماند`, () => this.#dismiss(notice)),
                     button(notice.mine === '' ? 'رقم پاک شود' : `${isolatedNumber(notice.mine)} ثبت شود`,
                            () => this.#enter('set', notice.mine, notice.theirs)));
    } else {
      texts.push(notice.message);
      if (notice.state === 'refused') texts.push(`رقم شما ثبت نشد: ${isolatedNumber(notice.mine)}`);
      choices.append(button('خواندم', () => this.#dismiss(notice)));
    }
    this.#notice.classList.toggle('bad', notice.state === 'refused');
    this.#notice.replaceChildren(...texts.map((text) => make('p', { text, dir: 'auto' })), choices);
  }

  #dismiss(notice) {
    this.close();
    return this.#floor.dismiss(notice);
  }

  /** Takes the typed figure; asks back where it is more likely a barcode. */
  #take(op) {
    const typed = this.#input.value;
    const text = figureText(typed);
    if (text === '') {
      this.#ask(['مقدار را بنویسید. برای هیچ، 0 را بنویسید.']);
      return;
    }
    const digits = text === null ? 0 : text.replace(/\..*|\D/g, '').length;
    if (digits > maxDigits || this.#isOfLine(typed)) {
      this.#askForBarcode(op, text, typed.trim());
    } else if (text === null) {
      alarm();
      this.#ask(['عدد نیست.']);
    } else {
      this.#enter(op, text);
    }
  }

  #isOfLine(typed) {
    const { length } = typed.trim();
    const { lines } = this.#floor;
    return (length >= shortestBarcode && lines.isBarcode(typed)) || (length >= shortestCode && lines.isCode(typed));
  }

  #askForBarcode(op, text, typed) {
    alarm();
    const find = button('بارکد است؛ پیدا شود', () => this.#onScanned(typed));
    const choices = [find];
    if (text !== null) choices.push(button('مقدار است', () => this.#enter(op, text)));
    this.#ask([`${isolated(typed)} مقدار است یا بارکد؟`], ...choices);
    this.#input.value = '';
    find.focus();
  }

  #ask(texts, ...choices) {
    this.#asked.hidden = false;
    this.#asked.replaceChildren(...texts.map((text) => make('p', { text })));
    if (choices.length > 0) this.#asked.append(make('div', { className: 'choices' }, ...choices));
    if (choices.length === 0) this.#input.select();
  }

  /** The card is closed at once, so that a scanner's next keys reach the search field. */
  async #enter(op, text, base = this.#seen) {
    const line = this.#key;
    this.close();
    try {
      await this.#floor.enter(line, op, text, op === 'set' ? base : '');
      confirmation();
    } catch {
      alarm();
      this.#onFailed(line, text);
    }
  }
}
