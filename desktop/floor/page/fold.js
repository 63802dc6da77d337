// Texts as searches and scans compare them, figures as they are typed, and texts in sentences. The rules are the desk's:
// two forms of yeh and kaf, three kinds of digits, upper and lower case and zero-width non-joiners are one.

export function latinDigits(text) {
  return text.replace(/[\u0660-\u0669\u06f0-\u06f9]/g, (c) => String.fromCharCode(48 + (c.charCodeAt(0) & 15)));
}

export function fold(text) {
  return latinDigits(text).replace(/[\u064a\u0649]/g, '\u06cc').replace(/\u0643/g, '\u06a9')
      .replace(/\u200c/g, '').toLowerCase();
}

const places = { Minus: '-_', Equal: '=+', Period: '.>', Comma: ',<', Slash: '/?', Semicolon: ';:', Space: '  ',
                 NumpadSubtract: '--', NumpadAdd: '++', NumpadDecimal: '..', NumpadDivide: '//' };
const overDigits = ')!@#$%^&*(';
const maxLetters = 40;

/** The Latin character of a key by its place, whatever layout the keyboard has; empty for other keys. */
export function characterByPlace(event) {
  const { code } = event;
  if (/^Key[A-Z]$/.test(code)) {
    const upper = event.shiftKey !== event.getModifierState('CapsLock');
    return upper ? code[3] : code[3].toLowerCase();
  }
  if (/^Digit\d$/.test(code)) return event.shiftKey ? overDigits[code[5]] : code[5];
  if (/^Numpad\d$/.test(code)) return code[6];
  return code in places ? places[code][event.shiftKey ? 1 : 0] : '';
}

/** Separators that group the integer part into thousands, as in 1,200; others stay, since 12,5 may mean 12.5. */
function withoutGroups(text) {
  return text.replace(/\d+(?:[,\u060c\u066c]\d+)+/g, (run, at) => (
      /^[1-9]\d{0,2}(?:\D\d{3})+$/.test(run) && text[at - 1] !== '.' ? run.replace(/\D/g, '') : run));
}

/**
 * A typed figure as the desk reads it (platform/text/TypedNumber): empty for an empty field, null for what is no
 * number. Only what is around it is cut off: 12 5 is no number.
 */
export function figureText(typed) {
  const latin = latinDigits(typed).replace(/[\u200e\u200f\u061c\u202a-\u202e\u2066-\u2069]/g, '')
      .replace(/\u2212/g, '-').replace(/\u066b/g, '.');
  let text = withoutGroups(latin.replace(/^ +| +$/g, ''));
  if (/^[^/.]*\d\/\d[^/.]*$/.test(text)) text = text.replace('/', '.');
  return text === '' || /^[ \t]*[+-]?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?$/i.test(text) ? text : null;
}

/** What a count is after a figure was added, with the digits that the desk keeps. */
export function sum(count, added) {
  return String(Number((Number(count || 0) + Number(added)).toPrecision(15)));
}

/** A text inside a sentence, without effect on the direction of the rest. */
export function isolated(text) {
  return `\u2068${text.replace(/[\u2066-\u2069]/g, '')}\u2069`;
}

/** The same for a number: its sign is left of it. */
export function isolatedNumber(text) {
  return isolated(text).replace('\u2068', '\u2066');
}

/** The beginning of a long name, for a sentence whose end must be seen too. */
export function shortName(name) {
  const letters = [...name];
  return isolated(letters.length > maxLetters ? `${letters.slice(0, maxLetters).join('')}…` : name);
}
