// The card of a line: its own figure, the field for another one, and what the desk has said about it.

import { figureText, isolated, isolatedNumber } from './fold.js';
import { earlierCode, figureOrNone, goneText, mineText, noticeText } from './notices.js';
import { alarm, confirmation } from './signals.js';

// What is longer is a barcode rather than a figure, where a line has it or where it has as many digits as an EAN-8; so
// is a number with an exponent.
const maxDigits = 7;
const shortestBarcode = 4;
const shortestCode = 6;
const shortestAfterFigure = 8;

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

function noticeBox({ texts, isBad }, ...choices) {
  return make('div', { className: isBad ? 'notice bad' : 'notice' },
              ...texts.map((text) => make('p', { text, dir: 'auto' })),
              make('div', { className: 'choices' }, ...choices));
}

export class Card {
  #box;
  #floor;
  #onClosed;
  #onScanned;
  #onFailed;
  #key = null;
  #seen = '';
  #putBack = null;
  #input;
  #asked;
  #own;
  #notices;
  #drawn = '';
  #remove;

  /**
   * `onScanned` gets a barcode that was scanned into the figure; `onClosed` is called when the card is closed;
   * `onFailed` gets {line, op, text, base} of a figure that could not be kept.
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
    this.#putBack = null;
    this.#own = make('div', { className: 'own' });
    this.#asked = make('div', { className: 'notice' });
    this.#asked.hidden = true;
    this.#notices = make('div');
    this.#drawn = '';
    this.#remove = button('پاک کردن رقم', () => this.#enter('set', ''));
    this.#box.replaceChildren(this.#top(name), this.#own, this.#entry(), this.#asked, this.#notices,
                              this.#details({ barcode, code, unit }), this.#remove);
    this.#box.hidden = false;
    this.#box.scrollTop = 0;
    this.#draw();
    this.#input.focus();
  }

  /** On the card of its line, writes a figure again that could not be kept. */
  putBack({ op, text, base }, sentence) {
    this.#putBack = { op, text };
    this.#seen = base;
    this.#input.value = text;
    const again = button('دوباره ثبت شود', () => (text === '' ? this.#enter(op, text) : this.#take(op)));
    this.#ask([sentence], again);
    again.focus();
  }

  /** What Enter does with the typed figure. */
  #usual() {
    return this.#putBack?.text === this.#input.value ? this.#putBack.op : 'set';
  }

  /** Opens the card of an answer whose line is not in the lines of the page: the answer is read and no more. */
  openAlone(notice) {
    this.#key = null;
    const isOther = !this.#floor.isOfThisCode(notice);
    const isGone = notice.state === 'gone' || (!isOther && this.#floor.areLinesKnown);
    const texts = [mineText(notice)];
    if (notice.state !== 'gone') texts.unshift(noticeText(notice));
    if (isGone) texts.unshift(goneText);
    if (isOther) texts.unshift(`${earlierCode(notice)}.`);
    if (isOther && notice.state !== 'warned') texts.push('اگر رقم شما درست است، آن را به میز بگویید.');
    const isBad = isGone || notice.state === 'refused';
    this.#showAlone(notice, { texts, isBad }, button('باشد', () => this.#dismiss(notice)));
    this.#box.hidden = false;
  }

  #showAlone({ name, barcode }, said, read) {
    this.#box.replaceChildren(this.#top(name), noticeBox(said, read), this.#details({ barcode }));
  }

  /** Calls `then` at once, or after the counter has said what becomes of the typed figure. */
  leave(then) {
    const typed = this.#key ? this.#input.value.trim() : '';
    if (typed === '') {
      then();
      return;
    }
    alarm();
    const enter = button('ثبت شود', () => {
      this.#take(this.#usual());
      if (!this.isOpen) then();
    });
    const forget = button('ثبت نشود', () => {
      this.#input.value = '';
      then();
    });
    this.#ask([`مقدار ${isolated(typed)} هنوز ثبت نشده است.`], enter, forget);
    enter.focus();
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
      if (event.isComposing) return;
      const isTab = event.key === 'Tab' && this.#isOfLine(this.#input.value);  // of a scanner
      if (event.key !== 'Enter' && !isTab) return;
      event.preventDefault();
      this.#take(this.#usual());
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
      this.#lineGone();
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
    this.#drawNotices(this.#floor.noticesOf(barcode, ordinal), figure);
  }

  #lineGone() {
    const line = this.#key;
    const typed = this.#input.value.trim();
    this.#key = null;
    alarm();
    const read = button('باشد', () => this.close());
    const texts = typed === '' ? [goneText] : [goneText, `رقم شما: ${isolatedNumber(typed)}`];
    this.#showAlone(line, { texts, isBad: true }, read);
    read.focus();
  }

  /** The counter types or is asked: what was shown before is what the figure is set against. */
  #isBusy() {
    return this.#input.value !== '' || !this.#asked.hidden;
  }

  /** Draws what is new alone: a button that is being pressed stays. The desk has `now` of the line. */
  #drawNotices(notices, now) {
    const drawn = JSON.stringify([notices, now]);
    if (drawn === this.#drawn) return;
    this.#drawn = drawn;
    this.#notices.replaceChildren(...notices.map((notice) => this.#noticeOfLine(notice, now)));
  }

  #noticeOfLine(notice, now) {
    const isBad = notice.state === 'refused' || notice.state === 'gone';
    if (notice.state === 'conflict') {
      const keep = button(`${figureOrNone(now)} بماند`, () => this.#dismiss(notice));
      const enter = button(notice.mine === '' ? 'رقم پاک شود' : `${isolatedNumber(notice.mine)} ثبت شود`,
                           () => this.#enter('set', notice.mine, now));
      return noticeBox({ texts: [noticeText(notice, now)], isBad }, keep, enter);
    }
    const texts = [noticeText(notice)];
    if (isBad || notice.op === 'add') texts.push(mineText(notice));
    return noticeBox({ texts, isBad }, button('خواندم', () => this.#dismiss(notice)));
  }

  /** The card stays open while it has another notice. */
  #dismiss(notice) {
    if (this.#key && this.#floor.noticesOf(this.#key.barcode, this.#key.ordinal).length > 1) {
      this.#input.focus();
      this.#floor.dismiss(notice);
      return;
    }
    this.leave(() => {
      this.close();
      this.#floor.dismiss(notice);
    });
  }

  /** Takes the typed figure; asks back where it is more likely a barcode. */
  #take(op) {
    const typed = this.#input.value;
    const text = figureText(typed);
    if (text === '') {
      this.#ask(['مقدار را بنویسید. برای هیچ، 0 را بنویسید.']);
      return;
    }
    if (this.#cutOff(typed.trim())) return;
    const digits = text === null ? 0 : text.replace(/\..*|\D/g, '').length;
    if (digits > maxDigits || /e/i.test(text ?? '') || this.#isOfLine(typed)) {
      this.#askForBarcode(op, text, typed.trim());
    } else if (text === null) {
      alarm();
      this.#ask(['عدد نیست.']);
    } else {
      this.#enter(op, text);
    }
  }

  /** A figure with the next scan after it is two texts. Returns whether it was. */
  #cutOff(typed) {
    if (this.#isOfLine(typed)) return false;
    for (let at = 1; at <= typed.length - shortestAfterFigure; ++at) {
      const barcode = typed.slice(at);
      if (!figureText(typed.slice(0, at)) || !this.#floor.lines.isBarcode(barcode)) continue;
      this.#input.value = typed.slice(0, at);
      this.leave(() => this.#onScanned(barcode));
      return true;
    }
    return false;
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
    } catch {
      alarm();
      this.#onFailed({ line, op, text, base });
      return;
    }
    confirmation();
  }
}
