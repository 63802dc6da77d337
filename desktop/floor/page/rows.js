// Rows of the lists. All texts are set as text, and each is isolated from the direction of its surroundings.

import { isolated, isolatedNumber } from './fold.js';

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

function fill(row, { name, below, number, unit = '', isNone = false, asks = false, isCurrent = false }) {
  row.querySelector('.name').textContent = name;
  row.querySelector('.below').textContent = below;
  row.querySelector('.number').textContent = number;
  row.querySelector('.unit').textContent = unit;
  row.querySelector('.figure').classList.toggle('none', isNone);
  row.classList.toggle('asks', asks);
  row.classList.toggle('current', isCurrent);
}

export function fillLine(row, line, notice, isCurrent) {
  const isNone = line.figure === '';
  fill(row, {
    name: line.name,
    below: notice ? shortNotice(notice) : isolatedAll(line.barcode, line.code),
    number: isNone ? 'شمرده نشده' : line.figure,
    unit: isNone ? '' : line.isPending ? 'در گوشی' : line.unit,
    isNone,
    asks: notice !== undefined,
    isCurrent,
  });
}

export function fillQueued(row, item, isOfOtherCode) {
  const time = new Date(item.time).toLocaleTimeString('fa-IR-u-nu-latn', { hour: '2-digit', minute: '2-digit' });
  fill(row, {
    name: item.name,
    below: `${isolatedAll(item.barcode)}  ·  ${time}${isOfOtherCode ? `، ${countName(item.count)}` : ''}`,
    number: `${item.op === 'add' ? '+' : ''}${item.text === '' ? '—' : item.text}`,
    unit: item.text === '' ? 'پاک شود' : item.op === 'add' ? 'افزودن' : 'ثبت',
  });
}

export function fillNotice(row, notice) {
  fill(row, {
    name: notice.name,
    below: shortNotice(notice),
    number: `${notice.op === 'add' ? '+' : ''}${notice.mine === '' ? '—' : notice.mine}`,
    unit: 'رقم شما',
    asks: true,
  });
}

function shortNotice(notice) {
  if (notice.state === 'conflict') return `${whoHas(notice)}: ${figureOrNone(notice.theirs)}`;
  if (notice.state === 'gone') return 'این کالا دیگر در شمارش نیست';
  return notice.message;
}

export function figureOrNone(figure) {
  return figure === '' ? 'شمرده نشده' : isolatedNumber(figure);
}

function isolatedAll(...texts) {
  return texts.filter((text) => text !== '').map(isolated).join('  ·  ');
}

/** Whose figure is in the counting. */
export function whoHas(notice) {
  return notice.by === '' ? 'رقم میز' : `رقم ${isolated(notice.by)}`;
}

export function countName(count) {
  return ['شمارش', 'شمارش اول', 'شمارش دوم', 'شمارش سوم'][count] ?? 'شمارش';
}
