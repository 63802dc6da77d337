// How it is with the figures and with the barcodes that no line has, in a few words.

const paused = 'میز درنگ کرده';

/** Text and class of the button that opens the list of what is on the device. */
export function stateOf(floor) {
  const kept = floor.queue.length + floor.unknown.length;
  if (!floor.code) return { text: '', className: '' };
  if (floor.closed) return { text: 'این شمارش بسته است', className: 'bad' };
  if (floor.isStuck) {
    const left = kept > 0 ? `${kept} در گوشی مانده؛ ` : '';
    return { text: `${left}صفحه را دوباره باز کنید`, className: 'bad' };
  }
  const desk = deskText(floor);
  const strangers = namesOf(strangersOf(floor));
  if (strangers !== '') {
    return { text: desk === '' ? `${strangers} با کد پیشین، فرستاده نشده` : `${desk}؛ ${strangers} با کد پیشین`,
             className: 'bad' };
  }
  if (desk !== '' && kept === 0) return { text: desk, className: 'waits' };
  if (desk !== '') {
    return { text: desk === paused ? `${desk}؛ ${kept} در گوشی مانده` : `${kept} در گوشی مانده`, className: 'waits' };
  }
  if (kept > 0) return { text: `${kept} در راه`, className: 'waits' };
  if (floor.reach === 'unknown') return { text: 'در حال خواندن', className: '' };
  return { text: 'همه رسیده', className: 'good' };
}

/** Why the desk takes nothing now; empty while it does. */
function deskText(floor) {
  if (floor.reach === 'away') return 'میز پیدا نیست';
  if (floor.refusal !== '') return 'میز نمی‌پذیرد';
  return floor.open ? '' : paused;
}

/** What has not reached the desk, as a part of a sentence. */
export function unsentOf({ queue, unknown }) {
  if (unknown.length === 0) return 'رقم‌های';
  return queue.length === 0 ? 'بارکدهای' : 'رقم‌ها و بارکدهای';
}

/** What the counter should know about what is on the device. */
export function queueText(floor) {
  const kept = namesOf({ figures: floor.queue, barcodes: floor.unknown });
  if (kept === '') {
    const refused = floor.refusal === '' ? '' : 'میز اکنون رقمی نمی‌پذیرد. ';
    return `${refused}همهٔ رقم‌های این گوشی به میز رسیده است.`;
  }
  if (floor.closed) return `این شمارش بسته است. این ${kept} به میز نرسیده است؛ آن‌ها را برای میز بخوانید.`;
  if (floor.isStuck) return `این ${kept} در گوشی مانده است. صفحه را دوباره باز کنید.`;
  const strangers = strangersOf(floor);
  if (namesOf(strangers) === '') return waitingText(floor, `این ${kept}`);
  const others = namesOf({ figures: without(floor.queue, strangers.figures),
                           barcodes: without(floor.unknown, strangers.barcodes) });
  const text = strangersText(strangers, movableOf(floor));
  return others === '' ? text : `${text} ${waitingText(floor, `${others} دیگر`)}`;
}

function waitingText(floor, things) {
  if (floor.reach === 'away') return `میز پیدا نیست. ${things} در گوشی می‌ماند و با بازگشت شبکه فرستاده می‌شود.`;
  if (floor.refusal !== '') return `میز اکنون رقمی نمی‌پذیرد. ${things} در گوشی می‌ماند و دوباره فرستاده می‌شود.`;
  return floor.open ? `${things} در راه میز است.` : `میز درنگ کرده است. ${things} پس از آن فرستاده می‌شود.`;
}

function strangersText({ figures, barcodes }, movable) {
  const texts = [];
  if (movable.length > 0) {
    texts.push(`${movable.length} رقم با کد پیشین همین شمارش است و فرستاده نشده؛ آن‌ها را بفرستید یا پاک کنید.`);
  }
  const others = namesOf({ figures: without(figures, movable), barcodes });
  if (others !== '') {
    texts.push(`${others} از شمارش دیگری است و به این شمارش فرستاده نمی‌شود؛ آن‌ها را برای میز بخوانید و سپس پاک کنید.`);
  }
  return texts.join(' ');
}

/** Numbers with names: '2 figures and 1 barcode'; empty for nothing. */
function namesOf({ figures, barcodes }) {
  return [[figures, 'رقم'], [barcodes, 'بارکد']].filter(([{ length }]) => length > 0)
      .map(([{ length }, name]) => `${length} ${name}`).join(' و ');
}

function without(all, some) {
  return all.filter((one) => !some.includes(one));
}

/**
 * What was entered under another code, which the desk has closed, and is not sent by itself. While it is not known what
 * this code is of, that is nothing.
 */
export function strangersOf(floor) {
  const isKnown = floor.count > 0 || floor.closed;
  const isStranger = ({ code }) => isKnown && code !== floor.code && floor.isClosed(code);
  return { figures: floor.queue.filter(isStranger),
           barcodes: floor.unknown.filter((entry) => isStranger(entry) && !isOfThisCount(entry, floor)) };
}

/** Whether there is any. */
export function hasStrangers(floor) {
  return namesOf(strangersOf(floor)) !== '';
}

/** Whether something was entered in the counting and the count that are open here. */
export function isOfThisCount({ count, counting }, here) {
  return Boolean(counting) && counting === here.counting && count === here.count;
}

/**
 * Those figures of another code that may be sent as figures of this one. The desk knows the numbers of figures within a
 * counting: in another one, a figure that it has would count again.
 */
export function movableOf(floor) {
  return floor.closed ? [] : strangersOf(floor).figures.filter((figure) => isOfThisCount(figure, floor));
}
