// Wires what a counter sees to the state of the floor.

import { CameraView } from './camera-view.js';
import { Card } from './card.js';
import { Floor, takeCode } from './floor.js';
import { isolated, isolatedNumber, latinDigits, shortName } from './fold.js';
import { countName, saidText } from './notices.js';
import { Questions } from './questions.js';
import { QueueView } from './queue-view.js';
import { fillLine, fillNotice, makeRow } from './rows.js';
import { Sayings } from './sayings.js';
import { ScanField } from './scan-field.js';
import { alarm } from './signals.js';
import { hasStrangers, stateOf, unsentOf } from './state.js';
import { Store } from './store.js';
import { VirtualList } from './virtual-list.js';

const shortestBarcode = 3;
const ofEarlierCode =
    'در گوشی رقم یا بارکدی با کد پیشین مانده است که خودبه‌خود فرستاده نمی‌شود. دکمهٔ سرخ بالای صفحه را بزنید.';

const isNumber = (text) => /^\d+$/.test(latinDigits(text));

const by = (id) => document.getElementById(id);

class Page {
  #floor;
  #list;
  #card;
  #queueView;
  #camera;
  #field;
  #tab = 'all';
  #shown = [];
  #current = -1;
  #heldScan = null;
  #wasClosed = false;
  #sayings = new Sayings({ banner: by('banner'), unknown: by('unknown'), unknownText: by('unknown-text'),
                           unknownClose: by('unknown-close') });

  constructor(floor) {
    this.#floor = floor;
    this.#list = new VirtualList(by('list'), {
      make: makeRow,
      fill: (row, at) => this.#fillRow(row, at),
      choose: (at) => this.#choose(at),
    });
    this.#card = new Card(by('card'), floor, {
      onClosed: () => this.#cardClosed(),
      onScanned: (text) => this.#scan([text]),
      onFailed: (failed) => this.#notKept(failed),
    });
    this.#queueView = new QueueView(by('queue'), floor, () => this.#openTab('all'));
    this.#field = new ScanField(by('search'), {
      onTyped: () => this.#typed(),
      onEnter: (readings) => this.#entered(readings),
      onArrow: (step) => this.#step(step),
    });
    this.#camera = new CameraView(
        { box: by('camera-view'), video: by('video'), open: by('camera'), close: by('camera-close') },
        { onCode: (code) => this.#scan([code]),
          onFailed: () => this.#sayings.say('دوربین باز نشد. اجازهٔ دوربین را در مرورگر ببینید.') });
    this.#listen();
  }

  #listen() {
    for (const button of document.querySelectorAll('[data-tab]')) {
      button.addEventListener('click', () => this.#openTab(button.dataset.tab));
    }
    by('state').addEventListener('click', () => this.#openTab(this.#tab === 'queue' ? 'all' : 'queue'));
    by('clear').addEventListener('click', () => {
      this.#field.clear();
      this.#typed();
      this.#field.focus();
    });
    this.#floor.addEventListener('lines', () => this.#linesCame());
    this.#floor.addEventListener('figures', () => this.#draw());
    this.#floor.addEventListener('state', () => this.#drawState());
    this.#floor.addEventListener('asked', ({ detail }) => this.#asked(detail));
    this.#floor.addEventListener('unlisted', ({ detail: { unlisted, message } }) => this.#sayings.sayUntilRead(
        `بارکد ${isolated(unlisted)} در میز ثبت نشد${message === '' ? '.' : `: ${isolated(message)}`}`));
    this.#floor.addEventListener('failed', () => this.#sayings.sayUntilRead(
        'گوشی این تغییر را نگه نداشت. جای خالی گوشی را ببینید و دوباره بزنید.'));
    this.#floor.addEventListener('erased', () => this.#sayings.sayUntilRead(
        `داده‌های این صفحه از مرورگر پاک شد. ${unsentOf(this.#floor)} نرسیده دوباره در گوشی نگه داشته شد.`));
  }

  begin() {
    new Questions({ naming: by('naming'), name: by('name'), arrived: by('arrived'), plain: by('plain') }, this.#floor,
                  () => this.#field.focus()).ask();
    this.#draw();
  }

  // The list.

  #openTab(tab) {
    this.#card.leave(() => {
      this.#tab = tab;
      this.#card.close();
      this.#list.scrollToTop();
      if (tab === 'queue') this.#sayings.takeBack(ofEarlierCode);  // it says so itself
      this.#draw();
    });
  }

  #typed() {
    if (this.#tab === 'notices' || this.#tab === 'queue') this.#tab = 'all';
    this.#current = -1;
    this.#list.scrollToTop();
    this.#draw();
  }

  #draw() {
    const { lines, notices } = this.#floor;
    this.#shown = this.#tab === 'notices' ? notices : this.#found();
    this.#list.setLength(this.#tab === 'queue' ? 0 : this.#shown.length);
    by('list').hidden = this.#tab === 'queue';
    by('queue').hidden = this.#tab !== 'queue';
    by('clear').hidden = by('search').value === '';
    by('progress').max = Math.max(1, lines.size);
    by('progress').value = lines.counted;
    by('progress-text').textContent = this.#progressText();
    by('notices-number').textContent = notices.length > 0 ? notices.length : '';
    for (const button of document.querySelectorAll('[data-tab]')) {
      button.setAttribute('aria-pressed', String(button.dataset.tab === this.#tab));
      if (button.dataset.tab === 'notices') button.classList.toggle('asks', notices.length > 0);
    }
    this.#drawEmpty();
    this.#drawState();
  }

  #found() {
    const { lines } = this.#floor;
    const wanted = {
      left: (line) => lines.figure(line) === '',
      done: (line) => lines.figure(line) !== '',
    }[this.#tab];
    const [text, placed] = this.#field.readings();
    const found = lines.search(text, wanted);
    return found.length === 0 && placed ? lines.search(placed, wanted) : found;
  }

  #progressText() {
    const { lines } = this.#floor;
    const found = this.#field.text === '' ? '' : `${this.#shown.length} کالا  ·  `;
    return `${found}${lines.counted} از ${lines.size} شمرده`;
  }

  #drawEmpty() {
    const empty = by('empty');
    empty.hidden = this.#shown.length > 0 || this.#tab === 'queue';
    if (!empty.hidden) empty.textContent = this.#emptyText();
  }

  #emptyText() {
    if (this.#floor.code === '') {
      return 'این نشانی کد شمارش ندارد.\nدر برنامه «شمارش با گوشی» را باز کنید و کد QR را با دوربین گوشی بخوانید.';
    }
    if (this.#tab === 'notices') return 'پیامی نیست.';
    if (!this.#floor.areLinesKnown) {
      if (this.#floor.closed) return 'این شمارش بسته است.';
      return this.#floor.refusal === '' ? 'در حال خواندن کالاها…' : 'کالاها هنوز خوانده نشده است.';
    }
    if (this.#field.text !== '') return 'کالایی پیدا نشد.';
    if (this.#floor.lines.size === 0) return 'این شمارش کالایی ندارد.';
    return this.#tab === 'left' ? 'همه شمرده شده است.' : 'هنوز کالایی شمرده نشده است.';
  }

  #fillRow(row, at) {
    if (this.#tab === 'notices') {
      const notice = this.#shown[at];
      const line = this.#floor.lineOf(notice);
      fillNotice(row, notice, this.#floor.isOfThisCode(notice), line === undefined ? line : this.#floor.lines.figure(line));
      return;
    }
    const line = this.#floor.lines.at(this.#shown[at]);
    fillLine(row, line, this.#floor.noticesOf(line.barcode, line.ordinal), at === this.#current);
  }

  #choose(at) {
    const chosen = this.#shown[at];
    this.#card.leave(() => {
      if (this.#tab === 'notices') {
        this.#openNotice(chosen);
      } else {
        this.#current = at;
        this.#open(chosen);
      }
    });
  }

  #openNotice(notice) {
    const line = this.#floor.lineOf(notice);
    if (line === undefined) {
      this.#card.openAlone(notice);
      document.body.classList.add('with-card');
    } else {
      this.#open(line);
    }
  }

  #step(step) {
    if (this.#shown.length === 0 || this.#tab === 'queue') return;
    this.#current = Math.min(this.#shown.length - 1, Math.max(0, this.#current + step));
    this.#list.show(this.#current);
    this.#list.draw();
  }

  // Finding a line.

  #entered(readings) {
    if (readings[0] === '') {
      if (this.#current >= 0) this.#choose(this.#current);
      return;
    }
    if (this.#current >= 0) {
      this.#choose(this.#current);
    } else {
      this.#scan(readings);
      if (!this.#card.isOpen) this.#field.focus();
    }
  }

  /** Finds the line of a scan from the lines themselves: the list on the screen may not be drawn yet. */
  #scan(readings) {
    this.#card.leave(() => this.#find(readings));
  }

  #find(readings) {
    this.#sayings.hide();
    if (!this.#floor.areLinesKnown) {
      this.#heldScan = readings;
      return;
    }
    const { lines } = this.#floor;
    const scanned = readings.map((text) => lines.scanned(text)).find((found) => found.length > 0);
    const found = scanned ?? lines.search(readings[0]);
    const isScan = scanned !== undefined || isNumber(readings[0]);
    if (found.length === 0) {
      this.#nothingFound(readings);
    } else if (found.length === 1 && (scanned || !isScan)) {
      this.#openFound(found[0]);
    } else {
      if (isScan) this.#tab = 'all';
      this.#severalFound(readings, isScan && !scanned);
    }
  }

  /** Lists what was found: which one is meant is the counter's to say. A part of a barcode may be another barcode. */
  #severalFound([text], isPart) {
    this.#camera.stop();
    this.#card.close();
    this.#field.take(text);
    this.#typed();
    this.#field.focus();
    if (!isPart) return;
    alarm();
    this.#sayings.say('کالایی درست با این بارکد نیست؛ از فهرست برگزینید.');
  }

  #openFound(line) {
    this.#field.clear();
    this.#tab = 'all';
    this.#draw();
    this.#current = line;
    this.#list.show(line);
    this.#open(line);
  }

  /** A barcode that no line has is the desk's to know; a word that is nowhere is not. */
  #nothingFound(readings) {
    const barcode = readings.find((text) => text.length >= shortestBarcode && /^[\x21-\x7e]*\d[\x21-\x7e]*$/.test(text));
    if (!barcode) {
      this.#draw();
      return;
    }
    alarm();
    this.#card.close();
    this.#field.clear();
    this.#draw();
    this.#sayings.sayUnknown(barcode);
    this.#field.focus();
    this.#floor.noteUnknown(barcode).catch(() => this.#sayings.sayUntilRead(
        `بارکد ${isolated(barcode)} در گوشی نگه داشته نشد. آن را به میز بگویید.`));
  }

  #open(line) {
    this.#sayings.hide();
    this.#camera.pause();
    this.#card.open(line);
    document.body.classList.add('with-card');
    this.#list.draw();
  }

  /** A figure that the browser does not keep is written again on its card, unless the counter has gone on. */
  #notKept(failed) {
    const { line, text } = failed;
    const name = shortName(line.name);
    const why = 'چون گوشی آن را نگه نداشت. جای خالی گوشی را ببینید.';
    const sentence = text === '' ? `رقم ${name} پاک نشد، ${why}` : `رقم ${isolatedNumber(text)} برای ${name} ثبت نشد، ${why}`;
    const at = this.#floor.lines.lineOf(line.barcode, line.ordinal);
    if (at === undefined || this.#card.isOpen || this.#field.text !== '') {
      this.#sayings.sayUntilRead(sentence);
    } else {
      this.#open(at);
      this.#card.putBack(failed, sentence);
    }
  }

  #cardClosed() {
    document.body.classList.remove('with-card');
    if (!this.#camera.resume()) this.#field.focus();
  }

  // What comes from the desk.

  #linesCame() {
    this.#current = -1;
    this.#draw();
    const held = this.#heldScan;
    this.#heldScan = null;
    if (held) this.#scan(held);
  }

  #drawState() {
    const { text, className } = stateOf(this.#floor);
    const state = by('state');
    if (state.textContent !== text) by('state-text').textContent = text;
    state.className = className;
    state.hidden = text === '';
    const { refusal } = this.#floor;
    const said = refusal === '' || this.#floor.closed ? '' : `میز می‌گوید: ${isolated(refusal)}`;
    if (by('refusal').textContent !== said) by('refusal').textContent = said;
    by('refusal').hidden = said === '';
    by('count').textContent = countName(this.#floor.count);
    by('place').textContent = this.#floor.place;
    document.title = `${countName(this.#floor.count)} ${isolated(this.#floor.place)}`;
    const isNewlyClosed = this.#floor.closed && !this.#wasClosed;
    this.#wasClosed = this.#floor.closed;
    if (isNewlyClosed) this.#closed();
    this.#sayings.sayWhile(!this.#floor.closed && hasStrangers(this.#floor), ofEarlierCode);
    this.#queueView.draw();
    if (this.#floor.lines.size === 0) this.#drawEmpty();
  }

  #closed() {
    this.#sayings.say('این شمارش بسته است. رقم‌های تازه به میز نمی‌رسد.');
    if (this.#floor.queue.length + this.#floor.unknown.length > 0) this.#openTab('queue');
  }

  #asked(answered) {
    const worst = answered.some(({ answer }) => answer.state !== 'warned');
    if (worst) alarm();
    const last = answered[answered.length - 1];
    this.#sayings.say(saidText(last, this.#floor.isOfThisCode(last.item)), last.answer.state === 'refused');
  }
}

async function main() {
  const code = takeCode();
  let floor = null;
  const store = await Store.open({
    changed: () => floor?.readKept().catch(() => {}),
    known: () => floor ?? { queue: [], notices: [], unknown: [] },
    erased: () => floor?.erased(),
  });
  floor = new Floor(store, code);
  navigator.storage?.persist?.().catch(() => {});  // where the browser asks, the counter decides
  new Page(floor).begin();
  addEventListener('online', () => floor.retry());
  addEventListener('hashchange', () => {
    takeCode();
    location.reload();
  });
  document.addEventListener('visibilitychange', () => {
    if (!document.hidden) floor.retry();
  });
  await floor.begin();
}

main().catch(() => {
  by('empty').hidden = false;
  by('empty').textContent = 'این مرورگر رقم‌ها را نگه نمی‌دارد. پنجرهٔ خصوصی را ببندید یا مرورگر دیگری را باز کنید.';
});
