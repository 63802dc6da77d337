// A list of any number of rows, of which only those in sight exist as elements.

export const rowHeight = 76;
const spare = 4;

export class VirtualList {
  #box;
  #space;
  #make;
  #fill;
  #rows = [];
  #length = 0;
  #isDrawing = false;

  /**
   * `box` scrolls. `make()` returns an empty row, `fill(row, at)` gives it its contents, `choose(at)` is called when
   * it is pressed.
   */
  constructor(box, { make, fill, choose }) {
    this.#box = box;
    this.#make = make;
    this.#fill = fill;
    this.#space = box.querySelector('.space') ?? box.appendChild(document.createElement('div'));
    this.#space.className = 'space';
    box.addEventListener('scroll', () => this.draw(), { passive: true });
    box.addEventListener('click', (event) => {
      const row = event.target.closest('.row');
      if (row) choose(Number(row.dataset.at));
    });
    new ResizeObserver(() => this.draw()).observe(box);
  }

  setLength(length) {
    this.#length = length;
    this.#space.style.height = `${length * rowHeight}px`;
    this.draw();
  }

  scrollToTop() {
    this.#box.scrollTop = 0;
  }

  /** Scrolls as little as makes a row wholly visible. */
  show(at) {
    const top = at * rowHeight;
    const { scrollTop, clientHeight } = this.#box;
    if (top < scrollTop) this.#box.scrollTop = top;
    if (top + rowHeight > scrollTop + clientHeight) this.#box.scrollTop = top + rowHeight - clientHeight;
  }

  /** Draws the rows in sight, at most once for each frame. */
  draw() {
    if (this.#isDrawing) return;
    this.#isDrawing = true;
    requestAnimationFrame(() => {
      this.#isDrawing = false;
      this.#drawNow();
    });
  }

  #drawNow() {
    const { scrollTop, clientHeight } = this.#box;
    const first = Math.max(0, Math.floor(scrollTop / rowHeight) - spare);
    const end = Math.min(this.#length, Math.ceil((scrollTop + clientHeight) / rowHeight) + spare);
    while (this.#rows.length < end - first) {
      const row = this.#make();
      this.#rows.push(row);
      this.#box.append(row);
    }
    this.#rows.forEach((row, place) => {
      const at = first + place;
      row.hidden = at >= end;
      if (row.hidden) return;
      row.dataset.at = at;
      row.style.transform = `translateY(${at * rowHeight}px)`;
      this.#fill(row, at);
    });
  }
}
