// Rows of the lists. All texts are set as text, and each is isolated from the direction of its surroundings.

import { isolated } from './fold.js';
import { countName, earlierCode, entered, shortNotice, shortNotices } from './notices.js';

function element(name, className, parent) {
  const made = document.createElement(name);
  made.className = className;
  parent?.append(made);
  return made;
}

/** A row with a name, a line below it and a figure. */
export function makeRow() {
  const row = element('button', 'row');
  row.type = 'button';
  row.tabIndex = -1;
  const texts = element('span', 'texts', row);
  element('bdi', 'name', texts).dir = 'auto';
  element('span', 'below', texts);
  const figure = element('span', 'figure', row);
  element('bdi', 'number', figure).dir = 'ltr';
  element('small', 'unit', figure).dir = 'auto';
  return row;
}

/** `origin` is a second line below the name. */
function fill(row, { name, below, origin = '', number, unit = '', isNone = false, asks = false, isCurrent = false }) {
  row.querySelector('.name').textContent = name;
  row.querySelector('.name').classList.toggle('one', origin !== '');
  row.querySelector('.below').textContent = origin === '' ? below : `${below}\n${origin}`;
  row.querySelector('.below').classList.toggle('two', origin !== '');
  row.querySelector('.number').textContent = number;
  row.querySelector('.unit').textContent = unit;
  row.querySelector('.figure').classList.toggle('none', isNone);
  row.classList.toggle('asks', asks);
  row.classList.toggle('current', isCurrent);
}

export function fillLine(row, line, notices, isCurrent) {
  const isNone = line.figure === '';
  fill(row, {
    name: line.name,
    below: notices.length > 0 ? shortNotices(notices, line.figure) : isolatedAll(line.barcode, line.code),
    number: isNone ? 'شمرده نشده' : line.figure,
    unit: isNone ? '' : line.isPending ? 'در گوشی' : line.unit,
    isNone,
    asks: notices.length > 0,
    isCurrent,
  });
}

export function fillQueued(row, item, isOfOtherCode) {
  fill(row, {
    name: item.name,
    below: isolatedAll(item.barcode, isOfOtherCode ? '' : timeOf(item)),
    origin: isOfOtherCode ? whenAndWhere(item) : '',
    number: entered(item.op, item.text) || '—',
    unit: item.text === '' ? 'پاک شود' : item.op === 'add' ? 'افزودن' : 'ثبت',
  });
}

export function fillUnknown(row, entry, isOfOtherCode) {
  fill(row, {
    name: entry.barcode,
    below: 'بارکدی که در شمارش نبود',
    origin: isOfOtherCode ? whenAndWhere(entry) : '',
    number: '',
  });
}

/** When, in which count and in which store something was entered. */
function whenAndWhere({ time, count, place = '' }) {
  const [date, today] = [new Date(time), new Date()].map((day) => (
      day.toLocaleDateString('fa-IR-u-nu-latn', { month: 'numeric', day: 'numeric' })));
  const when = time ? `${date === today ? '' : `${date} `}${timeOf({ time })}` : '';
  return [when, countName(count), place].filter((text) => text !== '').map(isolated).join(' · ');
}

function timeOf({ time }) {
  return new Date(time).toLocaleTimeString('fa-IR-u-nu-latn', { hour: '2-digit', minute: '2-digit' });
}

/** `now` is what the counting has of the line by now, where that is known. */
export function fillNotice(row, notice, isOfThisCode, now) {
  const short = shortNotice(notice, now);
  fill(row, {
    name: notice.name,
    below: isOfThisCode ? short : `${earlierCode(notice)}  ·  ${short}`,
    number: entered(notice.op, notice.mine) || '—',
    unit: 'رقم شما',
    asks: true,
  });
}

function isolatedAll(...texts) {
  return texts.filter((text) => text !== '').map(isolated).join('  ·  ');
}
