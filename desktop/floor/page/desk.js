// Calls of the desk.

/** The code is unknown at the desk, or its session has ended. */
export class Closed extends Error {}

/** The desk reads the request and does not take it, with a sentence. */
export class NotTaken extends Error {}

/** No answer that the desk would give: no network, or another server. */
export class Away extends Error {}

/** The desk cannot take it now, with a sentence. */
export class Busy extends Away {}

/** No answer in time: the desk may be at work. */
export class Late extends Away {}

/** Statuses of too much at once, of an error at the desk, and of a disk that keeps nothing. */
const busy = [429, 500, 503];

/** What is to be reported of the desk after a call that it did not answer. */
export function newsOf(error) {
  if (error instanceof Late) return {};
  return error instanceof Busy ? { busy: error.message } : { away: true };
}

/**
 * Calls a path of the desk with a code, and returns its answer. Throws one of the errors above; `signal` ends the
 * waiting before `seconds` have passed.
 */
export async function call(path, code, { body, seconds = 15, signal } = {}) {
  const control = new AbortController();
  let isLate = false;
  const stop = () => control.abort();
  const timer = setTimeout(() => {
    isLate = true;
    stop();
  }, seconds * 1000);
  signal?.addEventListener('abort', stop);
  try {
    const response = await fetch(path, {
      method: body === undefined ? 'GET' : 'POST',
      headers: { Authorization: `Bearer ${code}`, ...(body !== undefined && { 'Content-Type': 'application/json' }) },
      body,
      cache: 'no-store',
      credentials: 'omit',
      signal: control.signal,
    });
    if (response.ok) return await response.json();
    if (response.status === 401) throw new Closed();
    if (response.status === 400 || response.status === 413) throw new NotTaken(await sentence(response));
    const said = busy.includes(response.status) ? await sentence(response) : '';
    throw said === '' ? new Away(String(response.status)) : new Busy(said);
  } catch (error) {
    if ([Closed, NotTaken, Busy].some((known) => error instanceof known)) throw error;
    throw isLate ? new Late() : new Away(error.message);
  } finally {
    clearTimeout(timer);
    signal?.removeEventListener('abort', stop);
  }
}

async function sentence(response) {
  try {
    return String((await response.json()).error ?? '');
  } catch {
    return '';
  }
}
