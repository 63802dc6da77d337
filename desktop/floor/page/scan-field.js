// The field that takes what is typed and scanned. Enter ends a scan; how fast keys come makes no difference.

import { characterByPlace } from './fold.js';

const isLatin = (text) => /^[\x20-\x7e]*$/.test(text);

export class ScanField {
  #input;
  #placed = '';

  /** `onTyped` hears that the text has changed, `onEnter` gets the readings of a text, the likeliest first. */
  constructor(input, { onTyped, onEnter, onArrow }) {
    this.#input = input;
    input.addEventListener('keydown', (event) => {
      if (event.isComposing) return;
      if (event.key === 'Enter' || this.#isTabOfScanner(event)) {
        event.preventDefault();
        onEnter(this.readings());
      } else if (event.key === 'ArrowDown' || event.key === 'ArrowUp') {
        event.preventDefault();
        onArrow(event.key === 'ArrowDown' ? 1 : -1);
      } else if (event.key === 'Escape') {
        this.clear();
        onTyped();
      } else {
        this.#note(event);
      }
    });
    input.addEventListener('input', () => {
      if (input.value === '') this.#placed = '';
      onTyped();
    });
    document.addEventListener('keydown', (event) => this.#takeFocus(event));
  }

  get text() {
    return this.#input.value.trim();
  }

  clear() {
    this.#input.value = '';
    this.#placed = '';
  }

  /** What is in the field stays readable, and the next key replaces it. */
  focus() {
    this.#input.focus();
    this.#input.select();
  }

  /** Puts a text that came from elsewhere into the field. */
  take(text) {
    if (text !== this.text) this.#placed = '';
    this.#input.value = text;
  }

  /** The text, and what a scanner meant that types on a keyboard of other letters. */
  readings() {
    const { text } = this;
    const placed = this.#placed.trim();
    const isPlaced = !isLatin(text) && placed.length === text.length && placed !== text;
    return isPlaced ? [text, placed] : [text];
  }

  /** Some scanners end with Tab. Text that is selected has been looked for already. */
  #isTabOfScanner(event) {
    if (event.key !== 'Tab' || event.shiftKey) return false;
    const { value, selectionStart, selectionEnd } = this.#input;
    return value !== '' && selectionEnd - selectionStart !== value.length;
  }

  #note(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const isErasing = event.key === 'Backspace' || event.key === 'Delete';
    if (event.key.length !== 1 && !isErasing) return;
    const { value, selectionStart, selectionEnd } = this.#input;
    const isReplacing = selectionStart === 0 && selectionEnd === value.length;
    if (isReplacing) this.#placed = '';
    const isAtEnd = isReplacing || (selectionStart === value.length && this.#placed.length === value.length);
    if (!isErasing && isAtEnd) {
      this.#placed += characterByPlace(event) || event.key;
    } else if (event.key === 'Backspace' && isAtEnd) {
      this.#placed = this.#placed.slice(0, -1);
    }
  }

  /** Keys that are typed while no field has the focus come here. */
  #takeFocus(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || event.key.length !== 1) return;
    if (event.target.closest('input, form')) return;
    if (event.key === ' ' && event.target.closest('button')) return;
    this.focus();
    this.#note(event);
  }
}
