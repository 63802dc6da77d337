// What the desk has said about a figure, in a few words.

import { isolated, isolatedNumber, shortName } from './fold.js';

export const goneText = 'سطر این کالا دیگر در شمارش نیست';

export function countName(count) {
  return ['شمارش', 'شمارش اول', 'شمارش دوم', 'شمارش سوم'][count] ?? 'شمارش';
}

/** Where a figure is from that was entered with another code than the page has. */
export function earlierCode({ count }) {
  return `${countName(count)}، با کد پیشین`;
}

export function figureOrNone(figure) {
  return figure === '' ? 'شمرده نشده' : isolatedNumber(figure);
}

/** A figure as it was entered: one that is added has its sign. */
export function entered(op, text) {
  return op === 'add' && !/^[+-]/.test(text) ? `+${text}` : text;
}

/** What the counting has of a line, and whose it is where that is known. */
function theirsOf({ by, theirs }, now) {
  const whose = now !== theirs ? 'رقم کنونی' : by === '' ? 'رقم میز' : `رقم ${isolated(by)}`;
  return `${whose}: ${figureOrNone(now)}`;
}

/** `now` is what the counting has by now, where that is known. */
export function shortNotice(notice, now = notice.theirs) {
  if (notice.state === 'conflict') return theirsOf(notice, now);
  return notice.state === 'gone' ? goneText : notice.message;
}

/** The newest of the notices of a line, with their number. */
export function shortNotices(notices, now) {
  const short = shortNotice(notices[notices.length - 1], now);
  return notices.length === 1 ? short : `${notices.length} پیام  ·  ${short}`;
}

/** What the card says of an answer. */
export function noticeText(notice, now = notice.theirs) {
  if (notice.state === 'conflict') return `در این میان رقم دیگری ثبت شده است. ${theirsOf(notice, now)}`;
  return notice.state === 'gone' ? goneText : notice.message;
}

/** The figure that the desk has answered, in a sentence. */
export function mineText({ state, op, mine }) {
  return `${state === 'refused' ? 'رقم شما ثبت نشد' : 'رقم شما'}: ${figureOrNone(entered(op, mine))}`;
}

/** What is said at once when a figure has been answered. */
export function saidText({ item, answer }, isOfThisCode) {
  const what = {
    warned: answer.message,
    refused: answer.message,
    conflict: 'در این میان رقم دیگری ثبت شده است.',
    gone: goneText,
  }[answer.state];
  const origin = isOfThisCode ? '' : ` (${earlierCode(item)})`;
  return `${shortName(item.name)}${origin}: ${isolated(what)}`;
}
