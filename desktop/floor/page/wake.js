/** A pause that ends early when something wakes it. */
export class Wake {
  #end = null;
  #woken = false;

  /** Ends the pause; without one, the next pause does not begin. */
  wake() {
    this.#woken = true;
    this.#end?.();
  }

  /** Forgets that something woke it: what it was woken for is about to be done. */
  settle() {
    this.#woken = false;
  }

  /** Returns whether something has woken it. */
  async wait(milliseconds) {
    if (!this.#woken) {
      await new Promise((resolve) => {
        const timer = setTimeout(resolve, milliseconds);
        this.#end = () => {
          clearTimeout(timer);
          resolve();
        };
      });
    }
    this.#end = null;
    const isWoken = this.#woken;
    this.#woken = false;
    return isWoken;
  }
}
