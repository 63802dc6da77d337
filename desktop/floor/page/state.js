// How it is with the figures, in a few words.

/** Text and class of the button that opens the list of figures on the device. */
export function stateOf(floor) {
  const kept = floor.queue.length;
  if (!floor.code) return { text: '', className: '' };
  if (floor.closed) return { text: 'این شمارش بسته است', className: 'bad' };
  if (floor.isStuck) {
    const left = kept > 0 ? `${kept} در گوشی مانده؛ ` : '';
    return { text: `${left}صفحه را دوباره باز کنید`, className: 'bad' };
  }
  if (floor.reach === 'away') {
    return { text: kept > 0 ? `${kept} در گوشی مانده` : 'میز پیدا نیست', className: 'waits' };
  }
  if (!floor.open) {
    return { text: kept > 0 ? `میز درنگ کرده؛ ${kept} در گوشی مانده` : 'میز درنگ کرده', className: 'waits' };
  }
  if (kept > 0) return { text: `${kept} در راه`, className: 'waits' };
  if (floor.reach === 'unknown') return { text: 'در حال خواندن', className: '' };
  return { text: 'همه رسیده', className: 'good' };
}

/** What the counter should know about the figures on the device. */
export function queueText(floor) {
  const kept = floor.queue.length;
  if (kept === 0) return 'همهٔ رقم‌ها به میز رسیده است.';
  if (floor.closed) {
    return `این شمارش بسته است. این ${kept} رقم به میز نرسیده است؛ آن‌ها را برای میز بخوانید.`;
  }
  if (floor.isStuck) return `این ${kept} رقم در گوشی مانده است. صفحه را دوباره باز کنید.`;
  const strangers = strangersOf(floor).length;
  if (strangers > 0) return `${strangers} رقم از شمارشی است که بسته شده یا کد آن عوض شده است.`;
  if (floor.reach === 'away') {
    return `میز پیدا نیست. این ${kept} رقم در گوشی می‌ماند و با بازگشت شبکه فرستاده می‌شود.`;
  }
  if (!floor.open) return `میز درنگ کرده است. این ${kept} رقم پس از آن فرستاده می‌شود.`;
  return `این ${kept} رقم در راه میز است.`;
}

/** Figures that were entered under another code, which the desk has closed. */
export function strangersOf(floor) {
  return floor.queue.filter(({ code }) => code !== floor.code && floor.isClosed(code));
}

/** Those of them that are of the same count, and may be sent as figures of this code. */
export function movableOf(floor) {
  return floor.closed ? [] : strangersOf(floor).filter(({ count }) => count === floor.count);
}
