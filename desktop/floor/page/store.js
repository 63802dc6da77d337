// What the browser keeps: the id of the device, figures until the desk has answered, its answers until the counter
// has read them, and the lines and their figures for the time without network.
//
// A figure is known at the desk by device and number. Each database has an id of a device of its own, and gives the
// numbers of that id, 1 and following, in the transaction that keeps the figure: two tabs are never given the same one.
// A browser that erases one erases the other. A page that is open meanwhile puts what it knows into the database that is
// made next, under the ids and numbers that these figures have, so that the desk recognises what had reached it before.

const name = 'koru-floor';
const version = 3;
const daysOfLines = 30;
const strict = { durability: 'strict' };

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

/** Puts a value where none has its key. */
function putMissing(store, value) {
  const key = store.keyPath.map((part) => value[part]);
  store.getKey(key).onsuccess = ({ target }) => {
    if (target.result === undefined) store.put(value);
  };
}

/** By what the desk knows a figure again. */
export function numberOf({ device, seq }) {
  return `${device}\n${seq}`;
}

/** Whether a figure of the queue is entered before another one. */
function inOrder(one, other) {
  return one.time - other.time || one.seq - other.seq;
}

/** The latest time of figures, or `time`. */
function latest(figures, time) {
  return figures.reduce((last, figure) => Math.max(last, figure.time), time);
}

/** Whether a figure that is set was entered after an item, for the same line of the same code: it replaces that. */
function isReplaced(item, figures) {
  return figures.some((figure) => figure.op === 'set' && inOrder(item, figure) < 0 &&
                                  ['code', 'barcode', 'ordinal'].every((part) => figure[part] === item[part]));
}

/** Makes the queue, the id whose numbers begin with it, and the notices, each under the figure that it answers. */
function makeQueue(database, transaction, waiting, unread) {
  const queue = database.createObjectStore('queue', { keyPath: ['device', 'seq'] });
  for (const figure of waiting) queue.put(figure);
  const notices = database.createObjectStore('notices', { keyPath: ['device', 'seq'] });
  notices.createIndex('line', ['code', 'barcode', 'ordinal']);
  for (const notice of unread) notices.put(notice);
  const meta = transaction.objectStore('meta');
  meta.put(randomID(), 'device');
  meta.put({ seq: 0, time: latest(waiting, 0) }, 'numbers');
}

/**
 * Before version 3, the key of the queue was the number alone, which the browser counted. Its figures keep the id and
 * the numbers that they may have reached the desk with. A line had one notice at most, without the number of its
 * figure: it gets one that no figure has.
 */
async function remakeQueue(database, transaction) {
  const [device, waiting, unread] = await Promise.all(
      [result(transaction.objectStore('meta').get('device')),
       ...['queue', 'notices'].map((store) => result(transaction.objectStore(store).getAll()))]);
  for (const store of ['queue', 'notices']) database.deleteObjectStore(store);
  let time = 0;
  makeQueue(database, transaction, waiting.map((figure) => {
    time = Math.max(figure.time, time + 1);
    return { ...figure, device, time };
  }), unread.map((notice, at) => ({ ...notice, device, seq: -1 - at })));
}

/** `onLost` is called when the connection is closed: by the browser, or for a page of a later version. */
async function connect(onLost) {
  const request = indexedDB.open(name, version);
  request.onupgradeneeded = ({ oldVersion }) => {
    const { result: database, transaction } = request;
    if (oldVersion < 2) database.createObjectStore('figures', { keyPath: ['code', 'barcode', 'ordinal'] });
    if (oldVersion > 0) {
      remakeQueue(database, transaction).catch(() => transaction.abort());
      return;
    }
    database.createObjectStore('unknown', { keyPath: ['code', 'barcode'] });
    database.createObjectStore('lines', { keyPath: 'code' });
    database.createObjectStore('meta');
    makeQueue(database, transaction, [], []);
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
   * Throws when the browser keeps nothing, as some do in private windows. `page` hears `changed()` when another tab or
   * the browser has changed what is kept, gives as `known()` the {queue, notices, unknown} that it shows, and hears
   * `erased()` when these are all that is left of what was kept, and are kept again; `device` is another one then.
   */
  static async open(page) {
    const store = new Store();
    store.#page = page;
    await store.#connected();
    if (store.#tabs) store.#tabs.onmessage = () => page.changed();
    return store;
  }

  /** The id under which this page enters figures. */
  get device() {
    return this.#device;
  }

  /** The figures without an answer, in the order of entry, and what the desk has said, as of one moment. */
  async kept() {
    const transaction = await this.#begin(['queue', 'notices']);
    const [queue, notices] = await Promise.all(
        ['queue', 'notices'].map((store) => result(transaction.objectStore(store).getAll())));
    return { queue: queue.sort(inOrder), notices };
  }

  async unknown() {
    return result((await this.#begin('unknown')).objectStore('unknown').getAll());
  }

  /**
   * Keeps a figure; when this has returned, it survives whatever happens to the page. Earlier answers for the line
   * have been read then, unless the figure is added to what they say. Returns the figure with its device, its number
   * and its time, which is later than that of all figures before it.
   */
  async enter(item) {
    const [transaction, queue, notices, meta] = await this.#write('queue', 'notices', 'meta');
    const [device, last] = await Promise.all(['device', 'numbers'].map((key) => result(meta.get(key))));
    const numbers = { seq: last.seq + 1, time: Math.max(Date.now(), last.time + 1) };
    const kept = { ...item, device, ...numbers };
    meta.put(numbers, 'numbers');
    queue.add(kept);
    if (item.op === 'set') {
      const line = notices.index('line').getAllKeys([item.code, item.barcode, item.ordinal]);
      for (const key of await result(line)) notices.delete(key);
    }
    await finished(transaction);
    this.#tabs?.postMessage('entered');
    return kept;
  }

  /**
   * Forgets figures that the desk has answered, and keeps notices for them and what the desk has now. What another tab
   * settled stays so. A figure that a later one replaces needs no notice: the later one has an answer of its own.
   */
  async settle(answered) {
    const [transaction, queue, notices, figures] = await this.#write('queue', 'notices', 'figures');
    const waiting = await result(queue.getAll());
    const numbers = new Set(waiting.map(numberOf));
    for (const { item, notice, figure } of answered) {
      if (figure) keepFigure(figures, figure);
      if (!numbers.has(numberOf(item))) continue;
      queue.delete([item.device, item.seq]);
      if (notice && !isReplaced(item, waiting)) notices.put(notice);
    }
    await finished(transaction);
    this.#tabs?.postMessage('settled');
  }

  async dismiss(notice) {
    const [transaction, notices] = await this.#write('notices');
    notices.delete([notice.device, notice.seq]);
    await finished(transaction);
    this.#tabs?.postMessage('settled');
  }

  /** Figures of a count that is closed become those of another code. Ids and numbers stay, so none counts twice. */
  async move(items, code) {
    const [transaction, queue] = await this.#write('queue');
    for (const { device, seq } of items) {
      queue.get([device, seq]).onsuccess = (event) => {
        if (event.target.result) queue.put({ ...event.target.result, code });
      };
    }
    await finished(transaction);
  }

  async forget(items) {
    await this.settle(items.map((item) => ({ item })));
  }

  async keepUnknown(entry) {
    const [transaction, unknown] = await this.#write('unknown');
    unknown.put(entry);
    await finished(transaction);
    this.#tabs?.postMessage('entered');
  }

  async forgetUnknown(entry) {
    const [transaction, unknown] = await this.#write('unknown');
    unknown.delete([entry.code, entry.barcode]);
    await finished(transaction);
    this.#tabs?.postMessage('settled');
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
      const connection = this.#connect(() => {
        this.#lose(connection);
        this.#page.changed();
      });
      connection.catch(() => this.#lose(connection));
      this.#connection = connection;
    }
    return this.#connection;
  }

  async #connect(onLost) {
    const database = await connect(onLost);
    try {
      await this.#join(database);
      return database;
    } catch (error) {
      database.close();
      throw error;
    }
  }

  /**
   * Takes the id of a database. Where it is not the one before, the browser has erased that: what this page knows of it
   * is put into this one, which another tab may have made and used.
   */
  async #join(database) {
    const rescued = ['queue', 'notices', 'unknown'];
    const transaction = database.transaction(['meta', ...rescued], 'readwrite', strict);
    const meta = transaction.objectStore('meta');
    const [device, numbers] = await Promise.all(['device', 'numbers'].map((key) => result(meta.get(key))));
    const isAnother = this.#device !== null && this.#device !== device;
    if (isAnother) {
      const known = this.#page.known();
      for (const store of rescued) {
        for (const value of known[store]) putMissing(transaction.objectStore(store), value);
      }
      meta.put({ ...numbers, time: latest(known.queue, numbers.time) }, 'numbers');
    }
    await finished(transaction);
    this.#device = device;
    if (!isAnother) return;
    this.#tabs?.postMessage('erased');
    this.#page.erased();
  }

  #lose(connection) {
    if (this.#connection === connection) this.#connection = null;
  }

  /** Begins a transaction; once more where the connection turns out to be lost. */
  async #begin(stores, mode = 'readonly') {
    const connection = this.#connected();
    const database = await connection;
    try {
      return database.transaction(stores, mode, strict);
    } catch {
      database.close();
      this.#lose(connection);
      return (await this.#connected()).transaction(stores, mode, strict);
    }
  }

  async #write(...stores) {
    const transaction = await this.#begin(stores, 'readwrite');
    return [transaction, ...stores.map((store) => transaction.objectStore(store))];
  }
}
