// Scanning by the camera, where the browser lets a page have it.

import { canScan, scan } from './camera.js';

export class CameraView {
  #box;
  #video;
  #onCode;
  #onFailed;
  #control = null;
  #isWanted = false;
  #last = ''; // the barcode whose card is in front, and which may still be before the camera afterwards

  /** `onCode` gets each barcode; `onFailed` is called when the camera does not open. */
  constructor({ box, video, open, close }, { onCode, onFailed }) {
    this.#box = box;
    this.#video = video;
    this.#onCode = onCode;
    this.#onFailed = onFailed;
    open.addEventListener('click', () => {
      this.pause();
      this.#last = '';
      this.#start();
    });
    close.addEventListener('click', () => this.stop());
    canScan().then((can) => { open.hidden = !can; });
  }

  /** A card is in front. */
  pause() {
    this.#control?.abort();
    this.#control = null;
    this.#box.hidden = true;
  }

  /** The card was closed. Returns whether the camera is on again. */
  resume() {
    if (this.#isWanted && !this.#control) this.#start();
    return this.#isWanted;
  }

  #start() {
    this.#isWanted = true;
    this.#box.hidden = false;
    this.#control = new AbortController();
    const { signal } = this.#control;
    const take = (code) => {
      this.#last = code;
      this.#onCode(code);
    };
    scan(this.#video, take, signal, this.#last).catch(() => {
      if (signal.aborted) return;
      this.stop();
      this.#onFailed();
    });
  }

  /** Closes it, whether it is in front or a card is. */
  stop() {
    this.#isWanted = false;
    this.pause();
  }
}
