// Calls of the desk.

/** The code is unknown at the desk, or its session has ended. */
export class Closed extends Error {}

/** The desk reads the request and does not take it, with a sentence. */
export class NotTaken extends Error {}

/** No answer that the desk would give: no network, another server, too much at once. */
export class Away extends Error {}

/** No answer in time: the desk may be at work. */
export class Late extends Away {}

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
    throw new Away(String(response.status));
  } catch (error) {
    if (error instanceof Closed || error instanceof NotTaken) throw error;
    throw isLate ? new Late() : new Away(error.message);
  } finally {
    clearTimeout(timer);
    signal?.removeEventListener('abort', stop);
  }
}

async function sentence(response) {
  try {
    return (await response.json()).error ?? '';
  } catch {
    return '';
  }
}
