// What the browser keeps: the id of the device, figures until the desk has answered, its answers until the counter
// has read them, and the lines and their figures for the time without network.
//
// The id is in the database with the sequence numbers, not in localStorage: a browser that erases one erases the
// other, so that a number never comes from the same device a second time. Numbers are those of an autoIncrement
// key, which two tabs cannot be given twice. A page that is open while they are erased keeps its id and goes on above all
// numbers that it can have given: what it had sent before is known at the desk by its numbers.

const name = 'koru-floor';
const daysOfLines = 30;

function finished(transaction) {
  return new Promise((resolve, reject) => {
    transaction.oncomplete = resolve;
    transaction.onabort = () => reject(transaction.error ?? new Error('aborted'));
  });
}

function result(request) {
  return new Promise((resolve, reject) => {
    request.onsuccess = () => resolve(request.result);
    request.onerror = () => reject(request.error);
  });
}

/** The keys of all figures of a code. */
function allOf(code) {
  return IDBKeyRange.bound([code], [code, []]);
}

/** Keeps a figure unless a later one is kept: answers overtake each other. */
function keepFigure(figures, figure) {
  figures.get([figure.code, figure.barcode, figure.ordinal]).onsuccess = ({ target }) => {
    if (!(target.result?.rev > figure.rev)) figures.put(figure);
  };
}

function randomID() {
  const bytes = crypto.getRandomValues(new Uint8Array(16));
  return btoa(String.fromCharCode(...bytes)).replace(/\+/g, '-').replace(/\//g, '_').replace(/=/g, '');
}

/**
 * `onLost` is called when the connection is closed: by the browser, or for a page of a later version. `onMade` gets the
 * transaction in which a missing database is made.
 */
async function connect(onLost, onMade) {
  const request = indexedDB.open(name, 2);
  request.onupgradeneeded = ({ oldVersion }) => {
    const database = request.result;
    database.createObjectStore('figures', { keyPath: ['code', 'barcode', 'ordinal'] });
    if (oldVersion === 1) return;
    database.createObjectStore('queue', { keyPath: 'seq', autoIncrement: true });
    database.createObjectStore('notices', { keyPath: ['code', 'barcode', 'ordinal'] });
    database.createObjectStore('unknown', { keyPath: ['code', 'barcode'] });
    database.createObjectStore('lines', { keyPath: 'code' });
    database.createObjectStore('meta');
    onMade(request.transaction);
  };
  const database = await result(request);
  database.onclose = onLost;
  database.onversionchange = () => {
    database.close();
    onLost();
  };
  return database;
}

export class Store {
  #connection = null;
  #page;
  #device = null;
  #tabs = typeof BroadcastChannel === 'undefined' ? null : new BroadcastChannel(name);

  /**
   * Throws when the browser keeps nothing, as some do in private windows. `page` hears `otherTab()` when another tab has
   * changed something, gives as `known()` the {queue, notices} that it shows, and hears `erased()` when these are all that
   * is left of what was kept, and are kept again.
   */
  static async open(page) {
    const store = new Store();
    store.#page = page;
    await store.#connected();
    if (store.#tabs) store.#tabs.onmessage = () => page.otherTab();
    return store;
  }

  async device() {
    const [transaction, meta] = await this.#write('meta');
    let id = await result(meta.get('device'));
    if (!id) {
      id = randomID();
      meta.put(id, 'device');
    }
    await finished(transaction);
    this.#device = id;
    return id;
  }

  /** The figures without an answer, in the order of entry, and what the desk has said, as of one moment. */
  async kept() {
    const transaction = await this.#begin(['queue', 'notices']);
    const [queue, notices] = await Promise.all(
        ['queue', 'notices'].map((store) => result(transaction.objectStore(store).getAll())));
    return { queue, notices };
  }

  async unknown() {
    return result((await this.#begin('unknown')).objectStore('unknown').getAll());
  }

  /**
   * Keeps a figure; when this has returned, it survives whatever happens to the page. An earlier answer for the line
   * has been read then, unless the figure is added to what it says. Returns the figure with its number.
   */
  async enter(item) {
    const [transaction, queue, notices] = await this.#write('queue', 'notices');
    const kept = { ...item };
    queue.add(kept).onsuccess = (event) => { kept.seq = event.target.result; };
    if (item.op === 'set') notices.delete([item.code, item.barcode, item.ordinal]);
    await finished(transaction);
    this.#tabs?.postMessage('entered');
    return kept;
  }

  /**
   * Forgets figures that the desk has answered, and keeps notices for them and what the desk has now. What another tab
   * settled stays so.
   */
  async settle(answered) {
    const [transaction, queue, notices, figures] = await this.#write('queue', 'notices', 'figures');
    for (const { seq, notice, figure } of answered) {
      if (figure) keepFigure(figures, figure);
      queue.get(seq).onsuccess = (event) => {
        if (!event.target.result) return;
        queue.delete(seq);
        if (notice) notices.put(notice);
      };
    }
    await finished(transaction);
    this.#tabs?.postMessage('settled');
  }

  async dismiss(notice) {
    const [transaction, notices] = await this.#write('notices');
    notices.delete([notice.code, notice.barcode, notice.ordinal]);
    await finished(transaction);
    this.#tabs?.postMessage('settled');
  }

  /** Figures of a count that is closed become those of another code. Their numbers stay, so none counts twice. */
  async move(items, code) {
    const [transaction, queue] = await this.#write('queue');
    for (const { seq } of items) {
      queue.get(seq).onsuccess = (event) => {
        if (event.target.result) queue.put({ ...event.target.result, code });
      };
    }
    await finished(transaction);
  }

  async forget(items) {
    await this.settle(items.map(({ seq }) => ({ seq })));
  }

  async keepUnknown(entry) {
    const [transaction, unknown] = await this.#write('unknown');
    unknown.put(entry);
    await finished(transaction);
  }

  async forgetUnknown(entry) {
    const [transaction, unknown] = await this.#write('unknown');
    unknown.delete([entry.code, entry.barcode]);
    await finished(transaction);
  }

  /** The lines of a code, with the figures that are later than they; undefined when there are none. */
  async keptLines(code) {
    const transaction = await this.#begin(['lines', 'figures']);
    const [lines, figures] = await Promise.all([result(transaction.objectStore('lines').get(code)),
                                                result(transaction.objectStore('figures').getAll(allOf(code)))]);
    return lines && { ...lines, figures };
  }

  async keepFigures(kept) {
    const [transaction, figures] = await this.#write('figures');
    for (const figure of kept) keepFigure(figures, figure);
    await finished(transaction);
  }

  /** The lines have their figures with them. */
  async keepLines(kept) {
    const [transaction, lines, figures] = await this.#write('lines', 'figures');
    lines.put({ ...kept, time: Date.now() });
    figures.delete(allOf(kept.code));
    lines.openCursor().onsuccess = (event) => {
      const cursor = event.target.result;
      if (!cursor) return;
      if (cursor.value.time < Date.now() - daysOfLines * 86400000) {
        cursor.delete();
        figures.delete(allOf(cursor.value.code));
      }
      cursor.continue();
    };
    await finished(transaction);
  }

  /** The connection, made anew after it was lost. */
  #connected() {
    if (this.#connection === null) {
      const connection = connect(() => this.#lose(connection), (transaction) => this.#made(transaction));
      connection.catch(() => this.#lose(connection));
      this.#connection = connection;
    }
    return this.#connection;
  }

  /** A database that is made while the page is open: the browser has erased the one before. */
  #made(transaction) {
    if (this.#device === null) return;
    const { queue, notices } = this.#page.known();
    const figures = transaction.objectStore('queue');
    const above = Date.now();  // numbers count from 1, or from the time when the one before was made
    figures.add({ seq: above });
    figures.delete(above);
    for (const figure of queue) figures.put(figure);
    for (const notice of notices) transaction.objectStore('notices').put(notice);
    transaction.objectStore('meta').put(this.#device, 'device');
    transaction.addEventListener('complete', () => this.#page.erased());
  }

  #lose(connection) {
    if (this.#connection === connection) this.#connection = null;
  }

  /** Begins a transaction; once more where the connection turns out to be lost. */
  async #begin(stores, mode = 'readonly') {
    const connection = this.#connected();
    const database = await connection;
    try {
      return database.transaction(stores, mode, { durability: 'strict' });
    } catch {
      database.close();
      this.#lose(connection);
      return (await this.#connected()).transaction(stores, mode, { durability: 'strict' });
    }
  }

  async #write(...stores) {
    const transaction = await this.#begin(stores, 'readwrite');
    return [transaction, ...stores.map((store) => transaction.objectStore(store))];
  }
}
