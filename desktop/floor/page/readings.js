/** A barcode that was not in sight for so long counts again, in milliseconds. */
const PAUSE = 2500;
/** Two readings farther apart do not confirm each other, in milliseconds. */
const APART = 2000;

/** Decides which readings of a camera count: a barcode counts once it was read twice in succession, and once while it is in sight. */
export class Readings {
  #candidate = { text: '', at: -Infinity };
  #counted;

  /** `inSight` is a barcode that has counted already, '' when there is none. */
  constructor(inSight = '', now = -Infinity) {
    this.#counted = { text: inSight, seen: now };
  }

  /** Takes the barcode of a frame, '' for none; `now` is a time in milliseconds. Returns whether it counts now. */
  take(text, now) {
    if (text === '') return false;
    const confirmed = text === this.#candidate.text && now - this.#candidate.at <= APART;
    this.#candidate = { text, at: now };
    if (text === this.#counted.text && now - this.#counted.seen < PAUSE) {
      this.#counted.seen = now;
      return false;
    }
    if (!confirmed) return false;
    this.#counted = { text, seen: now };
    return true;
  }
}

/** Of several barcodes in a frame, the one nearest to the middle is meant. Returns its text, '' when there is none. */
export function meant(codes) {
  return codes.reduce((best, code) => (code.off < best.off ? code : best), { text: '', off: Infinity }).text;
}
